// The import driver: progress reports, failures, the root correction and
// which prims the walk reaches.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"
#include "tests/usdreader/ImportSupport.h"
#include "utilities/TavrinPlatform.h"

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;
using ::testing::Pair;

namespace {

const char* const fourXforms = R"(#usda 1.0
(
    upAxis = "Z"
    metersPerUnit = 1
)
def Xform "A" {
    def Xform "B" {}
}
def Xform "C" {}
def Scope "D" {}
)";

// The host matrix at (row, column) of a node's local transform.
double LocalM(const CTavrinJson& node, int row, int column)
{
    return node.at("localMatrix").at(row * 4 + column).get<double>();
}

TEST(ReadUSDFileProgress, FourPrimsReportAQuarterOf96EachAfterTheStart)
{
    const ImportResult result = ImportText(fourXforms);
    ASSERT_NE(result.document, nullptr);
    // int(k / 4 * 96 + 2) for k = 1..4
    EXPECT_THAT(result.progress,
                ElementsAre(Pair("Initilizing", 1), Pair("Reading Geometries", 26), Pair("Reading Geometries", 50),
                            Pair("Reading Geometries", 74), Pair("Reading Geometries", 98), Pair("Finalizing", 99),
                            Pair("Done", 100)));
}

TEST(ReadUSDFileProgress, ThreePrimsTruncateTowardZero)
{
    const ImportResult result = ImportText("#usda 1.0\ndef Xform \"A\" {}\ndef Xform \"B\" {}\ndef \"C\" {}\n");
    // 1/3 * 96 + 2 = 34, 2/3 * 96 + 2 = 66, 98
    EXPECT_THAT(result.progress,
                ElementsAre(Pair("Initilizing", 1), Pair("Reading Geometries", 34), Pair("Reading Geometries", 66),
                            Pair("Reading Geometries", 98), Pair("Finalizing", 99), Pair("Done", 100)));
}

TEST(ReadUSDFileProgress, AnEmptyStageGivesAnEmptyDocument)
{
    const ImportResult result = ImportText("#usda 1.0\n");
    ASSERT_NE(result.document, nullptr);
    EXPECT_TRUE(result.json.at("nodes").empty());
    EXPECT_THAT(result.progress, ElementsAre(Pair("Initilizing", 1), Pair("Finalizing", 99), Pair("Done", 100)));
}

TEST(ReadUSDFileProgress, WithoutACallbackTheSameDocumentIsMade)
{
    ScratchFolder scratch;
    const std::string path = scratch.Write("scene.usda", fourXforms);
    const ImportResult reported = ImportFile(path, scratch.Path().string(), true);
    const ImportResult silent = ImportFile(path, scratch.Path().string(), false);
    ASSERT_NE(silent.document, nullptr);
    EXPECT_TRUE(silent.progress.empty());
    EXPECT_EQ(silent.json, reported.json);
}

TEST(ReadUSDFileFailures, AFileTypeUSDDoesNotReadEndsAfterTheStart)
{
    ScratchFolder scratch;
    const ImportResult result = ImportFile(scratch.Write("notes.txt", "#usda 1.0\n"), scratch.Path().string());
    EXPECT_EQ(result.document, nullptr);
    EXPECT_EQ(result.handler->document, nullptr);
    EXPECT_THAT(result.progress, ElementsAre(Pair("Initilizing", 1), Pair("This file is not supported", -1)));
}

TEST(ReadUSDFileFailures, AMissingFileIsAnEmptyFile)
{
    ScratchFolder scratch;
    const ImportResult result = ImportFile((scratch.Path() / "missing.usda").string(), scratch.Path().string());
    EXPECT_EQ(result.document, nullptr);
    EXPECT_THAT(result.progress, ElementsAre(Pair("Initilizing", 1), Pair("Trying to read empty file", -1)));
}

TEST(ReadUSDFileFailures, UnreadableContentIsAnEmptyFile)
{
    ScratchFolder scratch;
    for (const char* content : {"", "#usda 1.0\ndef Xform \"A\" {", "PXR-USDC\x01\x02", "not a scene at all"}) {
        const ImportResult result = ImportFile(scratch.Write("broken.usd", content), scratch.Path().string());
        EXPECT_EQ(result.document, nullptr) << content;
        EXPECT_THAT(result.progress, ElementsAre(Pair("Initilizing", 1), Pair("Trying to read empty file", -1)))
            << content;
    }
}

// Where narrow paths are UTF-8 no copy is ever made: an earlier copy at the
// fixed name in the public folder is left as it is.
std::filesystem::path TemporaryCopy()
{
    return std::filesystem::u8path(GetPublicFolder().toStdString()) / "TempUSDZ.usdz";
}

