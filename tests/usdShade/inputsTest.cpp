// Inputs and outputs of shading prims: which attributes they are, their
// names, their order and their values.

#include "shadeTestUtils.h"

#include "usdcore/gf/vec3f.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/usdShade/material.h"
#include "usdcore/usdShade/shader.h"
#include "usdcore/usdShade/tokens.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace shadetest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def Material "Mat"
{
    token outputs:surface.connect = </Mat/Surface.outputs:surface>
    token inputs:frame:stPrimvarName = "st"
    float inputs:a10 = 10
    float inputs:a2 = 2

    def Shader "Surface"
    {
        uniform token info:id = "UsdPreviewSurface"
        float inputs:roughness = 0.25
        color3f inputs:diffuseColor = (0.8, 0.1, 0.1)
        float inputs:clearcoatRoughness = 0.5
        float inputs:opacity.timeSamples = { 1: 0.5 }
        normal3f inputs:normal
        rel inputs:notAnAttribute
        float extra = 3
        token outputs:surface
        token outputs:displacement
    }
}
)";

std::vector<std::string> BaseNames(const std::vector<UsdShadeInput>& inputs)
{
    std::vector<std::string> names;
    for (const UsdShadeInput& input : inputs) names.push_back(input.GetBaseName().GetString());
    return names;
}

class ShadeInputs : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stage = StageFromText(kScene);
        ASSERT_TRUE(stage);
        shader = UsdShadeShader::Get(stage, SdfPath("/Mat/Surface"));
        ASSERT_TRUE(shader);
    }

    UsdStageRefPtr stage;
    UsdShadeShader shader;
};

} // namespace

TEST_F(ShadeInputs, GetInputsListsInputAttributesInDictionaryOrder)
{
    // "clearcoatRoughness" before "roughness": a later input of the list
    // overrides an earlier one where both set the same thing.
    EXPECT_THAT(BaseNames(shader.GetInputs()),
                ElementsAre("clearcoatRoughness", "diffuseColor", "normal", "opacity", "roughness"));
}

TEST_F(ShadeInputs, NumbersInNamesOrderByValue)
{
    const UsdShadeMaterial material = UsdShadeMaterial::Get(stage, SdfPath("/Mat"));
    EXPECT_THAT(BaseNames(material.GetInputs()), ElementsAre("a2", "a10", "frame:stPrimvarName"));
}

TEST_F(ShadeInputs, GetOutputsListsOutputAttributes)
{
    std::vector<std::string> names;
    for (const UsdShadeOutput& output : shader.GetOutputs()) names.push_back(output.GetFullName().GetString());
    EXPECT_THAT(names, ElementsAre("outputs:displacement", "outputs:surface"));
}

TEST_F(ShadeInputs, GetInputByBaseName)
{
    const UsdShadeInput input = shader.GetInput(TfToken("diffuseColor"));
    ASSERT_TRUE(input);
    EXPECT_EQ(input.GetFullName(), TfToken("inputs:diffuseColor"));
    EXPECT_EQ(input.GetBaseName(), TfToken("diffuseColor"));
    EXPECT_EQ(input.GetAttr().GetPath(), SdfPath("/Mat/Surface.inputs:diffuseColor"));
    EXPECT_EQ(input.GetPrim(), shader.GetPrim());
    EXPECT_EQ(input.GetTypeName(), SdfValueTypeNames->Color3f);
}

TEST_F(ShadeInputs, NamespacedBaseNameKeepsItsInnerNamespaces)
{
    const UsdShadeInput input =
        UsdShadeMaterial::Get(stage, SdfPath("/Mat")).GetInput(TfToken("frame:stPrimvarName"));
    ASSERT_TRUE(input);
    EXPECT_EQ(input.GetBaseName(), TfToken("frame:stPrimvarName"));
    TfToken value;
    EXPECT_TRUE(input.Get(&value));
    EXPECT_EQ(value, TfToken("st"));
}

TEST_F(ShadeInputs, MissingInputIsInvalid)
{
    EXPECT_FALSE(shader.GetInput(TfToken("metallic")));
    EXPECT_FALSE(shader.GetInput(TfToken("extra")));
    EXPECT_FALSE(shader.GetInput(TfToken("notAnAttribute")));
    EXPECT_FALSE(shader.GetOutput(TfToken("rgb")));
    float value = 0.0f;
    EXPECT_FALSE(shader.GetInput(TfToken("metallic")).Get(&value));
}

TEST_F(ShadeInputs, IsInputOnlyForDefinedAttributesInTheInputsNamespace)
{
    const UsdPrim prim = shader.GetPrim();
    EXPECT_TRUE(UsdShadeInput::IsInput(prim.GetAttribute(TfToken("inputs:roughness"))));
    EXPECT_FALSE(UsdShadeInput::IsInput(prim.GetAttribute(TfToken("outputs:surface"))));
    EXPECT_FALSE(UsdShadeInput::IsInput(prim.GetAttribute(TfToken("extra"))));
    EXPECT_FALSE(UsdShadeInput::IsInput(prim.GetAttribute(TfToken("info:id"))));
    EXPECT_FALSE(UsdShadeInput::IsInput(prim.GetAttribute(TfToken("inputs:missing"))));
    EXPECT_FALSE(UsdShadeInput::IsInput(UsdAttribute()));
    // An input passes where an attribute is expected.
    EXPECT_TRUE(UsdShadeInput::IsInput(shader.GetInput(TfToken("roughness"))));
}

