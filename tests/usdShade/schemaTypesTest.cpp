// Which prims the shading schemas accept: their own type and types derived
// from it, nothing else.

#include "shadeTestUtils.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/material.h"
#include "usdcore/usdShade/nodeGraph.h"
#include "usdcore/usdShade/shader.h"
#include "usdcore/usdShade/tokens.h"

using namespace shadetest;

namespace {

const char* const kScene = R"(
def Material "Mat"
{
    token outputs:surface.connect = </Mat/Surface.outputs:surface>
    token outputs:mdl:surface.connect = </Mat/Mdl.outputs:out>
    def Shader "Surface"
    {
        token outputs:surface
    }
    def Shader "Mdl"
    {
        token outputs:out
    }
}
def NodeGraph "Graph"
{
}
def Xform "Xf"
{
}
over "Untyped"
{
}
def Scope "Scope"
{
}
)";

class ShadeSchemaTypes : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stage = StageFromText(kScene);
        ASSERT_TRUE(stage);
    }
    UsdStageRefPtr stage;
};

} // namespace

TEST_F(ShadeSchemaTypes, MaterialAcceptsMaterialsOnly)
{
    EXPECT_TRUE(UsdShadeMaterial::Get(stage, SdfPath("/Mat")));
    EXPECT_FALSE(UsdShadeMaterial::Get(stage, SdfPath("/Graph")));
    EXPECT_FALSE(UsdShadeMaterial::Get(stage, SdfPath("/Mat/Surface")));
    EXPECT_FALSE(UsdShadeMaterial::Get(stage, SdfPath("/Xf")));
    EXPECT_FALSE(UsdShadeMaterial::Get(stage, SdfPath("/Untyped")));
    EXPECT_FALSE(UsdShadeMaterial::Get(stage, SdfPath("/Missing")));
}

TEST_F(ShadeSchemaTypes, NodeGraphAcceptsMaterialsWhichDeriveFromIt)
{
    EXPECT_TRUE(UsdShadeNodeGraph::Get(stage, SdfPath("/Graph")));
    EXPECT_TRUE(UsdShadeNodeGraph::Get(stage, SdfPath("/Mat")));
    EXPECT_FALSE(UsdShadeNodeGraph::Get(stage, SdfPath("/Mat/Surface")));
    EXPECT_FALSE(UsdShadeNodeGraph::Get(stage, SdfPath("/Scope")));
}

TEST_F(ShadeSchemaTypes, ShaderAcceptsShadersOnly)
{
    EXPECT_TRUE(UsdShadeShader::Get(stage, SdfPath("/Mat/Surface")));
    EXPECT_FALSE(UsdShadeShader::Get(stage, SdfPath("/Mat")));
    EXPECT_FALSE(UsdShadeShader::Get(stage, SdfPath("/Xf")));
    EXPECT_FALSE(UsdShadeShader(UsdPrim()));
}

TEST_F(ShadeSchemaTypes, ConnectableAcceptsShadersAndNodeGraphs)
{
    EXPECT_TRUE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Mat")));
    EXPECT_TRUE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Graph")));
    EXPECT_TRUE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Mat/Surface")));
    EXPECT_FALSE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Xf")));
    EXPECT_FALSE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Untyped")));
    EXPECT_TRUE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Mat")).IsContainer());
    EXPECT_FALSE(UsdShadeConnectableAPI::Get(stage, SdfPath("/Mat/Surface")).IsContainer());
}

TEST_F(ShadeSchemaTypes, AMaterialIsANodeGraph)
{
    const UsdShadeMaterial material = UsdShadeMaterial::Get(stage, SdfPath("/Mat"));
    const UsdShadeNodeGraph& graph = material;
    EXPECT_TRUE(graph.GetOutput(TfToken("surface")));
    EXPECT_EQ(material.GetPath(), SdfPath("/Mat"));
    EXPECT_EQ(material.GetPrim().GetTypeName(), UsdShadeTokens->Material);
}

TEST_F(ShadeSchemaTypes, NullStageIsACodingError)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(UsdShadeMaterial::Get(UsdStagePtr(), SdfPath("/Mat")));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST_F(ShadeSchemaTypes, SurfaceOutputPerRenderContext)
{
    const UsdShadeMaterial material = UsdShadeMaterial::Get(stage, SdfPath("/Mat"));
    EXPECT_EQ(material.GetSurfaceOutput().GetFullName(), TfToken("outputs:surface"));
    EXPECT_EQ(material.GetSurfaceOutput(TfToken("mdl")).GetFullName(), TfToken("outputs:mdl:surface"));
    EXPECT_FALSE(material.GetSurfaceOutput(TfToken("glslfx")));
    EXPECT_FALSE(material.GetDisplacementOutput());

    EXPECT_EQ(material.ComputeSurfaceSource().GetPath(), SdfPath("/Mat/Surface"));
    EXPECT_EQ(material.ComputeSurfaceSource(TfToken("mdl")).GetPath(), SdfPath("/Mat/Mdl"));
    // A context without its own output falls back to the universal one.
    EXPECT_EQ(material.ComputeSurfaceSource(TfToken("glslfx")).GetPath(), SdfPath("/Mat/Surface"));
}
