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

PXR_NAMESPACE_USING_DIRECTIVE
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

// Narrow paths are UTF-8 here: a file is read where it is, whatever its name,
// and no copy is made.
TEST_F(ImportFiles, NonAsciiPackageIsReadInPlaceAndUnpacked)
{
    const std::string package = scratch / "mod\xC3\xA8les/plan \xE6\x9C\xA8.usdz";
    std::filesystem::create_directories(scratch / "mod\xC3\xA8les");
    WriteTexturedPackage(package);
    const auto document = Import(package, scratch / "out");
    ASSERT_NE(document, nullptr);
    EXPECT_FALSE(copyExistedWhileReading);
    EXPECT_FALSE(std::filesystem::exists(publicCopy));
    EXPECT_EQ(progress.back(), std::make_pair(std::string("Done"), 100));
    EXPECT_EQ(ReadFile(handler.unpackFolder.toStdString() + "textures/wood.png"), "wood image");
    EXPECT_EQ(ReadFile(scratch / "out/wood.png"), "wood image");
}

// The twin of a scene under names that are not ASCII, textures beside it
// included, gives the same document apart from where it came from.
TEST_F(ImportFiles, NonAsciiTwinOfALayerGivesTheSameDocument)
{
    const auto importTwin = [&](const std::string& folder, const std::string& name) {
        const std::string root = scratch / folder;
        WriteFile(root + "/" + name, TexturedPlane);
        WriteFile(root + "/textures/wood.png", "wood of " + folder);
        WriteFile(root + "/maps/rough.png", "rough of " + folder);
        CTavrinUSDReaderHandler twinHandler;
        const std::unique_ptr<CTavrinDocument> document(
            twinHandler.ReadUSDFile(Text(root + "/" + name), Text(root + "/out")));
        EXPECT_NE(document, nullptr) << name;
        if (!document)
            return CTavrinJson();
        CTavrinJson json = DocumentToJson(*document, {});
        json.erase("source");
        // Each twin's textures are copied into its own folder.
        for (auto& node : json["nodes"])
            if (node.contains("material") && !node["material"].is_null())
                for (auto& [slot, path] : node["material"]["textures"].items())
                    path = std::filesystem::u8path(path.get<std::string>()).filename().string();
        return json;
    };
    const CTavrinJson ascii = importTwin("scene", "materials.usda");
    const CTavrinJson accented = importTwin("sc\xC3\xA8ne", "mat\xC3\xA9riaux.usda");
    EXPECT_EQ(accented, ascii);
    EXPECT_EQ(ascii["nodes"].size(), 1u);
    EXPECT_EQ(ReadFile(scratch / "sc\xC3\xA8ne/out/wood.png"), "wood of sc\xC3\xA8ne");
    EXPECT_EQ(ReadFile(scratch / "sc\xC3\xA8ne/out/rough.png"), "rough of sc\xC3\xA8ne");
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

// Nothing is unpacked for a plain layer: its textures are where it says,
// relative to itself. The one that is not there leaves its slot empty, with
// one warning.
TEST_F(ImportFiles, PlainLayerTexturesBesideItAreCopiedAndAMissingOneIsReported)
{
    WriteFile(scratch / "plane.usda", TexturedPlane);
    WriteFile(scratch / "textures/wood.png", "beside the layer");
    TfDiagnosticCapture diagnostics;
    const auto document = Import(scratch / "plane.usda", scratch / "out");
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(TextureSlots(*document), (std::map<std::string, std::string>{{"Texture", scratch / "out/wood.png"}}));
    EXPECT_EQ(ReadFile(scratch / "out/wood.png"), "beside the layer");
    ASSERT_EQ(diagnostics.GetDiagnostics().size(), 1u);
    EXPECT_TRUE(diagnostics.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "'maps/rough.png' of </Looks/Wood/Rough>"));
    EXPECT_EQ(scratch.Files(), (std::set<std::string>{"plane.usda", "textures/wood.png", "out/wood.png"}));
}
