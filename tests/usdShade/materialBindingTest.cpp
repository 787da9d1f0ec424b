// Materials bound to prims: the direct binding relationship, its single
// target, purposes, and what applies through ancestors.

#include "shadeTestUtils.h"

#include "usdcore/usdShade/materialBindingAPI.h"
#include "usdcore/usdShade/tokens.h"

using namespace shadetest;

namespace {

const char* const kScene = R"(
def Xform "World"
{
    rel material:binding = </Looks/Red>

    def Mesh "Inherits"
    {
    }
    def Mesh "Own"
    {
        rel material:binding = </Looks/Blue>
        rel material:binding:preview = </Looks/Preview>
    }
    def Mesh "Twice"
    {
        rel material:binding = [</Looks/Red>, </Looks/Blue>]
    }
    def Mesh "NotAMaterial"
    {
        rel material:binding = </Looks/Tex>
    }
    def Mesh "ToProperty"
    {
        rel material:binding = </Looks/Red.outputs:surface>
    }
}
def Xform "Strong"
{
    rel material:binding = </Looks/Red> (
        bindMaterialAs = "strongerThanDescendants"
    )
    def Mesh "Child"
    {
        rel material:binding = </Looks/Blue>
    }
}
def Scope "Looks"
{
    def Material "Red"
    {
        token outputs:surface
    }
    def Material "Blue"
    {
    }
    def Material "Preview"
    {
    }
    def Shader "Tex"
    {
    }
}
)";

class ShadeMaterialBinding : public ::testing::Test
{
protected:
    void SetUp() override
    {
        stage = StageFromText(kScene);
        ASSERT_TRUE(stage);
    }

    UsdShadeMaterialBindingAPI Binding(const char* path) const
    {
        return UsdShadeMaterialBindingAPI(stage->GetPrimAtPath(SdfPath(path)));
    }

    UsdStageRefPtr stage;
};

} // namespace

TEST_F(ShadeMaterialBinding, DirectBindingRelationshipByPurpose)
{
    EXPECT_EQ(Binding("/World/Own").GetDirectBindingRel().GetName(), UsdShadeTokens->materialBinding);
    EXPECT_EQ(Binding("/World/Own").GetDirectBindingRel(UsdShadeTokens->preview).GetName(),
              TfToken("material:binding:preview"));
    EXPECT_FALSE(Binding("/World/Inherits").GetDirectBindingRel());
    EXPECT_FALSE(Binding("/World/Own").GetDirectBindingRel(UsdShadeTokens->full));
}

TEST_F(ShadeMaterialBinding, DirectBindingNamesItsSingleTarget)
{
    const UsdShadeMaterialBindingAPI::DirectBinding binding = Binding("/World/Own").GetDirectBinding();
    EXPECT_EQ(binding.GetMaterialPath(), SdfPath("/Looks/Blue"));
    EXPECT_EQ(binding.GetMaterial().GetPath(), SdfPath("/Looks/Blue"));
    EXPECT_TRUE(binding.GetMaterial());
    EXPECT_EQ(binding.GetMaterialPurpose(), UsdShadeTokens->allPurpose);

    const UsdShadeMaterialBindingAPI::DirectBinding preview =
        Binding("/World/Own").GetDirectBinding(UsdShadeTokens->preview);
    EXPECT_EQ(preview.GetMaterialPath(), SdfPath("/Looks/Preview"));
    EXPECT_EQ(preview.GetMaterialPurpose(), UsdShadeTokens->preview);
}

TEST_F(ShadeMaterialBinding, NoMaterialFromSeveralTargetsAPropertyOrANonMaterial)
{
    EXPECT_TRUE(Binding("/World/Twice").GetDirectBinding().GetMaterialPath().IsEmpty());
    EXPECT_FALSE(Binding("/World/Twice").GetDirectBinding().GetMaterial());
    EXPECT_TRUE(Binding("/World/ToProperty").GetDirectBinding().GetMaterialPath().IsEmpty());
    EXPECT_EQ(Binding("/World/NotAMaterial").GetDirectBinding().GetMaterialPath(), SdfPath("/Looks/Tex"));
    EXPECT_FALSE(Binding("/World/NotAMaterial").GetDirectBinding().GetMaterial());
    EXPECT_FALSE(Binding("/World/Inherits").GetDirectBinding().GetMaterial());
}

TEST_F(ShadeMaterialBinding, BindingStrength)
{
    EXPECT_EQ(UsdShadeMaterialBindingAPI::GetMaterialBindingStrength(Binding("/World").GetDirectBindingRel()),
              UsdShadeTokens->weakerThanDescendants);
    EXPECT_EQ(UsdShadeMaterialBindingAPI::GetMaterialBindingStrength(Binding("/Strong").GetDirectBindingRel()),
              UsdShadeTokens->strongerThanDescendants);
}

TEST_F(ShadeMaterialBinding, BoundMaterialComesFromTheNearestBinding)
{
    EXPECT_EQ(Binding("/World/Own").ComputeBoundMaterial().GetPath(), SdfPath("/Looks/Blue"));
    UsdRelationship winner;
    EXPECT_EQ(Binding("/World/Inherits").ComputeBoundMaterial(UsdShadeTokens->allPurpose, &winner).GetPath(),
              SdfPath("/Looks/Red"));
    EXPECT_EQ(winner.GetPath(), SdfPath("/World.material:binding"));
    // A binding that names no material does not hide the ancestor's.
    EXPECT_EQ(Binding("/World/NotAMaterial").ComputeBoundMaterial().GetPath(), SdfPath("/Looks/Red"));
    EXPECT_EQ(Binding("/World/Twice").ComputeBoundMaterial().GetPath(), SdfPath("/Looks/Red"));
}

TEST_F(ShadeMaterialBinding, StrongerAncestorBindingWins)
{
    EXPECT_EQ(Binding("/Strong/Child").ComputeBoundMaterial().GetPath(), SdfPath("/Looks/Red"));
}

TEST_F(ShadeMaterialBinding, RestrictedPurposeFallsBackToAllPurpose)
{
    EXPECT_EQ(Binding("/World/Own").ComputeBoundMaterial(UsdShadeTokens->preview).GetPath(),
              SdfPath("/Looks/Preview"));
    EXPECT_EQ(Binding("/World/Inherits").ComputeBoundMaterial(UsdShadeTokens->preview).GetPath(),
              SdfPath("/Looks/Red"));
}

TEST_F(ShadeMaterialBinding, UnboundPrimHasNoMaterial)
{
    EXPECT_FALSE(Binding("/Looks/Blue").ComputeBoundMaterial());
}