TEST_F(ShadeInputs, IsOutputOnlyForTheOutputsNamespace)
{
    const UsdPrim prim = shader.GetPrim();
    EXPECT_TRUE(UsdShadeOutput::IsOutput(prim.GetAttribute(TfToken("outputs:surface"))));
    EXPECT_FALSE(UsdShadeOutput::IsOutput(prim.GetAttribute(TfToken("inputs:roughness"))));
    EXPECT_FALSE(UsdShadeOutput::IsOutput(UsdAttribute()));
    const UsdShadeOutput output = shader.GetOutput(TfToken("surface"));
    EXPECT_EQ(output.GetBaseName(), TfToken("surface"));
    EXPECT_EQ(output.GetFullName(), TfToken("outputs:surface"));
    EXPECT_EQ(output.GetTypeName(), SdfValueTypeNames->Token);
}

TEST_F(ShadeInputs, BaseNameOfAnAttributeOutsideTheNamespaceIsTheWholeName)
{
    const UsdShadeInput wrapped(shader.GetPrim().GetAttribute(TfToken("outputs:surface")));
    EXPECT_FALSE(wrapped);
    EXPECT_EQ(wrapped.GetBaseName(), TfToken("outputs:surface"));
    EXPECT_EQ(UsdShadeOutput(shader.GetPrim().GetAttribute(TfToken("inputs:normal"))).GetBaseName(),
              TfToken("inputs:normal"));
}

TEST_F(ShadeInputs, ValuesReadInTheirOwnTypeOnly)
{
    GfVec3f color;
    ASSERT_TRUE(shader.GetInput(TfToken("diffuseColor")).Get(&color));
    EXPECT_EQ(color, GfVec3f(0.8f, 0.1f, 0.1f));

    float roughness = 0.0f;
    EXPECT_TRUE(shader.GetInput(TfToken("roughness")).Get(&roughness));
    EXPECT_EQ(roughness, 0.25f);

    TfDiagnosticCapture capture;
    float notAFloat = -1.0f;
    EXPECT_FALSE(shader.GetInput(TfToken("diffuseColor")).Get(&notAFloat));
    EXPECT_EQ(notAFloat, -1.0f);
}

TEST_F(ShadeInputs, DeclaredOrSampledOnlyInputsHaveNoDefaultValue)
{
    float opacity = 0.0f;
    EXPECT_FALSE(shader.GetInput(TfToken("opacity")).Get(&opacity));
    EXPECT_TRUE(shader.GetInput(TfToken("opacity")).Get(&opacity, UsdTimeCode(1.0)));
    EXPECT_EQ(opacity, 0.5f);
    VtValue normal;
    EXPECT_TRUE(shader.GetInput(TfToken("normal")));
    EXPECT_FALSE(shader.GetInput(TfToken("normal")).Get(&normal));
}

TEST_F(ShadeInputs, ShaderIdentifier)
{
    TfToken id;
    EXPECT_TRUE(shader.GetShaderId(&id));
    EXPECT_EQ(id, TfToken("UsdPreviewSurface"));
    EXPECT_EQ(shader.GetIdAttr().GetName(), UsdShadeTokens->infoId);
    EXPECT_EQ(shader.GetImplementationSource(), UsdShadeTokens->id);
}

TEST(ShadeShaderId, NoIdentifierWhenTheSourceIsAnAsset)
{
    const UsdStageRefPtr stage = StageFromText(R"(
def Shader "FromAsset"
{
    uniform token info:implementationSource = "sourceAsset"
    uniform token info:id = "Ignored"
}
def Shader "Bare"
{
}
)");
    TfToken id;
    const UsdShadeShader fromAsset = UsdShadeShader::Get(stage, SdfPath("/FromAsset"));
    EXPECT_EQ(fromAsset.GetImplementationSource(), UsdShadeTokens->sourceAsset);
    EXPECT_FALSE(fromAsset.GetShaderId(&id));
    const UsdShadeShader bare = UsdShadeShader::Get(stage, SdfPath("/Bare"));
    EXPECT_EQ(bare.GetImplementationSource(), UsdShadeTokens->id);
    // The schema's fallback, with nothing authored.
    TfToken source;
    EXPECT_TRUE(bare.GetImplementationSourceAttr().Get(&source));
    EXPECT_EQ(source, UsdShadeTokens->id);
    EXPECT_FALSE(bare.GetShaderId(&id));
    EXPECT_TRUE(bare.GetInputs().empty());
}
