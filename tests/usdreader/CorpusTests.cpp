// Real files of every kind import without a crash: each ends with a document
// and "Done", or with no document and a -1 report.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/usdreader/ImportSupport.h"

using namespace TavrinReaderTests;

namespace {

std::vector<std::filesystem::path> CorpusFiles(const std::vector<std::string>& extensions)
{
    std::vector<std::filesystem::path> files;
    const std::filesystem::path corpus(TAVRIN_CORPUS_DIR);
    if (!std::filesystem::is_directory(corpus))
        return files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(corpus)) {
        const std::string extension = entry.path().extension().string();
        if (entry.is_regular_file() && std::find(extensions.begin(), extensions.end(), extension) != extensions.end())
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void ImportEach(const std::vector<std::filesystem::path>& files)
{
    for (const std::filesystem::path& file : files) {
        ScratchFolder scratch;
        const ImportResult result = ImportFile(file.string(), scratch.Path().string());
        ASSERT_FALSE(result.progress.empty()) << file;
        EXPECT_EQ(result.progress.front().first, "Initilizing") << file;
        const int last = result.progress.back().second;
        EXPECT_EQ(last, result.document ? 100 : -1) << file;
        if (result.handler->unpackFolder.Length() > 1)
            std::filesystem::remove_all(result.handler->unpackFolder.toStdString());
    }
}

TEST(CorpusImport, EveryTextLayerImports)
{
    const auto files = CorpusFiles({".usda"});
    if (files.empty())
        GTEST_SKIP() << "no corpus at " << TAVRIN_CORPUS_DIR;
    ImportEach(files);
}

TEST(CorpusImport, EveryCrateLayerAndPackageImports)
{
    const auto files = CorpusFiles({".usdc", ".usd", ".usdz"});
    if (files.empty())
        GTEST_SKIP() << "no corpus at " << TAVRIN_CORPUS_DIR;
    ImportEach(files);
}

} // namespace
