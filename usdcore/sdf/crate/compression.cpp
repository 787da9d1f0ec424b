#include "usdcore/sdf/crate/compression.h"

#include <lz4.h>

#include <algorithm>
#include <climits>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// The writer splits its input into pieces LZ4 accepts in one call; no chunk
// can legitimately expand beyond that.
constexpr size_t kMaxChunkOutput = 0x7E000000;

bool DecompressLz4(std::string_view input, char* out, size_t capacity, size_t* produced,
                   Sdf_CrateError* error)
{
    if (input.size() > size_t(INT_MAX)) {
        return error->Fail("compressed chunk of " + std::to_string(input.size()) +
                           " bytes is larger than LZ4 allows");
    }
    const int result = LZ4_decompress_safe(input.data(), out, int(input.size()),
                                           int(std::min<size_t>(capacity, kMaxChunkOutput)));
    if (result < 0) {
        return error->Fail("corrupt LZ4 block (" + std::to_string(input.size()) + " bytes)");
    }
    *produced = size_t(result);
    return true;
}

} // namespace

bool Sdf_CrateDecompress(std::string_view compressed, char* out, size_t capacity,
                         size_t* produced, Sdf_CrateError* error)
{
    Sdf_CrateByteCursor cursor(compressed, error);
    uint8_t chunkCount = 0;
    if (!cursor.Read(&chunkCount)) {
        return false;
    }
    if (chunkCount == 0) {
        std::string_view block;
        return cursor.ReadBytes(cursor.Remaining(), &block) &&
               DecompressLz4(block, out, capacity, produced, error);
    }
    size_t total = 0;
    for (unsigned chunk = 0; chunk != chunkCount; ++chunk) {
        int32_t chunkSize = 0;
        std::string_view block;
        if (!cursor.Read(&chunkSize)) {
            return false;
        }
        if (chunkSize < 0) {
            return error->Fail("negative compressed chunk size " + std::to_string(chunkSize));
        }
        size_t chunkOutput = 0;
        if (!cursor.ReadBytes(uint64_t(chunkSize), &block) ||
            !DecompressLz4(block, out + total, capacity - total, &chunkOutput, error)) {
            return false;
        }
        total += chunkOutput;
    }
    *produced = total;
    return true;
}

bool Sdf_CrateDecompressExactly(std::string_view compressed, char* out, size_t size,
                                Sdf_CrateError* error)
{
    size_t produced = 0;
    if (!Sdf_CrateDecompress(compressed, out, size, &produced, error)) {
        return false;
    }
    if (produced != size) {
        return error->Fail("compressed block holds " + std::to_string(produced) +
                           " bytes, expected " + std::to_string(size));
    }
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
