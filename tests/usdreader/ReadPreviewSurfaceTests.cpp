// The preview surface's inputs to the host material: every row of values and
// textures, what is not read, and the UV primvar name.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/usdreader/MaterialSupport.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using Values = std::map<std::string, std::vector<double>>;

namespace {

struct ValueRow {
    const char* inputLine;
    const char* setter;
    std::vector<double> expected;
};

// Floats widened to double, as the host receives them.
double F(float value)
{
    return value;
}

const ValueRow valueRows[] = {
    {"color3f inputs:diffuseColor = (0.8, 0.1, 0.1)", "Color", {F(0.8f), F(0.1f), F(0.1f)}},
    {"float inputs:opacity = 0.25", "Alpha", {0.25}},
    {"float inputs:displacement = 0.3", "DisplacementAmount", {F(0.3f)}},
    {"float inputs:displacement = -0.5", "DisplacementAmount", {0.0}},
    {"float inputs:roughness = 0.4", "Roughness", {F(0.4f)}},
    {"float inputs:metallic = 0.9", "Metalness", {F(0.9f)}},
    {"color3f inputs:emissiveColor = (1, 0.5, 0.25)", "Emission", {1.0, 0.5, 0.25}},
    {"color3f inputs:specularColor = (0.2, 0.3, 0.4)", "Specular", {F(0.2f), F(0.3f), F(0.4f)}},
    {"float inputs:occlusion = 0.7", "OcclusionStrength", {F(0.7f)}},
    {"float inputs:clearcoat = 0.6", "CoatThickness", {F(0.6f)}},
    {"float inputs:clearcoatRoughness = 0.15", "Roughness", {F(0.15f)}},
    {"float inputs:ior = 1.33", "Eta", {F(1.33f)}},
};

TEST(ReadPreviewSurfaceValues, EachRecognisedInputSetsExactlyItsHostValue)
{
    for (const ValueRow& row : valueRows) {
        const auto scene = OpenScene(PaintScene(row.inputLine));
        const BindingResult binding = ReadBinding(scene->handler, "/Box");
        EXPECT_TRUE(binding.found) << row.inputLine;
        EXPECT_EQ(AssignedValues(*binding.material), (Values{{row.setter, row.expected}})) << row.inputLine;
        EXPECT_THAT(FilledTextures(*binding.material), IsEmpty()) << row.inputLine;
    }
}

TEST(ReadPreviewSurfaceValues, InputsWithoutADefaultValueOrOfAnotherTypeSetNothing)
{
    const auto scene = OpenScene(PaintScene(R"(
        normal3f inputs:normal = (0, 0, 1)
        float inputs:roughness.timeSamples = { 0: 0.2, 10: 0.8 }
        float inputs:metallic.connect = </Paint/Missing.outputs:r>
        float inputs:diffuseColor = 0.5
        color3f inputs:opacity = (1, 1, 1)
        double inputs:ior = 1.5
        float inputs:unknownInput = 3
        float notAnInput = 2
)"));
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_TRUE(binding.found);
    EXPECT_THAT(AssignedValues(*binding.material), IsEmpty());
    EXPECT_THAT(FilledTextures(*binding.material), IsEmpty());
}

TEST(ReadPreviewSurfaceValues, RoughnessListedAfterClearcoatRoughnessWins)
{
    const auto scene = OpenScene(PaintScene(R"(
        float inputs:roughness = 0.4
        float inputs:clearcoatRoughness = 0.15
)"));
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_EQ(AssignedValues(*binding.material), (Values{{"Roughness", {F(0.4f)}}}));
}

TEST(ReadPreviewSurfaceValues, TwoSurfaceShadersAreReadInConnectionOrder)
{
    const auto scene = OpenScene(R"(#usda 1.0
def Material "Paint" {
    token outputs:surface.connect = [</Paint/First.outputs:surface>, </Paint/Graph.outputs:surface>, </Paint/Second.outputs:surface>]
    def Shader "First" {
        color3f inputs:diffuseColor = (1, 0, 0)
        float inputs:opacity = 0.5
    }
    def NodeGraph "Graph" {
        color3f inputs:diffuseColor = (0, 1, 1)
        token outputs:surface
    }
    def Shader "Second" {
        color3f inputs:diffuseColor = (0, 0, 1)
    }
}
def Mesh "Box" { rel material:binding = </Paint> }
)");
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_EQ(AssignedValues(*binding.material), (Values{{"Alpha", {0.5}}, {"Color", {0, 0, 1}}}));
}

TEST(ReadPreviewSurfaceValues, AMaterialWithoutAConnectedSurfaceChangesNothing)
{
    const auto scene = OpenScene(R"(#usda 1.0
def Material "Bare" {
    def Shader "Surface" { color3f inputs:diffuseColor = (1, 0, 0) }
}
def Material "Unconnected" {
    token outputs:surface
    def Shader "Surface" { color3f inputs:diffuseColor = (1, 0, 0) }
}
def Mesh "Box" { rel material:binding = [</Bare>, </Unconnected>] }
)");
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_TRUE(binding.found);
    EXPECT_EQ(binding.name, CTavrinString("Unconnected"));
    EXPECT_THAT(AssignedValues(*binding.material), IsEmpty());
}

// Every input connected to a texture reader of its own.
std::string TextureReaders()
{
    std::string readers;
    for (const char* name : {"diffuseColor", "normal", "opacity", "displacement", "roughness", "metallic",
                             "emissiveColor", "specularColor", "occlusion", "clearcoat", "clearcoatRoughness", "ior"}) {
        readers += std::string("    def Shader \"") + name + "Image\" {\n        asset inputs:file = @maps/" + name +
                   ".png@\n        float outputs:r\n    }\n";
    }
    return readers;
}

std::string ConnectedInputs()
{
    std::string inputs;
    for (const char* name : {"diffuseColor", "normal", "opacity", "displacement", "roughness", "metallic",
                             "emissiveColor", "specularColor", "occlusion", "clearcoat", "clearcoatRoughness", "ior"}) {
        inputs += std::string("        float inputs:") + name + ".connect = </Paint/" + name + "Image.outputs:r>\n";
    }
    return inputs;
}

TEST(ReadPreviewSurfaceTextures, EachConnectedInputFillsItsSlotWithTheCopiedFile)
{
    ScratchFolder scratch;
    const auto scene = OpenScene(scratch, PaintScene(ConnectedInputs(), TextureReaders()));
    std::filesystem::create_directories(scratch.Path() / "unpacked/maps");
    for (const char* name : {"diffuseColor", "normal", "opacity", "displacement", "roughness", "metallic",
                             "emissiveColor", "specularColor", "occlusion", "clearcoat", "clearcoatRoughness", "ior"})
        scratch.Write(std::string("unpacked/maps/") + name + ".png", name);
    const std::string folder = (scratch.Path() / "textures").string() + "/";
    scene->handler.textureFolder = CTavrinString(folder);
    scene->handler.unpackFolder = CTavrinString((scratch.Path() / "unpacked").string() + "/");
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_THAT(FilledTextures(*binding.material),
                ElementsAre(Pair("DisplacementTexture", folder + "displacement.png"),
                            Pair("EmissionTexture", folder + "emissiveColor.png"),
                            Pair("EtaMap", folder + "ior.png"),
                            Pair("MetalnessTexture", folder + "metallic.png"),
                            Pair("NormalTexture", folder + "normal.png"),
                            Pair("OcclusionMap", folder + "occlusion.png"),
                            Pair("OpacityTexture", folder + "opacity.png"),
                            Pair("RoughnessMap", folder + "clearcoatRoughness.png"),
                            Pair("RoughnessTexture", folder + "roughness.png"),
                            Pair("SpecularMap", folder + "specularColor.png"),
                            Pair("Texture", folder + "diffuseColor.png"),
                            Pair("ThicknessMap", folder + "clearcoat.png")));
    // Connections carry no values.
    EXPECT_THAT(AssignedValues(*binding.material), IsEmpty());
}

TEST(ReadPreviewSurfaceTextures, AConnectedInputWithAValueGetsBoth)
{
    ScratchFolder scratch;
    const auto scene = OpenScene(scratch, PaintScene(R"(
        color3f inputs:diffuseColor = (0.5, 0.25, 1)
        color3f inputs:diffuseColor.connect = </Paint/Image.outputs:rgb>
)", R"(
    def Shader "Image" { asset inputs:file = @wood.png@
        float3 outputs:rgb }
)"));
    scratch.Write("wood.png", "beside the scene");
    const std::string folder = (scratch.Path() / "textures").string() + "/";
    scene->handler.textureFolder = CTavrinString(folder);
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_EQ(AssignedValues(*binding.material), (Values{{"Color", {0.5, 0.25, 1}}}));
    EXPECT_THAT(FilledTextures(*binding.material), ElementsAre(Pair("Texture", folder + "wood.png")));
}

TEST(ReadPreviewSurfaceTextures, AReaderWithoutAFileGivesNoTexture)
{
    const auto scene = OpenScene(PaintScene(R"(
        color3f inputs:diffuseColor.connect = </Paint/Reader.outputs:result>
)", R"(
    def Shader "Reader" { token inputs:varname = "st"
        float2 outputs:result }
)"));
    const BindingResult binding = ReadBinding(scene->handler, "/Box");
    EXPECT_THAT(FilledTextures(*binding.material), IsEmpty());
}

const char* const primvarReader = R"(
    def Shader "Image" {
        asset inputs:file = @wood.png@
        float2 inputs:st.connect = </Paint/Coordinates.outputs:result>
        float3 outputs:rgb
    }
    def Shader "Coordinates" {
        token inputs:varname = "uvMap"
        float2 outputs:result
    }
)";

TEST(ReadPreviewSurfacePrimvarName, ATexturesPrimvarReaderNamesTheUVPrimvarEvenOnAnUnknownInput)
{
    const auto scene = OpenScene(PaintScene(R"(
        color3f inputs:somethingElse.connect = </Paint/Image.outputs:rgb>
)", primvarReader));
    ReadBinding(scene->handler, "/Box");
    EXPECT_EQ(scene->handler.stPrimvarName, TfToken("uvMap"));
}

TEST(ReadPreviewSurfacePrimvarName, TheMaterialsFrameInputComesAfterTheTextures)
{
    const std::string frameInput = "    token inputs:frame:stPrimvarName = \"st1\"\n";
    {
        const auto scene = OpenScene(PaintScene("", frameInput));
        ReadBinding(scene->handler, "/Box");
        EXPECT_EQ(scene->handler.stPrimvarName, TfToken("st1"));
    }
    {
        const auto scene = OpenScene(PaintScene(R"(
        color3f inputs:diffuseColor.connect = </Paint/Image.outputs:rgb>
)", frameInput + primvarReader));
        ReadBinding(scene->handler, "/Box");
        EXPECT_EQ(scene->handler.stPrimvarName, TfToken("uvMap"));
    }
    {
        // A name already set for this mesh stays.
        const auto scene = OpenScene(PaintScene("", frameInput));
        scene->handler.stPrimvarName = TfToken("earlier");
        ReadBinding(scene->handler, "/Box");
        EXPECT_EQ(scene->handler.stPrimvarName, TfToken("earlier"));
    }
}

TEST(ReadPreviewSurfacePrimvarName, AFrameInputOfAnotherTypeIsIgnored)
{
    const auto scene = OpenScene(PaintScene("", "    string inputs:frame:stPrimvarName = \"st1\"\n"));
    ReadBinding(scene->handler, "/Box");
    EXPECT_TRUE(scene->handler.stPrimvarName.IsEmpty());
}

} // namespace
