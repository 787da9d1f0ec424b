// Where connections of inputs and outputs lead: sources that are outputs or
// inputs, prims that are not shading prims, missing targets, several
// targets, and the raw connection paths.

#include "shadeTestUtils.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/material.h"
#include "usdcore/usdShade/shader.h"

#include <gmock/gmock.h>

using namespace shadetest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def Material "Mat"
{
    token outputs:surface.connect = </Mat/Surface.outputs:surface>
    token outputs:displacement.connect = [</Mat/Surface.outputs:displacement>, </Mat/Other.outputs:surface>]
    token outputs:volume.connect = </Mat/Nowhere.outputs:volume>
    float inputs:globalRoughness = 0.3

    def Shader "Surface"
    {
        color3f inputs:diffuseColor.connect = </Mat/Texture.outputs:rgb>
        float inputs:roughness.connect = </Mat.inputs:globalRoughness>
        float inputs:metallic.connect = </Mat/Missing.outputs:r>
        float inputs:opacity.connect = </Mat/Texture.outputs:absent>
        float inputs:occlusion.connect = </Mat/Texture>
        float inputs:clearcoat.connect = </Mat/Plain.outputs:value>
        float inputs:ior.connect = [</Mat/Texture.outputs:r>, </Mat/Texture.outputs:g>]
        float inputs:specular.connect = </Mat/Texture.plainAttribute>
        float inputs:unconnected = 1
        token outputs:surface
        token outputs:displacement
    }

    def Shader "Texture"
    {
        color3f outputs:rgb
        float outputs:r
        float outputs:g
        float plainAttribute
    }

    def Shader "Other"
    {
        token outputs:surface
    }

    def Xform "Plain"
    {
        float outputs:value
    }
}
)";

struct Source {
    bool connected = false;
    UsdShadeConnectableAPI source;
    TfToken name;
    UsdShadeAttributeType type = UsdShadeAttributeType::Invalid;
};

class ShadeConnections : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stage = StageFromText(kScene);
        ASSERT_TRUE(stage);
        shader = UsdShadeShader::Get(stage, SdfPath("/Mat/Surface"));
        material = UsdShadeMaterial::Get(stage, SdfPath("/Mat"));
        ASSERT_TRUE(shader);
        ASSERT_TRUE(material);
    }

    Source SourceOf(const std::string& inputName) const
    {
        Source result;
        result.name = TfToken("stale");
        result.connected =
            shader.GetInput(TfToken(inputName)).GetConnectedSource(&result.source, &result.name, &result.type);
        return result;
    }

    UsdStageRefPtr stage;
    UsdShadeShader shader;
    UsdShadeMaterial material;
};

} // namespace

TEST_F(ShadeConnections, ToAShaderOutput)
{
    const Source source = SourceOf("diffuseColor");
    EXPECT_TRUE(source.connected);
    EXPECT_TRUE(source.source);
    EXPECT_EQ(source.source.GetPath(), SdfPath("/Mat/Texture"));
    EXPECT_TRUE(source.source.IsShader());
    EXPECT_EQ(source.name, TfToken("rgb"));
    EXPECT_EQ(source.type, UsdShadeAttributeType::Output);
    EXPECT_TRUE(UsdShadeShader(source.source));
}

TEST_F(ShadeConnections, ToAnInterfaceInputOfTheMaterial)
{
    const Source source = SourceOf("roughness");
    EXPECT_TRUE(source.connected);
    EXPECT_EQ(source.source.GetPath(), SdfPath("/Mat"));
    EXPECT_TRUE(source.source.IsNodeGraph());
    EXPECT_FALSE(source.source.IsShader());
    EXPECT_EQ(source.name, TfToken("globalRoughness"));
    EXPECT_EQ(source.type, UsdShadeAttributeType::Input);
}

TEST_F(ShadeConnections, ToAnAttributeOfAPrimThatIsNotAShadingPrim)
{
    // The attribute exists, so the connection holds; the view of its prim is
    // not a connectable one, but still names the prim.
    const Source source = SourceOf("clearcoat");
    EXPECT_TRUE(source.connected);
    EXPECT_FALSE(source.source);
    EXPECT_EQ(source.source.GetPrim().GetPath(), SdfPath("/Mat/Plain"));
    EXPECT_EQ(source.name, TfToken("value"));
    EXPECT_EQ(source.type, UsdShadeAttributeType::Output);
}

TEST_F(ShadeConnections, ToAnAttributeOutsideBothNamespaces)
{
    const Source source = SourceOf("specular");
    EXPECT_TRUE(source.connected);
    EXPECT_EQ(source.name, TfToken("plainAttribute"));
    EXPECT_EQ(source.type, UsdShadeAttributeType::Invalid);
}

TEST_F(ShadeConnections, ToAMissingPrimIsNotConnected)
{
    const Source source = SourceOf("metallic");
    EXPECT_FALSE(source.connected);
    EXPECT_FALSE(source.source);
    EXPECT_FALSE(source.source.GetPrim());
}

TEST_F(ShadeConnections, ToAMissingAttributeOfAnExistingPrimIsNotConnected)
{
    const Source source = SourceOf("opacity");
    EXPECT_FALSE(source.connected);
    EXPECT_EQ(source.source.GetPath(), SdfPath("/Mat/Texture"));
}

TEST_F(ShadeConnections, ToAPrimRatherThanAnAttributeIsNotConnected)
{
    const Source source = SourceOf("occlusion");
    EXPECT_FALSE(source.connected);
    EXPECT_EQ(source.source.GetPath(), SdfPath("/Mat/Texture"));
}

