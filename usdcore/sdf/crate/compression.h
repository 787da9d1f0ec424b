#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/crate/byteCursor.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

/// The most bytes that \p compressedSize bytes of LZ4 data can expand to
/// (LZ4 cannot do better than about 255 to 1). Counts read from the file are
/// held against this before anything is allocated for them.
constexpr uint64_t Sdf_CrateMaxDecompressedSize(uint64_t compressedSize)
{
    return compressedSize > (UINT64_MAX >> 9) ? UINT64_MAX : compressedSize * 256 + 64;
}

/// Decompresses one block in the crate's compressed form: a chunk count byte,
/// then either (count 0) a single LZ4 block filling the rest, or that many
/// chunks of `i32 size` + LZ4 data, each expanding to the next part of the
/// output. Fails (and records why) on a malformed block or when the output
/// would not fit in \p capacity. On success \p produced holds the bytes
/// written.
bool Sdf_CrateDecompress(std::string_view compressed, char* out, size_t capacity,
                         size_t* produced, Sdf_CrateError* error);

/// Decompresses a block that must expand to exactly \p size bytes.
bool Sdf_CrateDecompressExactly(std::string_view compressed, char* out, size_t size,
                                Sdf_CrateError* error);

PXR_NAMESPACE_CLOSE_SCOPE