TEST(ReadUSDFileTemporaryCopy, FilesWithNonAsciiNamesAreReadWhereTheyAre)
{
    ScratchFolder scratch;
    const std::string package = scratch.WritePackage("sc\xc3\xa8ne.usdz", {{"scene.usda", fourXforms}});
    const std::string layer = scratch.Write("sc\xc3\xa8ne.usda", fourXforms);
    std::filesystem::remove(TemporaryCopy());
    for (const std::string& path : {package, layer}) {
        const ImportResult result = ImportFile(path, scratch.Path().string());
        ASSERT_NE(result.document, nullptr) << path;
        EXPECT_THAT(NodeNames(result.json), ElementsAre("A", "B", "C")) << path;
        EXPECT_FALSE(std::filesystem::exists(TemporaryCopy()));
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::u8path(path)));
    }
}

TEST(ReadUSDFileTemporaryCopy, AnAsciiPathMakesNoCopy)
{
    const std::string copyText = "left alone";
    std::filesystem::create_directories(TemporaryCopy().parent_path());
    std::ofstream(TemporaryCopy(), std::ios::binary) << copyText;
    const ImportResult result = ImportText(fourXforms);
    ASSERT_NE(result.document, nullptr);
    EXPECT_TRUE(std::filesystem::exists(TemporaryCopy()));
    std::filesystem::remove(TemporaryCopy());
}

