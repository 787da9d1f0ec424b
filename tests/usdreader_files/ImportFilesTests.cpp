#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <vector>

#include "../utilities/ScopedEnvironment.h"
#include "ScratchFolder.h"
#include "TestZip.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

using namespace Tavrin;

namespace {

// A plane bound to a preview surface whose colour and roughness come from
// two textures of the package.
const char* const TexturedPlane = R"(#usda 1.0
(
    upAxis = "Z"
    metersPerUnit = 1
)
def Mesh "Plane"
{
    point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
    int[] faceVertexCounts = [4]
    int[] faceVertexIndices = [0, 1, 2, 3]
    texCoord2f[] primvars:st = [(0, 0), (1, 0), (1, 1), (0, 1)] ( interpolation = "vertex" )
    rel material:binding = </Looks/Wood>
}
def Scope "Looks"
{
    def Material "Wood"
    {
        token outputs:surface.connect = </Looks/Wood/Surface.outputs:surface>
        def Shader "Surface"
        {
            uniform token info:id = "UsdPreviewSurface"
            color3f inputs:diffuseColor.connect = </Looks/Wood/Color.outputs:rgb>
            float inputs:roughness.connect = </Looks/Wood/Rough.outputs:r>
            token outputs:surface
        }
        def Shader "Color"
        {
            uniform token info:id = "UsdUVTexture"
            asset inputs:file = @textures/wood.png@
            float3 outputs:rgb
        }
        def Shader "Rough"
        {
            uniform token info:id = "UsdUVTexture"
            asset inputs:file = @maps/rough.png@
            float outputs:r
        }
    }
}
)";

// The shared public folder and the temporary folder point into the scratch
// folder, so that the import's own files can be checked and are cleaned up.
struct ImportFiles : ::testing::Test {
    ScopedEnvironment environment;
    ScratchFolder scratch;
    CTavrinUSDReaderHandler handler;
    std::vector<std::pair<std::string, int>> progress;
    std::string publicCopy;
    // Whether the temporary copy existed while the prims were read.
    bool copyExistedWhileReading = false;

    void SetUp() override
    {
        ASSERT_FALSE(scratch.path.empty());
        std::filesystem::create_directories(scratch / "home/Public");
        environment.Set("HOME", scratch / "home");
        environment.Set("XDG_CONFIG_HOME", scratch / "config");
        environment.Set("TAVRIN_TEMP_DIR", scratch / "temp/");
        publicCopy = scratch / "home/Public/TempUSDZ.usdz";
        handler.SetProgressCallback([this](CTavrinString message, int value) {
            progress.emplace_back(message.toStdString(), value);
            if (message == CTavrinString("Reading Geometries"))
                copyExistedWhileReading = copyExistedWhileReading || std::filesystem::exists(publicCopy);
        });
    }
    std::unique_ptr<CTavrinDocument> Import(const std::string& path, const std::string& folder)
    {
        return std::unique_ptr<CTavrinDocument>(handler.ReadUSDFile(Text(path), Text(folder)));
    }
    void WriteTexturedPackage(const std::string& path)
    {
        ASSERT_TRUE(WriteTestZip(path, {{"scene.usda", TexturedPlane, false},
                                        {"textures/wood.png", "wood image", false},
                                        {"maps/rough.png", NoisyBytes(30000), false}}));
    }
};

// Slot name to texture path, over every material of the document's JSON.
std::map<std::string, std::string> TextureSlots(const CTavrinDocument& document)
{
    std::map<std::string, std::string> slots;
    const CTavrinJson json = DocumentToJson(document, {});
    for (const auto& node : json["nodes"]) {
        if (!node.contains("material") || node["material"].is_null())
            continue;
        for (const auto& [slot, path] : node["material"]["textures"].items())
            slots[slot] = path.get<std::string>();
    }
    return slots;
}

} // namespace

TEST_F(ImportFiles, NonAsciiPackageIsReadThroughTheTemporaryCopyWhichIsRemovedAtTheEnd)
{
    const std::string package = scratch / "mod\xC3\xA8les/plan \xE6\x9C\xA8.usdz";
    std::filesystem::create_directories(scratch / "mod\xC3\xA8les");
    WriteTexturedPackage(package);
    const auto document = Import(package, scratch / "out");
    ASSERT_NE(document, nullptr);
    EXPECT_TRUE(copyExistedWhileReading);
    EXPECT_FALSE(std::filesystem::exists(publicCopy));
    EXPECT_EQ(progress.back(), std::make_pair(std::string("Done"), 100));
    // The package itself, not the copy, is what gets unpacked.
    EXPECT_EQ(ReadFile(handler.unpackFolder.toStdString() + "textures/wood.png"), "wood image");
}

TEST_F(ImportFiles, AsciiPathMakesNoTemporaryCopy)
{
    WriteTexturedPackage(scratch / "plane.usdz");
    const auto document = Import(scratch / "plane.usdz", scratch / "out");
    ASSERT_NE(document, nullptr);
    EXPECT_FALSE(copyExistedWhileReading);
    EXPECT_FALSE(std::filesystem::exists(publicCopy));
}

// A text layer under the copy's .usdz name does not open; the copy goes all
// the same.
TEST_F(ImportFiles, NonAsciiLayerFailsToOpenAsTheCopyAndTheCopyIsRemoved)
{
    const std::string layer = scratch / "\xC3\xA9t\xC3\xA9.usda";
    WriteFile(layer, TexturedPlane);
    EXPECT_EQ(Import(layer, scratch / "out"), nullptr);
    EXPECT_EQ(progress.back(), std::make_pair(std::string("Trying to read empty file"), -1));
    EXPECT_FALSE(std::filesystem::exists(publicCopy));
}

TEST_F(ImportFiles, PackageTexturesAreCopiedIntoTheFolderAndReferredTo)
{
    WriteTexturedPackage(scratch / "plane.usdz");
    const auto document = Import(scratch / "plane.usdz", scratch / "out");
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(TextureSlots(*document), (std::map<std::string, std::string>{
                                           {"RoughnessTexture", scratch / "out/rough.png"},
                                           {"Texture", scratch / "out/wood.png"}}));
    EXPECT_EQ(ReadFile(scratch / "out/wood.png"), "wood image");
    EXPECT_EQ(ReadFile(scratch / "out/rough.png"), NoisyBytes(30000));
}

TEST_F(ImportFiles, PlainLayerTexturesAreReferredToButNotFound)
{
    WriteFile(scratch / "plane.usda", TexturedPlane);
    WriteFile(scratch / "textures/wood.png", "beside the layer");
    const auto document = Import(scratch / "plane.usda", scratch / "out");
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(TextureSlots(*document)["Texture"], scratch / "out/wood.png");
    EXPECT_FALSE(std::filesystem::exists(scratch / "out/wood.png"));
}
