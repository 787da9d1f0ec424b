#include "usdcore/sdf/crate/integerCoding.h"

#include "usdcore/sdf/crate/compression.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

template <class Int>
struct DeltaWidths;
template <>
struct DeltaWidths<int32_t> {
    using Small = int8_t;
    using Medium = int16_t;
};
template <>
struct DeltaWidths<int64_t> {
    using Small = int16_t;
    using Medium = int32_t;
};

// Bytes of the common delta plus the code bytes: the part every encoding of
// count integers has, however well they compress.
template <class Int>
constexpr uint64_t EncodedHeaderSize(uint64_t count)
{
    return sizeof(Int) + (count * 2 + 7) / 8;
}

template <class Int>
constexpr uint64_t EncodedMaxSize(uint64_t count)
{
    return EncodedHeaderSize<Int>(count) + count * sizeof(Int);
}

} // namespace

template <class Int>
bool Sdf_CrateDecodeIntegers(std::string_view encoded, size_t count, Int* out,
                             Sdf_CrateError* error)
{
    using Signed = std::make_signed_t<Int>;
    using Small = typename DeltaWidths<Signed>::Small;
    using Medium = typename DeltaWidths<Signed>::Medium;

    if (count == 0) {
        return true;
    }
    if (encoded.size() < EncodedHeaderSize<Int>(count)) {
        return error->Fail("encoded integers too short for " + std::to_string(count) + " values");
    }
    const char* codes = encoded.data() + sizeof(Signed);
    const char* deltas = codes + (count * 2 + 7) / 8;
    const char* const end = encoded.data() + encoded.size();

    Signed commonDelta;
    std::memcpy(&commonDelta, encoded.data(), sizeof(commonDelta));

    // Sums wrap like the writer's differences did, so unsigned arithmetic.
    using Unsigned = std::make_unsigned_t<Int>;
    Unsigned value = 0;
    auto readDelta = [&](auto width, Unsigned* delta) {
        using Width = decltype(width);
        if (size_t(end - deltas) < sizeof(Width)) {
            return false;
        }
        Width raw;
        std::memcpy(&raw, deltas, sizeof(raw));
        deltas += sizeof(raw);
        *delta = Unsigned(Signed(raw));
        return true;
    };
    for (size_t i = 0; i != count; ++i) {
        const unsigned code = (uint8_t(codes[i / 4]) >> (2 * (i % 4))) & 3;
        Unsigned delta = Unsigned(commonDelta);
        const bool ok = code == 0   ? true
                        : code == 1 ? readDelta(Small(), &delta)
                        : code == 2 ? readDelta(Medium(), &delta)
                                    : readDelta(Signed(), &delta);
        if (!ok) {
            return error->Fail("encoded integers end before value " + std::to_string(i) + " of " +
                               std::to_string(count));
        }
        value += delta;
        out[i] = Int(value);
    }
    return true;
}

bool Sdf_CrateLocateCompressedIntegers(Sdf_CrateByteCursor& cursor, uint64_t count,
                                       size_t intSize, Sdf_CrateCompressedIntegers* located)
{
    uint64_t compressedSize = 0;
    if (!cursor.Read(&compressedSize) || !cursor.ReadBytes(compressedSize, &located->block)) {
        return false;
    }
    const uint64_t header = intSize + (count * 2 + 7) / 8;
    if (count > (UINT64_MAX >> 3) || header > Sdf_CrateMaxDecompressedSize(compressedSize)) {
        return cursor.GetError()->Fail(std::to_string(compressedSize) +
                                       " compressed bytes cannot hold " + std::to_string(count) +
                                       " integers");
    }
    located->count = size_t(count);
    return true;
}

template <class Int>
bool Sdf_CrateDecompressIntegers(const Sdf_CrateCompressedIntegers& located, Int* out,
                                 Sdf_CrateError* error)
{
    if (located.count == 0) {
        return true;
    }
    // The block can hold fewer bytes than the worst case; never allocate more
    // than it can expand to.
    const uint64_t capacity = std::min<uint64_t>(
        EncodedMaxSize<Int>(located.count), Sdf_CrateMaxDecompressedSize(located.block.size()));
    std::unique_ptr<char[]> encoded(new char[size_t(capacity)]);
    size_t produced = 0;
    return Sdf_CrateDecompress(located.block, encoded.get(), size_t(capacity), &produced,
                               error) &&
           Sdf_CrateDecodeIntegers(std::string_view(encoded.get(), produced), located.count, out,
                                   error);
}

#define SDF_CRATE_INSTANTIATE_INTEGERS(Int)                                                      \
    template bool Sdf_CrateDecodeIntegers<Int>(std::string_view, size_t, Int*, Sdf_CrateError*); \
    template bool Sdf_CrateDecompressIntegers<Int>(const Sdf_CrateCompressedIntegers&, Int*,     \
                                                   Sdf_CrateError*);
SDF_CRATE_INSTANTIATE_INTEGERS(int32_t)
SDF_CRATE_INSTANTIATE_INTEGERS(uint32_t)
SDF_CRATE_INSTANTIATE_INTEGERS(int64_t)
SDF_CRATE_INSTANTIATE_INTEGERS(uint64_t)
#undef SDF_CRATE_INSTANTIATE_INTEGERS

PXR_NAMESPACE_CLOSE_SCOPE
