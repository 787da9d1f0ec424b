// Whole crate files: the corpus's real files, and damaged copies of them.

#include "corpusFiles.h"

#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/array.h"

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

TEST(CrateCorpus, CrateFileNamedUsdOpensAsALayerByItsContent)
{
    const std::string path = std::string(TAVRIN_CORPUS_DIR) + "/" + kOldestCrateFile;
    if (ReadCorpusFile(kOldestCrateFile).empty()) {
        GTEST_SKIP() << "corpus file absent: " << kOldestCrateFile;
    }
    const SdfLayerRefPtr layer = SdfLayer::FindOrOpen(path);
    ASSERT_TRUE(layer);
    EXPECT_EQ(layer->GetData().GetSpecType(SdfPath("/AirConditioner")), SdfSpecTypePrim);
}

const char* const kSmallCrateFile = "lighttransport_tinyusdz/models/translated-cube.usdc";

// Blender 3.1's default scene (crate 0.8.0): the default cube, moved, and
// the default camera, whose location Blender users know by heart.
TEST(CrateCorpus, BlenderDefaultSceneHasItsWellKnownValues)
{
    const std::string bytes = ReadCorpusFile(kSmallCrateFile);
    if (bytes.empty()) {
        GTEST_SKIP() << "corpus file absent: " << kSmallCrateFile;
    }
    SdfData data;
    ASSERT_TRUE(SdfCrateReadData(bytes, kSmallCrateFile, &data));
    const SdfPath root = SdfPath::AbsoluteRootPath();
    EXPECT_EQ(data.Get(root, TfToken("upAxis")).Get<TfToken>(), TfToken("Z"));
    EXPECT_EQ(data.Get(root, TfToken("metersPerUnit")).Get<double>(), 1.0);
    EXPECT_EQ(data.Get(root, TfToken("documentation")).Get<std::string>(), "Blender v3.1.0");

    const SdfPath mesh("/Cube/Cube");
    EXPECT_EQ(data.Get(mesh, SdfFieldKeys->TypeName).Get<TfToken>(), TfToken("Mesh"));
    const VtArray<GfVec3f> points =
        data.Get(mesh.AppendProperty(TfToken("points")), SdfFieldKeys->Default)
            .Get<VtArray<GfVec3f>>();
    ASSERT_EQ(points.size(), 8u);
    EXPECT_EQ(points[0], GfVec3f(1, 1, 1));
    EXPECT_EQ(points[7], GfVec3f(-1, -1, -1));
    EXPECT_EQ(data.Get(mesh.AppendProperty(TfToken("faceVertexCounts")), SdfFieldKeys->Default)
                  .Get<VtArray<int>>(),
              VtArray<int>(6, 4));
    // 24 indices: stored as compressed integers. Blender's cube starts with
    // the face 0 4 6 2 and ends with 5 4 0 1.
    const VtArray<int> indices =
        data.Get(mesh.AppendProperty(TfToken("faceVertexIndices")), SdfFieldKeys->Default)
            .Get<VtArray<int>>();
    ASSERT_EQ(indices.size(), 24u);
    EXPECT_EQ((std::vector<int>(indices.begin(), indices.begin() + 4)),
              (std::vector<int>{0, 4, 6, 2}));
    EXPECT_EQ((std::vector<int>(indices.end() - 4, indices.end())), (std::vector<int>{5, 4, 0, 1}));

    const GfMatrix4d camera =
        data.Get(SdfPath("/Camera.xformOp:transform"), SdfFieldKeys->Default).Get<GfMatrix4d>();
    EXPECT_NEAR(camera[3][0], 7.35889, 1e-5);
    EXPECT_NEAR(camera[3][1], -6.92579, 1e-5);
    EXPECT_NEAR(camera[3][2], 4.95831, 1e-5);
}

// OpenUSD's tutorial top (crate 0.4.0, the first version with compressed
// sections): the spinning top's geometry is authored as samples at frame 48.
TEST(CrateCorpus, TimeSamplesOfVersion04HoldArrays)
{
    const char* const file = "PixarAnimationStudios_OpenUSD/extras/usd/tutorials/animatedTop/top.geom.usd";
    const std::string bytes = ReadCorpusFile(file);
    if (bytes.empty()) {
        GTEST_SKIP() << "corpus file absent: " << file;
    }
    SdfData data;
    ASSERT_TRUE(SdfCrateReadData(bytes, file, &data));
    const VtValue samples =
        data.Get(SdfPath("/Top/mesh_0.faceVertexCounts"), SdfFieldKeys->TimeSamples);
    ASSERT_TRUE(samples.IsHolding<SdfTimeSampleMap>());
    const SdfTimeSampleMap& map = samples.UncheckedGet<SdfTimeSampleMap>();
    ASSERT_EQ(map.size(), 1u);
    EXPECT_EQ(map.begin()->first, 48.0);
    EXPECT_TRUE(map.begin()->second.IsHolding<VtArray<int>>());
    EXPECT_FALSE(map.begin()->second.UncheckedGet<VtArray<int>>().empty());
}

// ufbx's trick: every truncation of a valid file and every single-byte flip
// must give a layer or a diagnostic, never a crash (the sanitizer build turns
// any out-of-bounds access into a failure).

// Two layouts: the raw sections of 0.0.1 and the compressed ones of 0.8.0.
class CrateDamagedFiles : public ::testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        bytes = ReadCorpusFile(GetParam());
        if (bytes.empty()) {
            GTEST_SKIP() << "corpus file absent: " << GetParam();
        }
    }
    std::string bytes;
};

TEST_P(CrateDamagedFiles, EveryTruncationFailsCleanly)
{
    for (size_t length = 0; length < bytes.size(); ++length) {
        TfDiagnosticCapture capture;
        SdfData data;
        // The table of contents is at the end, so every truncation loses it.
        EXPECT_FALSE(SdfCrateReadData(std::string_view(bytes).substr(0, length), "cut.usdc", &data))
            << "length " << length;
        EXPECT_FALSE(capture.GetDiagnostics().empty()) << "length " << length;
    }
}

TEST_P(CrateDamagedFiles, EveryFlippedByteIsSurvived)
{
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

INSTANTIATE_TEST_SUITE_P(OldAndNewLayouts, CrateDamagedFiles,
                         ::testing::Values(kOldestCrateFile, kSmallCrateFile));

} // namespace
