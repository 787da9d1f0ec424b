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

TEST(CrateCompressedBlock, DamagedBlocksAreRefused)
{
    std::string cutChunk = Chunk(Lz4(kFirst));
    cutChunk.pop_back();
    const struct {
        const char* name;
        std::string block;
        size_t capacity;
        const char* expected; // in the message, when it says why
    } cases[] = {
        {"chunk size past the end", std::string(1, '\1') + cutChunk, 200, ""},
        {"three chunks announced, one present", std::string(1, '\3') + Chunk(Lz4(kFirst)), 200, ""},
        {"negative chunk size", std::string(1, '\1') + std::string("\xFF\xFF\xFF\xFF", 4) + "abc", 200, "negative"},
        // A literal run announcing 15+ bytes with none following.
        {"corrupt LZ4 data", std::string("\0\xF0\xFF", 3), 200, "corrupt LZ4"},
        {"output larger than the room given", std::string(1, '\2') + Chunk(Lz4(kFirst)) + Chunk(Lz4(kSecond)),
         kFirst.size() + 3, ""},
        {"empty input", std::string(), 10, ""},
    };
    for (const auto& c : cases) {
        std::string out;
        Sdf_CrateError error;
        EXPECT_FALSE(Decompress(c.block, c.capacity, &out, &error)) << c.name;
        EXPECT_TRUE(error.Failed()) << c.name;
        EXPECT_NE(error.GetMessage().find(c.expected), std::string::npos) << c.name << ": " << error.GetMessage();
    }
}

TEST(CrateCompressedBlock, ExactSizeMismatchIsRefused)
{
    const std::string block = std::string(1, '\0') + Lz4(kSecond);
    std::string out(kSecond.size() + 1, '\0');
    Sdf_CrateError error;
    EXPECT_FALSE(Sdf_CrateDecompressExactly(block, out.data(), out.size(), &error));
    EXPECT_NE(error.GetMessage().find("expected"), std::string::npos) << error.GetMessage();
}

} // namespace
