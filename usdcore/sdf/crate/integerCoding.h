#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/crate/byteCursor.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

PXR_NAMESPACE_OPEN_SCOPE

/// Decodes \p count integers from the crate's delta encoding: the most common
/// delta, then a 2-bit code per value (four to a byte, low bits first) saying
/// whether its delta is the common one or follows as a small, medium or full
/// width signed integer (8/16/32 bits for 32-bit values, 16/32/64 for 64-bit
/// ones). Each value is the previous one plus its delta, starting from 0.
/// Instantiated for int32_t, uint32_t, int64_t and uint64_t.
template <class Int>
bool Sdf_CrateDecodeIntegers(std::string_view encoded, size_t count, Int* out,
                             Sdf_CrateError* error);

/// The compressed block of a run of encoded integers, located but not yet
/// expanded, so that callers can size their output first.
struct Sdf_CrateCompressedIntegers {
    std::string_view block;
    size_t count = 0;
};

/// Reads `u64 compressedSize` and the block after it, and checks that such a
/// block can plausibly expand to \p count integers of \p intSize bytes.
bool Sdf_CrateLocateCompressedIntegers(Sdf_CrateByteCursor& cursor, uint64_t count,
                                       size_t intSize, Sdf_CrateCompressedIntegers* located);

/// Expands a located block (LZ4, then the delta decoding) into \p out, which
/// has room for located.count integers.
template <class Int>
bool Sdf_CrateDecompressIntegers(const Sdf_CrateCompressedIntegers& located, Int* out,
                                 Sdf_CrateError* error);

/// Locate and expand in one step, for callers whose output already exists.
template <class Int>
bool Sdf_CrateReadCompressedIntegers(Sdf_CrateByteCursor& cursor, size_t count, Int* out)
{
    Sdf_CrateCompressedIntegers located;
    return Sdf_CrateLocateCompressedIntegers(cursor, count, sizeof(Int), &located) &&
           Sdf_CrateDecompressIntegers(located, out, cursor.GetError());
}

PXR_NAMESPACE_CLOSE_SCOPE