TEST_F(ShadeConnections, SeveralTargetsAreNotOneSource)
{
    const Source source = SourceOf("ior");
    EXPECT_FALSE(source.connected);
    EXPECT_FALSE(source.source);
}

TEST_F(ShadeConnections, UnconnectedAndMissingInputs)
{
    EXPECT_FALSE(SourceOf("unconnected").connected);
    EXPECT_FALSE(SourceOf("notThere").connected);
    EXPECT_FALSE(shader.GetInput(TfToken("unconnected")).HasConnectedSource());
}

TEST_F(ShadeConnections, HasConnectedSourceAgreesWithGetConnectedSource)
{
    for (const char* name : {"diffuseColor", "roughness", "clearcoat", "specular", "metallic", "opacity",
                             "occlusion", "ior", "unconnected"}) {
        EXPECT_EQ(shader.GetInput(TfToken(name)).HasConnectedSource(), SourceOf(name).connected) << name;
    }
}

TEST_F(ShadeConnections, OutputsConnectLikeInputs)
{
    UsdShadeConnectableAPI source;
    TfToken name;
    UsdShadeAttributeType type;
    EXPECT_TRUE(material.GetSurfaceOutput().GetConnectedSource(&source, &name, &type));
    EXPECT_EQ(source.GetPath(), SdfPath("/Mat/Surface"));
    EXPECT_EQ(name, TfToken("surface"));
    EXPECT_EQ(type, UsdShadeAttributeType::Output);
    EXPECT_TRUE(material.GetSurfaceOutput().HasConnectedSource());
    EXPECT_FALSE(material.GetDisplacementOutput().HasConnectedSource());
}

TEST_F(ShadeConnections, NullOutputParametersAreACodingError)
{
    TfDiagnosticCapture capture;
    TfToken name;
    UsdShadeAttributeType type;
    EXPECT_FALSE(UsdShadeConnectableAPI::GetConnectedSource(shader.GetInput(TfToken("diffuseColor")), nullptr,
                                                            &name, &type));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST_F(ShadeConnections, RawPathsAreTheAuthoredTargetsInOrder)
{
    SdfPathVector paths;
    EXPECT_TRUE(material.GetSurfaceOutput().GetRawConnectedSourcePaths(&paths));
    EXPECT_THAT(paths, ElementsAre(SdfPath("/Mat/Surface.outputs:surface")));

    EXPECT_TRUE(material.GetDisplacementOutput().GetRawConnectedSourcePaths(&paths));
    EXPECT_THAT(paths,
                ElementsAre(SdfPath("/Mat/Surface.outputs:displacement"), SdfPath("/Mat/Other.outputs:surface")));
}

TEST_F(ShadeConnections, RawPathsIncludeTargetsThatAreNotThere)
{
    SdfPathVector paths;
    EXPECT_TRUE(material.GetVolumeOutput().GetRawConnectedSourcePaths(&paths));
    EXPECT_THAT(paths, ElementsAre(SdfPath("/Mat/Nowhere.outputs:volume")));
    EXPECT_TRUE(shader.GetInput(TfToken("metallic")).GetRawConnectedSourcePaths(&paths));
    EXPECT_THAT(paths, ElementsAre(SdfPath("/Mat/Missing.outputs:r")));
}

TEST_F(ShadeConnections, RawPathsOfAnUnconnectedAttributeAreEmpty)
{
    SdfPathVector paths{SdfPath("/Stale")};
    TfDiagnosticCapture capture;
    EXPECT_TRUE(shader.GetOutput(TfToken("surface")).GetRawConnectedSourcePaths(&paths));
    EXPECT_TRUE(paths.empty());
    EXPECT_TRUE(capture.GetDiagnostics().empty());
}

TEST_F(ShadeConnections, RawPathsOfAMissingOutputFail)
{
    SdfPathVector paths{SdfPath("/Stale")};
    EXPECT_FALSE(shader.GetOutput(TfToken("absent")).GetRawConnectedSourcePaths(&paths));
    EXPECT_TRUE(paths.empty());
}

TEST_F(ShadeConnections, OutputSourceFollowsNestedNodeGraphs)
{
    const UsdStageRefPtr nested = StageFromText(R"(
def Material "Mat"
{
    token outputs:surface.connect = </Mat/Graph.outputs:out>
    def NodeGraph "Graph"
    {
        token outputs:out.connect = </Mat/Graph/Inner.outputs:result>
        def NodeGraph "Inner"
        {
            token outputs:result.connect = </Mat/Graph/Inner/Preview.outputs:surface>
            def Shader "Preview"
            {
                token outputs:surface
            }
        }
    }
}
def Material "Loop"
{
    token outputs:surface.connect = </Loop/Graph.outputs:a>
    def NodeGraph "Graph"
    {
        token outputs:a.connect = </Loop/Graph.outputs:b>
        token outputs:b.connect = </Loop/Graph.outputs:a>
    }
}
)");
    TfToken name;
    UsdShadeAttributeType type = UsdShadeAttributeType::Invalid;
    const UsdShadeShader shader =
        UsdShadeMaterial::Get(nested, SdfPath("/Mat")).ComputeSurfaceSource(TfToken(), &name, &type);
    EXPECT_EQ(shader.GetPath(), SdfPath("/Mat/Graph/Inner/Preview"));
    EXPECT_EQ(name, TfToken("surface"));
    EXPECT_EQ(type, UsdShadeAttributeType::Output);

    EXPECT_FALSE(UsdShadeMaterial::Get(nested, SdfPath("/Loop")).ComputeSurfaceSource());
}
