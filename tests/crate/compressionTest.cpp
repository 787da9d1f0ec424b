#include "usdcore/sdf/crate/compression.h"

#include <gtest/gtest.h>
#include <lz4.h>

#include <cstdint>
#include <string>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::string Lz4(const std::string& input)
{
    std::string out(size_t(LZ4_compressBound(int(input.size()))), '\0');
    out.resize(size_t(
        LZ4_compress_default(input.data(), out.data(), int(input.size()), int(out.size()))));
    return out;
}

std::string Chunk(const std::string& lz4)
{
    const int32_t size = int32_t(lz4.size());
    return std::string(reinterpret_cast<const char*>(&size), sizeof(size)) + lz4;
}

bool Decompress(const std::string& block, size_t capacity, std::string* out,
                Sdf_CrateError* error)
{
    out->assign(capacity, '\0');
    size_t produced = 0;
    if (!Sdf_CrateDecompress(block, out->data(), capacity, &produced, error)) {
        return false;
    }
    out->resize(produced);
    return true;
}

const std::string kFirst = "the first chunk, the first chunk, the first chunk";
const std::string kSecond = "and a second one";

TEST(CrateCompressedBlock, ZeroChunkCountMeansOneBlockFillingTheRest)
{
    std::string out;
    Sdf_CrateError error;
    ASSERT_TRUE(Decompress(std::string(1, '\0') + Lz4(kFirst), 100, &out, &error))
        << error.GetMessage();
    EXPECT_EQ(out, kFirst);
}

TEST(CrateCompressedBlock, ChunksExpandOneAfterAnother)
{
    const std::string block = std::string(1, '\2') + Chunk(Lz4(kFirst)) + Chunk(Lz4(kSecond));
    std::string out;
    Sdf_CrateError error;
    ASSERT_TRUE(Decompress(block, 200, &out, &error)) << error.GetMessage();
    EXPECT_EQ(out, kFirst + kSecond);
}

TEST(CrateCompressedBlock, ChunkSizePastTheEndIsRefused)
{
    std::string chunk = Chunk(Lz4(kFirst));
    chunk.pop_back();
    std::string out;
    Sdf_CrateError error;
    EXPECT_FALSE(Decompress(std::string(1, '\1') + chunk, 200, &out, &error));
    EXPECT_TRUE(error.Failed());
}

TEST(CrateCompressedBlock, MissingChunksAreRefused)
{
    // Three chunks announced, one present.
    std::string out;
    Sdf_CrateError error;
    EXPECT_FALSE(Decompress(std::string(1, '\3') + Chunk(Lz4(kFirst)), 200, &out, &error));
    EXPECT_TRUE(error.Failed());
}

TEST(CrateCompressedBlock, NegativeChunkSizeIsRefused)
{
    const std::string block = std::string(1, '\1') + std::string("\xFF\xFF\xFF\xFF", 4) + "abc";
    std::string out;
    Sdf_CrateError error;
    EXPECT_FALSE(Decompress(block, 200, &out, &error));
    EXPECT_NE(error.GetMessage().find("negative"), std::string::npos) << error.GetMessage();
}

TEST(CrateCompressedBlock, CorruptLz4DataIsRefused)
{
    // A literal run announcing 15+ bytes with none following.
    std::string out;
    Sdf_CrateError error;
    EXPECT_FALSE(Decompress(std::string("\0\xF0\xFF", 3), 200, &out, &error));
    EXPECT_NE(error.GetMessage().find("corrupt LZ4"), std::string::npos) << error.GetMessage();
}

TEST(CrateCompressedBlock, OutputLargerThanTheRoomGivenIsRefused)
{
    const std::string block = std::string(1, '\2') + Chunk(Lz4(kFirst)) + Chunk(Lz4(kSecond));
    std::string out;
    Sdf_CrateError error;
    EXPECT_FALSE(Decompress(block, kFirst.size() + 3, &out, &error));
    EXPECT_TRUE(error.Failed());
}

TEST(CrateCompressedBlock, ExactSizeMismatchIsRefused)
{
    const std::string block = std::string(1, '\0') + Lz4(kSecond);
    std::string out(kSecond.size() + 1, '\0');
    Sdf_CrateError error;
    EXPECT_FALSE(Sdf_CrateDecompressExactly(block, out.data(), out.size(), &error));
    EXPECT_NE(error.GetMessage().find("expected"), std::string::npos) << error.GetMessage();
}

TEST(CrateCompressedBlock, EmptyInputIsRefused)
{
    std::string out;
    Sdf_CrateError error;
    EXPECT_FALSE(Decompress(std::string(), 10, &out, &error));
    EXPECT_TRUE(error.Failed());
}

} // namespace
