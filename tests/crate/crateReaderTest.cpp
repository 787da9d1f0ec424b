// Whole crate files: the corpus's real files, and damaged copies of them.

#include "corpusFiles.h"

#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

// Corpus files the manifest lists as crate (.usdc, and .usd files that are
// crate inside).
std::vector<std::string> CorpusCrateFiles()
{
    std::ifstream manifest(std::string(TAVRIN_CORPUS_DIR) + "/MANIFEST.tsv");
    std::vector<std::string> files;
    std::string line;
    while (std::getline(manifest, line)) {
        std::vector<std::string> columns;
        std::istringstream row(line);
        for (std::string column; std::getline(row, column, '\t');) {
            columns.push_back(column);
        }
        if (columns.size() > 7 && columns[7] == "usdc") {
            files.push_back(columns[0]);
        }
    }
    return files;
}

TEST(CrateCorpus, EveryCrateFileReadsWithoutErrors)
{
    const std::vector<std::string> files = CorpusCrateFiles();
    if (files.empty()) {
        GTEST_SKIP() << "corpus manifest absent";
    }
    for (const std::string& file : files) {
        const std::string bytes = ReadCorpusFile(file);
        ASSERT_FALSE(bytes.empty()) << file;
        TfDiagnosticCapture capture;
        SdfData data;
        EXPECT_TRUE(SdfCrateReadData(bytes, file, &data)) << file;
        for (const TfDiagnostic& diagnostic : capture.GetDiagnostics()) {
            ADD_FAILURE() << file << ": " << diagnostic.GetCommentary();
        }
        EXPECT_EQ(data.GetSpecType(SdfPath::AbsoluteRootPath()), SdfSpecTypePseudoRoot) << file;
    }
}

TEST(CrateCorpus, OldestVersionGivesItsPrimsAndFields)
{
    const std::string bytes = ReadCorpusFile(kOldestCrateFile);
    if (bytes.empty()) {
        GTEST_SKIP() << "corpus file absent: " << kOldestCrateFile;
    }
    SdfData data;
    ASSERT_TRUE(SdfCrateReadData(bytes, kOldestCrateFile, &data));
    const SdfPath root = SdfPath::AbsoluteRootPath();
    EXPECT_EQ(data.Get(root, SdfChildrenKeys->PrimChildren).Get<std::vector<TfToken>>(),
              (std::vector<TfToken>{TfToken("AirConditioner"), TfToken("Scope")}));
    const SdfPath airConditioner("/AirConditioner");
    EXPECT_EQ(data.GetSpecType(airConditioner), SdfSpecTypePrim);
    EXPECT_EQ(data.Get(airConditioner, SdfFieldKeys->Specifier).Get<SdfSpecifier>(),
              SdfSpecifierDef);
    EXPECT_FALSE(data.Has(airConditioner, SdfFieldKeys->TypeName));
    EXPECT_EQ(data.Get(SdfPath("/Scope"), SdfFieldKeys->TypeName).Get<TfToken>(),
              TfToken("Scope"));
}

// ufbx's trick: every truncation of a valid file and every single-byte flip
// must give a layer or a diagnostic, never a crash (the sanitizer build turns
// any out-of-bounds access into a failure).
const char* const kSmallCrateFile = "lighttransport_tinyusdz/models/translated-cube.usdc";

TEST(CrateDamagedFiles, EveryTruncationFailsCleanly)
{
    const std::string bytes = ReadCorpusFile(kSmallCrateFile);
    if (bytes.empty()) {
        GTEST_SKIP() << "corpus file absent: " << kSmallCrateFile;
    }
    for (size_t length = 0; length < bytes.size(); ++length) {
        TfDiagnosticCapture capture;
        SdfData data;
        // The table of contents is at the end, so every truncation loses it.
        EXPECT_FALSE(SdfCrateReadData(std::string_view(bytes).substr(0, length), "cut.usdc", &data))
            << "length " << length;
        EXPECT_FALSE(capture.GetDiagnostics().empty()) << "length " << length;
    }
}

TEST(CrateDamagedFiles, EveryFlippedByteIsSurvived)
{
    const std::string bytes = ReadCorpusFile(kSmallCrateFile);
    if (bytes.empty()) {
        GTEST_SKIP() << "corpus file absent: " << kSmallCrateFile;
    }
    size_t failures = 0;
    for (size_t offset = 0; offset < bytes.size(); ++offset) {
        for (const char mask : {'\x01', '\x80', '\xFF'}) {
            std::string damaged = bytes;
            damaged[offset] ^= mask;
            TfDiagnosticCapture capture;
            SdfData data;
            if (!SdfCrateReadData(damaged, "flipped.usdc", &data)) {
                ++failures;
                EXPECT_FALSE(capture.GetDiagnostics().empty()) << "offset " << offset;
            }
        }
    }
    // Flips in the header, the sections and the value reps must be caught.
    EXPECT_GT(failures, bytes.size() / 4);
}

} // namespace