TEST(ReadUSDFilePackages, APackageIsUnpackedAndItsTexturesCopiedIntoTheFolder)
{
    ScratchFolder scratch;
    const std::string path = scratch.WritePackage("boxes.usdz", {{"scene.usda", R"(#usda 1.0
def Material "Wood" {
    token outputs:surface.connect = </Wood/Surface.outputs:surface>
    def Shader "Surface" {
        uniform token info:id = "UsdPreviewSurface"
        color3f inputs:diffuseColor.connect = </Wood/Image.outputs:rgb>
        token outputs:surface
    }
    def Shader "Image" {
        uniform token info:id = "UsdUVTexture"
        asset inputs:file = @textures/wood.png@
        float3 outputs:rgb
    }
}
def Mesh "Box" (prepend apiSchemas = ["MaterialBindingAPI"]) {
    rel material:binding = </Wood>
    int[] faceVertexCounts = [3]
    int[] faceVertexIndices = [0, 1, 2]
    point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
}
)"}, {"textures/wood.png", "not really a picture"}});
    const std::filesystem::path textures = scratch.Path() / "textures";
    const ImportResult result = ImportFile(path, textures.string());
    ASSERT_NE(result.document, nullptr);
    const std::string copied = (textures / "wood.png").string();
    EXPECT_EQ(NodeNamed(result.json, "Box").at("material").at("textures").at("Texture"), copied);
    std::ifstream stream(copied, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "not really a picture");
    // The unpacked package stays after the import.
    EXPECT_TRUE(std::filesystem::exists(result.handler->unpackFolder.toStdString() + "textures/wood.png"));
    std::filesystem::remove_all(result.handler->unpackFolder.toStdString());
}

TEST(ReadUSDFileState, TheTextureFolderEndsWithOneSeparatorAndTheUnpackFolderIsNamed)
{
    ScratchFolder scratch;
    const std::string path = scratch.Write("scene.usda", fourXforms);
    const ImportResult result = ImportFile(path, "/some/folder");
    EXPECT_EQ(result.handler->textureFolder, CTavrinString("/some/folder") + CTavrinString::SystemSeparator);
    EXPECT_EQ(result.handler->unpackFolder.LastCh(), CTavrinString::SystemSeparator);
    EXPECT_EQ(result.handler->primCount, 4);
    EXPECT_EQ(result.handler->visitedPrimCount, 4);
    EXPECT_EQ(result.handler->sequence, nullptr);
}

TEST(ReadUSDFileRootCorrection, AZUpStageInMetresIsLeftAsIs)
{
    const ImportResult result = ImportText(fourXforms);
    EXPECT_TRUE(result.handler->rootMatrix.IsIdentity());
}

TEST(ReadUSDFileRootCorrection, AYUpStageInCentimetresTurnsAQuarterAboutXAndScales)
{
    const ImportResult result = ImportText(R"(#usda 1.0
(
    upAxis = "Y"
    metersPerUnit = 0.01
)
def Xform "World" { double3 xformOp:translate = (1, 2, 3)
    uniform token[] xformOpOrder = ["xformOp:translate"] }
)");
    const CTavrinMatrix& root = result.handler->rootMatrix;
    // The quarter turn is 1.57079632675, a little short of pi/2: its cosine
    // is about 4.49e-12 rather than 6e-17.
    EXPECT_NEAR(root.M(1, 1), 0.01 * std::cos(1.57079632675), 1e-20);
    EXPECT_GT(root.M(1, 1), 4.4e-14);
    EXPECT_NEAR(root.M(1, 2), -0.01, 1e-15);
    EXPECT_NEAR(root.M(2, 1), 0.01, 1e-15);
    EXPECT_DOUBLE_EQ(root.M(0, 0), 0.01);
    // A point (1, 2, 3) cm up Y is (0.01, -0.03, 0.02) m up Z.
    const CTavrinJson world = NodeNamed(result.json, "World");
    EXPECT_NEAR(LocalM(world, 0, 3), 0.01, 1e-12);
    const double c = std::cos(1.57079632675), s = std::sin(1.57079632675);
    EXPECT_NEAR(LocalM(world, 1, 3), 0.01 * (2 * c - 3 * s), 1e-16);
    EXPECT_NEAR(LocalM(world, 2, 3), 0.01 * (2 * s + 3 * c), 1e-16);
}

TEST(ReadUSDFileRootCorrection, WithoutMetadataTheFallbacksAreYUpAndCentimetres)
{
    const ImportResult result = ImportText("#usda 1.0\ndef Xform \"A\" {}\n");
    const CTavrinMatrix& root = result.handler->rootMatrix;
    EXPECT_DOUBLE_EQ(root.M(0, 0), 0.01);
    EXPECT_NEAR(root.M(2, 1), 0.01, 1e-15);
    EXPECT_NEAR(root.M(1, 2), -0.01, 1e-15);
}

TEST(ReadUSDFileRootCorrection, AZUpStageInMillimetresOnlyScales)
{
    const ImportResult result = ImportText("#usda 1.0\n(\n upAxis = \"Z\"\n metersPerUnit = 0.001\n)\n");
    EXPECT_EQ(result.handler->rootMatrix, CTavrinMatrix::CreateScalling(0.001, 0.001, 0.001));
}

TEST(ReadUSDFileWalk, InactiveAndAbstractPrimsAreNeitherCountedNorConverted)
{
    const ImportResult result = ImportText(R"(#usda 1.0
def Xform "Kept" {}
def Xform "Off" (active = false) { def Xform "UnderOff" {} }
class Xform "Template" { def Xform "UnderTemplate" {} }
)");
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Kept"));
    EXPECT_EQ(result.handler->primCount, 1);
}

// A chair asset instanced twice: what the instances bring is converted
// below each of them as if authored there, its material bound through what
// the asset binds, while what the scene authors below an instance is not
// instanced, as OpenUSD leaves it out.
const char* const InstancedChairs = R"(#usda 1.0
(
    upAxis = "Z"
    metersPerUnit = 1
)
class Xform "Chair"
{
    def Mesh "Seat" (prepend apiSchemas = ["MaterialBindingAPI"])
    {
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        rel material:binding = </Chair/Wood>
    }
    def Material "Wood"
    {
        token outputs:surface.connect = </Chair/Wood/Surface.outputs:surface>
        def Shader "Surface"
        {
            uniform token info:id = "UsdPreviewSurface"
            color3f inputs:diffuseColor = (0.5, 0.25, 0)
            token outputs:surface
        }
    }
}
def Xform "Left" (instanceable = true
    prepend references = </Chair>)
{
    double3 xformOp:translate = (-2, 0, 0)
    uniform token[] xformOpOrder = ["xformOp:translate"]
    def Xform "LocalOnly" {}
}
def Xform "Right" (instanceable = true
    prepend references = </Chair>)
{
    double3 xformOp:translate = (2, 0, 0)
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)";

TEST(ReadUSDFileWalk, InstancedContentIsConvertedBelowEachInstance)
{
    const ImportResult result = ImportText(InstancedChairs);
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Left", "Seat", "Right", "Seat"));
    EXPECT_EQ(result.handler->primCount, 8);
    const auto& nodes = result.json.at("nodes");
    ASSERT_EQ(nodes.size(), 4u);
    EXPECT_EQ(nodes[1].at("parent"), nodes[0].at("id"));
    EXPECT_EQ(nodes[3].at("parent"), nodes[2].at("id"));
    for (const size_t seat : {1u, 3u}) {
        EXPECT_EQ(nodes[seat].at("material").at("set").at("Color"), CTavrinJson::parse("[0.5, 0.25, 0]"));
        EXPECT_EQ(nodes[seat].at("geometry"), nodes[1].at("geometry"));
    }
    EXPECT_EQ(nodes[0].at("localMatrix").at(3), -2.0);
    EXPECT_EQ(nodes[2].at("localMatrix").at(3), 2.0);
}

TEST(ReadUSDFileWalk, WithoutInstancesAnInstanceIsVisitedButNotEntered)
{
    ScratchFolder scratch;
    const std::string path = scratch.Write("chairs.usda", InstancedChairs);
    const ImportResult result = ImportFile(path, scratch.Path().string(), true,
                                           [](CTavrinUSDReaderHandler& handler) { handler.options.instances = false; });
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Left", "Right"));
    EXPECT_EQ(result.handler->primCount, 2);
}

} // namespace
