// Every small real file of the corpus, cut short at 64 points and with 64
// seeded patches of a few bytes each, goes through a whole import: each ends
// with a document and "Done", or with no document and a -1 report. Under the
// sanitizers this is a deterministic fuzzer that runs with the suite.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/usdreader/ImportSupport.h"
#include "usdcore/tf/diagnostic.h"

PXR_NAMESPACE_USING_DIRECTIVE
using namespace TavrinReaderTests;

namespace {

constexpr std::uintmax_t kLargestFile = 1 << 20;
constexpr int kVariants = 64;

std::vector<std::filesystem::path> SmallCorpusFiles(const std::string& extension)
{
    std::vector<std::filesystem::path> files;
    const std::filesystem::path corpus(TAVRIN_CORPUS_DIR);
    if (!std::filesystem::is_directory(corpus))
        return files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(corpus)) {
        if (entry.is_regular_file() && entry.path().extension() == extension && entry.file_size() <= kLargestFile)
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The file's variants: the first kVariants cut it at evenly spaced lengths
// (the empty file first), the next kVariants overwrite one to four bytes at
// places a generator seeded with the variant's number picks.
std::string Variant(const std::string& bytes, int variant)
{
    if (variant < kVariants)
        return bytes.substr(0, bytes.size() * static_cast<std::size_t>(variant) / kVariants);
    std::string patched = bytes;
    if (patched.empty())
        return patched;
    std::mt19937 random(static_cast<std::uint32_t>(variant));
    const int patches = 1 + static_cast<int>(random() % 4);
    for (int i = 0; i < patches; ++i)
        patched[random() % patched.size()] = static_cast<char>(random() & 0xFF);
    return patched;
}

void ImportEveryVariant(const std::string& extension)
{
    const std::vector<std::filesystem::path> files = SmallCorpusFiles(extension);
    if (files.empty())
        GTEST_SKIP() << "no corpus at " << TAVRIN_CORPUS_DIR;
    // What the files say about themselves is not the test's concern.
    TfDiagnosticCapture quiet;
    ScratchFolder scratch;
    const std::string path = (scratch.Path() / ("damaged" + extension)).string();
    const std::string textures = (scratch.Path() / "textures").string();
    for (const std::filesystem::path& file : files) {
        const std::string bytes = ReadBytes(file);
        for (int variant = 0; variant < 2 * kVariants; ++variant) {
            std::ofstream(path, std::ios::binary | std::ios::trunc) << Variant(bytes, variant);
            const ImportResult result = ImportFile(path, textures);
            ASSERT_FALSE(result.progress.empty()) << file << " variant " << variant;
            EXPECT_EQ(result.progress.back().second, result.document ? 100 : -1) << file << " variant " << variant;
            if (result.handler->unpackFolder.Length() > 1)
                std::filesystem::remove_all(result.handler->unpackFolder.toStdString());
            std::filesystem::remove_all(textures);
            quiet.Clear();
        }
    }
}

TEST(HostileInput, TextLayers) { ImportEveryVariant(".usda"); }
TEST(HostileInput, CrateLayers) { ImportEveryVariant(".usdc"); }
TEST(HostileInput, UsdFiles) { ImportEveryVariant(".usd"); }
TEST(HostileInput, Packages) { ImportEveryVariant(".usdz"); }

} // namespace
