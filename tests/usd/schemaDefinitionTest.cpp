// What a prim's schema type adds to it without any layer saying so: the
// type hierarchy and the attributes of the schema, with their fallbacks.

#include "usdTestUtils.h"

#include "usdcore/sdf/layer.h"
#include "usdcore/vt/types.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

namespace {

UsdStageRefPtr StageFromText(const std::string& body)
{
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString("#usda 1.0\n" + body);
    return layer ? UsdStage::Open(SdfLayerHandle(layer)) : UsdStageRefPtr();
}

const char* const kScene = R"(
def Mesh "M" {
    token subdivisionScheme = "none"
    float3[] extent = [(0, 0, 0), (1, 1, 1)]
}
def Mesh "Blocked" {
    uniform token orientation = None
}
def Xform "X" {}
def "Untyped" {}
def Unheard "Unknown" {}
)";

} // namespace

TEST(SchemaHierarchy, TypeIsItsOwnAndEachAncestor)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    ASSERT_TRUE(stage);
    const UsdPrim mesh = stage->GetPrimAtPath(SdfPath("/M"));
    for (const char* type : {"Mesh", "PointBased", "Gprim", "Boundable", "Xformable", "Imageable", "Typed"}) {
        EXPECT_TRUE(mesh.IsA(TfToken(type))) << type;
    }
    EXPECT_FALSE(mesh.IsA(TfToken("Xform")));
    EXPECT_FALSE(mesh.IsA(TfToken("Scope")));

    const UsdPrim xform = stage->GetPrimAtPath(SdfPath("/X"));
    EXPECT_TRUE(xform.IsA(TfToken("Xformable")));
    EXPECT_FALSE(xform.IsA(TfToken("Boundable")));
    EXPECT_FALSE(xform.IsA(TfToken("Mesh")));
}

TEST(SchemaHierarchy, UntypedAndUnknownTypesAreNotTyped)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/Untyped")).IsA(TfToken("Typed")));
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/Unknown")).IsA(TfToken("Typed")));
    EXPECT_FALSE(UsdPrim().IsA(TfToken("Typed")));
}

TEST(SchemaFallbacks, UnauthoredSchemaAttributeReadsItsFallback)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    const UsdPrim mesh = stage->GetPrimAtPath(SdfPath("/M"));

    const UsdAttribute orientation = mesh.GetAttribute(TfToken("orientation"));
    EXPECT_TRUE(orientation.IsValid());
    EXPECT_TRUE(orientation.IsDefined());
    EXPECT_FALSE(orientation.IsAuthored());
    EXPECT_FALSE(orientation.HasAuthoredValue());
    EXPECT_TRUE(orientation.HasValue());
    EXPECT_TRUE(orientation.HasFallbackValue());
    TfToken token;
    EXPECT_TRUE(orientation.Get(&token));
    EXPECT_EQ(token, TfToken("rightHanded"));
    EXPECT_TRUE(orientation.Get(&token, UsdTimeCode(12.0)));
    EXPECT_EQ(token, TfToken("rightHanded"));
    EXPECT_EQ(orientation.GetTypeName(), SdfValueTypeNames->Token);
    EXPECT_EQ(orientation.GetVariability(), SdfVariabilityUniform);

    // Inherited from Imageable, two and five steps up.
    EXPECT_TRUE(mesh.GetAttribute(TfToken("purpose")).Get(&token));
    EXPECT_EQ(token, TfToken("default"));
    EXPECT_TRUE(mesh.GetAttribute(TfToken("visibility")).Get(&token));
    EXPECT_EQ(token, TfToken("inherited"));
    bool doubleSided = true;
    EXPECT_TRUE(mesh.GetAttribute(TfToken("doubleSided")).Get(&doubleSided));
    EXPECT_FALSE(doubleSided);
    VtIntArray holes(3, 7);
    EXPECT_TRUE(mesh.GetAttribute(TfToken("holeIndices")).Get(&holes));
    EXPECT_TRUE(holes.empty());
}

TEST(SchemaFallbacks, AuthoredValueWinsOverFallback)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    const UsdAttribute scheme = Attribute(stage, "/M", "subdivisionScheme");
    EXPECT_TRUE(scheme.IsAuthored());
    EXPECT_TRUE(scheme.HasAuthoredValue());
    TfToken token;
    EXPECT_TRUE(scheme.Get(&token));
    EXPECT_EQ(token, TfToken("none"));
}

TEST(SchemaFallbacks, BlockHidesTheFallbackToo)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    const UsdAttribute orientation = Attribute(stage, "/Blocked", "orientation");
    EXPECT_TRUE(orientation.IsValid());
    EXPECT_FALSE(orientation.HasValue());
    TfToken token;
    EXPECT_FALSE(orientation.Get(&token));
}

TEST(SchemaFallbacks, DeclaredWithoutFallbackIsValidButValueless)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    const UsdAttribute points = Attribute(stage, "/M", "points");
    EXPECT_TRUE(points.IsValid());
    EXPECT_FALSE(points.HasValue());
    EXPECT_FALSE(points.HasFallbackValue());
    EXPECT_EQ(points.GetTypeName(), SdfValueTypeNames->Point3fArray);
    VtValue value;
    EXPECT_FALSE(points.Get(&value));
}

TEST(SchemaFallbacks, OnlyThePrimsOwnSchemaDefinesAttributes)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    // An Xform is not a Gprim: no orientation. Untyped and unknown types
    // define nothing.
    EXPECT_FALSE(Attribute(stage, "/X", "orientation"));
    EXPECT_TRUE(Attribute(stage, "/X", "xformOpOrder"));
    EXPECT_FALSE(Attribute(stage, "/Untyped", "visibility"));
    EXPECT_FALSE(Attribute(stage, "/Unknown", "visibility"));
    EXPECT_FALSE(Attribute(stage, "/M", "noSuchAttribute"));
}

TEST(SchemaFallbacks, PropertyNamesIncludeSchemaAttributesAuthoredNamesDoNot)
{
    const UsdStageRefPtr stage = StageFromText(kScene);
    const UsdPrim xform = stage->GetPrimAtPath(SdfPath("/X"));
    EXPECT_THAT(Names(xform.GetPropertyNames()), ElementsAre("purpose", "visibility", "xformOpOrder"));
    EXPECT_TRUE(xform.GetAuthoredPropertyNames().empty());
    EXPECT_TRUE(xform.GetAuthoredAttributes().empty());
    EXPECT_EQ(xform.GetAttributes().size(), 3u);

    const UsdPrim mesh = stage->GetPrimAtPath(SdfPath("/M"));
    EXPECT_THAT(Names(mesh.GetAuthoredPropertyNames()), ElementsAre("extent", "subdivisionScheme"));
    std::vector<std::string> primvars;
    for (const UsdProperty& property : mesh.GetPropertiesInNamespace("primvars")) {
        primvars.push_back(property.GetName().GetString());
    }
    EXPECT_THAT(primvars, ElementsAre("primvars:displayColor", "primvars:displayOpacity"));
    EXPECT_TRUE(mesh.GetAuthoredPropertiesInNamespace("primvars:").empty());
}
