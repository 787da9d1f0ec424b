#include "usdcore/sdf/crate/integerCoding.h"

#include <gtest/gtest.h>
#include <lz4.h>

#include <cstdint>
#include <string>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::string Bytes(std::initializer_list<int> values)
{
    std::string out;
    for (int v : values) {
        out.push_back(char(uint8_t(v)));
    }
    return out;
}

// 5, 6, 7, 7, 100, -200: deltas 5, 1, 1, 0, 93, -300 with 1 as the common
// delta. Codes 01 00 00 01 | 01 10 -> bytes 0x41, 0x09; then the int8 deltas
// 5, 0, 93 and the int16 delta -300 (0xFED4).
const std::string kEncoded32 =
    Bytes({1, 0, 0, 0, 0x41, 0x09, 5, 0, 93, 0xD4, 0xFE});

TEST(CrateIntegerDecoding, EachDeltaWidthOf32BitValues)
{
    Sdf_CrateError error;
    std::vector<int32_t> values(6);
    ASSERT_TRUE(Sdf_CrateDecodeIntegers(kEncoded32, values.size(), values.data(), &error))
        << error.GetMessage();
    EXPECT_EQ(values, (std::vector<int32_t>{5, 6, 7, 7, 100, -200}));
}

TEST(CrateIntegerDecoding, WidthsOf64BitValuesAreTwiceAsWide)
{
    // -1, 2^32 - 1, 2^32 - 1 + 40000: deltas -1 (int16), 2^32 (int64), 40000
    // (int32); the common delta 7 is never used. Codes 01 11 10 -> 0x2D.
    const std::string encoded = Bytes({7, 0, 0, 0, 0, 0, 0, 0, 0x2D, 0xFF, 0xFF,
                                       0, 0, 0, 0, 1, 0, 0, 0, 0x40, 0x9C, 0, 0});
    Sdf_CrateError error;
    std::vector<int64_t> values(3);
    ASSERT_TRUE(Sdf_CrateDecodeIntegers(encoded, values.size(), values.data(), &error))
        << error.GetMessage();
    EXPECT_EQ(values, (std::vector<int64_t>{-1, 4294967295LL, 4294967295LL + 40000}));
}

TEST(CrateIntegerDecoding, UnsignedValuesWrapThroughNegativeDeltas)
{
    // 0xFFFFFFFF then 0: the common delta -1, then an int8 delta of +1.
    const std::string encoded = Bytes({0xFF, 0xFF, 0xFF, 0xFF, 0x04, 1});
    Sdf_CrateError error;
    std::vector<uint32_t> values(2);
    ASSERT_TRUE(Sdf_CrateDecodeIntegers(encoded, values.size(), values.data(), &error));
    EXPECT_EQ(values, (std::vector<uint32_t>{0xFFFFFFFFu, 0}));
}

TEST(CrateIntegerDecoding, DeltasPastTheEndAreRefused)
{
    Sdf_CrateError error;
    std::vector<int32_t> values(6);
    const std::string cut = kEncoded32.substr(0, kEncoded32.size() - 1);
    EXPECT_FALSE(Sdf_CrateDecodeIntegers(cut, values.size(), values.data(), &error));
    EXPECT_NE(error.GetMessage().find("before value 5"), std::string::npos)
        << error.GetMessage();
}

TEST(CrateIntegerDecoding, CodesPastTheEndAreRefused)
{
    // Nine values need three code bytes after the common delta.
    Sdf_CrateError error;
    std::vector<int32_t> values(9);
    EXPECT_FALSE(Sdf_CrateDecodeIntegers(Bytes({0, 0, 0, 0, 0, 0}), 9, values.data(), &error));
    EXPECT_TRUE(error.Failed());
}

std::string CompressedIntegers(const std::string& encoded)
{
    std::string block(size_t(LZ4_compressBound(int(encoded.size()))), '\0');
    block.resize(size_t(LZ4_compress_default(encoded.data(), block.data(), int(encoded.size()),
                                             int(block.size()))));
    block.insert(block.begin(), '\0');
    const uint64_t size = block.size();
    return std::string(reinterpret_cast<const char*>(&size), sizeof(size)) + block;
}

TEST(CrateCompressedIntegers, SizePrefixedBlockExpandsAndDecodes)
{
    const std::string stored = CompressedIntegers(kEncoded32) + "tail";
    Sdf_CrateError error;
    Sdf_CrateByteCursor cursor(stored, &error);
    std::vector<int32_t> values(6);
    ASSERT_TRUE(Sdf_CrateReadCompressedIntegers(cursor, values.size(), values.data()))
        << error.GetMessage();
    EXPECT_EQ(values, (std::vector<int32_t>{5, 6, 7, 7, 100, -200}));
    EXPECT_EQ(cursor.Remaining(), 4u) << "the cursor stops right after the block";
}

TEST(CrateCompressedIntegers, HugeCountFromATinyBlockIsRefusedBeforeAllocating)
{
    const std::string stored = CompressedIntegers(kEncoded32);
    Sdf_CrateError error;
    Sdf_CrateByteCursor cursor(stored, &error);
    Sdf_CrateCompressedIntegers located;
    EXPECT_FALSE(Sdf_CrateLocateCompressedIntegers(cursor, uint64_t(1) << 40, 4, &located));
    EXPECT_NE(error.GetMessage().find("cannot hold"), std::string::npos) << error.GetMessage();
}

TEST(CrateCompressedIntegers, BlockSizePastTheEndIsRefused)
{
    std::string stored = CompressedIntegers(kEncoded32);
    stored.resize(stored.size() - 2);
    Sdf_CrateError error;
    Sdf_CrateByteCursor cursor(stored, &error);
    std::vector<int32_t> values(6);
    EXPECT_FALSE(Sdf_CrateReadCompressedIntegers(cursor, values.size(), values.data()));
    EXPECT_TRUE(error.Failed());
}

} // namespace
