// Layer structure as the text gives it: layer metadata, prims with their
// specifiers, types and metadata, composition arcs as list ops, properties,
// relationships, connections and variant sets.

#include "usdaTestUtils.h"

#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/reference.h"
#include "usdcore/sdf/types.h"

using namespace usdaTest;

namespace {

using Tokens = std::vector<TfToken>;

} // namespace

TEST(UsdaLayerMetadata, StageSettingsCommentAndSubLayers)
{
    const SdfData data = Read(R"(#usda 1.0
(
    "layer comment"
    defaultPrim = "World"
    upAxis = "Z"
    metersPerUnit = 0.01
    timeCodesPerSecond = 48
    startTimeCode = 1
    endTimeCode = 96
    doc = """Long
doc"""
    subLayers = [
        @./a.usda@ (offset = 10; scale = 2),
        @b.usda@
    ]
    customLayerData = { string creator = "me" }
    myStudioKey = [1, (2, 3)]
)
)");
    const char* root = "/";
    EXPECT_EQ(Field<std::string>(data, root, SdfFieldKeys->Comment), "layer comment");
    EXPECT_EQ(Field<TfToken>(data, root, SdfFieldKeys->DefaultPrim), TfToken("World"));
    EXPECT_EQ(Field<TfToken>(data, root, TfToken("upAxis")), TfToken("Z"));
    EXPECT_EQ(Field<double>(data, root, TfToken("metersPerUnit")), 0.01);
    EXPECT_EQ(Field<double>(data, root, SdfFieldKeys->TimeCodesPerSecond), 48.0);
    EXPECT_EQ(Field<double>(data, root, SdfFieldKeys->EndTimeCode), 96.0);
    EXPECT_EQ(Field<std::string>(data, root, SdfFieldKeys->Documentation), "Long\ndoc");
    const auto subLayers = Field<std::vector<std::string>>(data, root, SdfFieldKeys->SubLayers);
    ASSERT_EQ(subLayers.size(), 2u);
    EXPECT_EQ(subLayers[0], "./a.usda");
    const auto offsets = Field<std::vector<SdfLayerOffset>>(data, root, SdfFieldKeys->SubLayerOffsets);
    ASSERT_EQ(offsets.size(), 2u);
    EXPECT_EQ(offsets[0], SdfLayerOffset(10, 2));
    EXPECT_EQ(offsets[1], SdfLayerOffset());
    EXPECT_EQ(Entry(Field<VtDictionary>(data, root, SdfFieldKeys->CustomLayerData), "creator"),
              VtValue(std::string("me")));
    // Keys nobody registered are kept with the text of their value.
    EXPECT_EQ(Field<SdfUnregisteredValue>(data, root, TfToken("myStudioKey")).GetValue(),
              VtValue(std::string("[1, (2, 3)]")));
}

TEST(UsdaPrims, SpecifiersTypesAndChildrenInOrder)
{
    const SdfData data = Read(R"(#usda 1.0
def Xform "World"
{
    over "Later" {}
    class "_Base" {}
    def Mesh "Body" {}
}
def "Second" {}
)");
    EXPECT_EQ(data.GetSpecType(SdfPath("/")), SdfSpecTypePseudoRoot);
    EXPECT_EQ(Field<Tokens>(data, "/", SdfChildrenKeys->PrimChildren), (Tokens{TfToken("World"), TfToken("Second")}));
    EXPECT_EQ(Field<Tokens>(data, "/World", SdfChildrenKeys->PrimChildren),
              (Tokens{TfToken("Later"), TfToken("_Base"), TfToken("Body")}));
    EXPECT_EQ(Field<SdfSpecifier>(data, "/World/Later", SdfFieldKeys->Specifier), SdfSpecifierOver);
    EXPECT_EQ(Field<SdfSpecifier>(data, "/World/_Base", SdfFieldKeys->Specifier), SdfSpecifierClass);
    EXPECT_EQ(Field<TfToken>(data, "/World/Body", SdfFieldKeys->TypeName), TfToken("Mesh"));
    EXPECT_FALSE(data.Has(SdfPath("/Second"), SdfFieldKeys->TypeName));
}

TEST(UsdaPrims, MetadataOfEveryShape)
{
    const SdfData data = Read(R"(#usda 1.0
def Xform "A" (
    active = false
    instanceable = true
    hidden = true
    kind = "component"
    doc = "about A"
    prepend apiSchemas = ["MaterialBindingAPI", "SkelBindingAPI"]
    prepend references = [@./other.usda@</Model> (offset = 5; scale = 0.5), </Internal>]
    delete references = @gone.usda@
    payload = @heavy.usd@
    inherits = </_Class>
    append specializes = <../Base>
    variantSets = ["look", "lod"]
    variants = { string look = "red" }
    permission = private
)
{
}
)");
    EXPECT_FALSE(Field<bool>(data, "/A", SdfFieldKeys->Active));
    EXPECT_TRUE(Field<bool>(data, "/A", SdfFieldKeys->Instanceable));
    EXPECT_TRUE(Field<bool>(data, "/A", SdfFieldKeys->Hidden));
    EXPECT_EQ(Field<TfToken>(data, "/A", SdfFieldKeys->Kind), TfToken("component"));
    EXPECT_EQ(Field<std::string>(data, "/A", SdfFieldKeys->Documentation), "about A");
    EXPECT_EQ(Field<SdfTokenListOp>(data, "/A", TfToken("apiSchemas")).GetPrependedItems(),
              (Tokens{TfToken("MaterialBindingAPI"), TfToken("SkelBindingAPI")}));
    const auto references = Field<SdfReferenceListOp>(data, "/A", SdfFieldKeys->References);
    ASSERT_EQ(references.GetPrependedItems().size(), 2u);
    EXPECT_EQ(references.GetPrependedItems()[0],
              SdfReference("./other.usda", SdfPath("/Model"), SdfLayerOffset(5, 0.5)));
    EXPECT_EQ(references.GetPrependedItems()[1], SdfReference("", SdfPath("/Internal")));
    ASSERT_EQ(references.GetDeletedItems().size(), 1u);
    EXPECT_EQ(references.GetDeletedItems()[0].GetAssetPath(), "gone.usda");
    const auto payload = Field<SdfPayloadListOp>(data, "/A", SdfFieldKeys->Payload);
    EXPECT_TRUE(payload.IsExplicit());
    EXPECT_EQ(payload.GetExplicitItems()[0].GetAssetPath(), "heavy.usd");
    EXPECT_EQ(Field<SdfPathListOp>(data, "/A", SdfFieldKeys->InheritPaths).GetExplicitItems()[0],
              SdfPath("/_Class"));
    // Relative paths are anchored at the prim.
    EXPECT_EQ(Field<SdfPathListOp>(data, "/A", SdfFieldKeys->Specializes).GetAppendedItems()[0],
              SdfPath("/Base"));
    EXPECT_EQ(Field<SdfStringListOp>(data, "/A", SdfFieldKeys->VariantSetNames).GetExplicitItems(),
              (std::vector<std::string>{"look", "lod"}));
    EXPECT_EQ(Field<SdfVariantSelectionMap>(data, "/A", SdfFieldKeys->VariantSelection).at("look"), "red");
    EXPECT_EQ(Field<SdfPermission>(data, "/A", SdfFieldKeys->Permission), SdfPermissionPrivate);
}

// Metadata the reader does not know, a list operation on it included, is
// kept as written with a warning naming where it is: never a reason to
// refuse the layer.
TEST(UsdaPrims, UnknownMetadataIsKeptWithAWarning)
{
    TfDiagnosticCapture capture;
    SdfData data;
    ASSERT_TRUE(SdfUsdaReadData(R"(#usda 1.0
def Xform "A" (
    instanceable = True
    reorder someSets = ["b", "a"]
    studioTag = 7
)
{
}
)", "test.usda", &data));
    EXPECT_TRUE(Field<bool>(data, "/A", SdfFieldKeys->Instanceable));
    EXPECT_EQ(Field<SdfUnregisteredValue>(data, "/A", TfToken("someSets")).GetValue(), VtValue(std::string("[\"b\", \"a\"]")));
    EXPECT_EQ(Field<SdfUnregisteredValue>(data, "/A", TfToken("studioTag")).GetValue(), VtValue(std::string("7")));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 2u);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "test.usda:4:13: unknown metadata 'someSets'"));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE), 0u);
}

// 'relocates' fills the layer's own field in layer metadata and the prim's
// in a prim's, in the order written; prim paths are anchored at the prim.
TEST(UsdaPrims, RelocatesOfTheLayerAndOfAPrim)
{
    const SdfData data = Read(R"(#usda 1.0
(
    relocates = {
        </A/Child> : </A/Moved>,
        </A/Gone> : <>
    }
)
def "A" (
    relocates = { <Inner> : <Outer>, }
)
{
}
)");
    EXPECT_EQ(Field<SdfRelocates>(data, "/", SdfFieldKeys->LayerRelocates),
              (SdfRelocates{{SdfPath("/A/Child"), SdfPath("/A/Moved")}, {SdfPath("/A/Gone"), SdfPath()}}));
    EXPECT_EQ(Field<SdfRelocates>(data, "/A", SdfFieldKeys->Relocates),
              (SdfRelocates{{SdfPath("/A/Inner"), SdfPath("/A/Outer")}}));
    EXPECT_FALSE(data.Has(SdfPath("/"), SdfFieldKeys->Relocates, nullptr));
}

TEST(UsdaPrims, NoneMakesAnEmptyExplicitList)
{
    const SdfData data = Read("#usda 1.0\ndef \"A\" ( references = None ) {}\n");
    const auto references = Field<SdfReferenceListOp>(data, "/A", SdfFieldKeys->References);
    EXPECT_TRUE(references.IsExplicit());
    EXPECT_TRUE(references.GetExplicitItems().empty());
}

TEST(UsdaProperties, AttributeMetadataAndConnections)
{
    const SdfData data = Read(R"(#usda 1.0
def Shader "S"
{
    texCoord2f[] primvars:st = [(0, 1)] (
        interpolation = "faceVarying"
        elementSize = 2
        customData = { bool flag = 1 }
    )
    float3 inputs:color.connect = </S/Tex.outputs:rgb>
    prepend float inputs:other.connect = [<Tex.outputs:r>, </X.y>]
}
)");
    EXPECT_EQ(Field<TfToken>(data, "/S.primvars:st", TfToken("interpolation")), TfToken("faceVarying"));
    EXPECT_EQ(Field<int>(data, "/S.primvars:st", TfToken("elementSize")), 2);
    const auto connection = Field<SdfPathListOp>(data, "/S.inputs:color", SdfFieldKeys->ConnectionPaths);
    EXPECT_EQ(connection.GetExplicitItems(), (SdfPathVector{SdfPath("/S/Tex.outputs:rgb")}));
    EXPECT_FALSE(data.HasSpec(SdfPath("/S.inputs:color[/S/Tex.outputs:rgb]")));
    const auto other = Field<SdfPathListOp>(data, "/S.inputs:other", SdfFieldKeys->ConnectionPaths);
    EXPECT_EQ(other.GetPrependedItems(), (SdfPathVector{SdfPath("/S/Tex.outputs:r"), SdfPath("/X.y")}));
    EXPECT_EQ(Field<Tokens>(data, "/S", SdfChildrenKeys->PropertyChildren),
              (Tokens{TfToken("primvars:st"), TfToken("inputs:color"), TfToken("inputs:other")}));
}

TEST(UsdaProperties, RelationshipsWithTargetsAndListOps)
{
    const SdfData data = Read(R"(#usda 1.0
def "M"
{
    rel material:binding = </Looks/Red> (
        bindMaterialAs = "strongerThanDescendants"
    )
    custom rel empty
    rel none = None
    prepend rel skel:joints = [</A>, </B>]
    delete rel skel:joints = </C>
}
)");
    const auto binding = Field<SdfPathListOp>(data, "/M.material:binding", SdfFieldKeys->TargetPaths);
    EXPECT_EQ(binding.GetExplicitItems(), (SdfPathVector{SdfPath("/Looks/Red")}));
    EXPECT_EQ(Field<TfToken>(data, "/M.material:binding", TfToken("bindMaterialAs")),
              TfToken("strongerThanDescendants"));
    // Targets are no specs of their own.
    EXPECT_FALSE(data.HasSpec(SdfPath("/M.material:binding[/Looks/Red]")));
    EXPECT_EQ(data.GetSpecType(SdfPath("/M.empty")), SdfSpecTypeRelationship);
    EXPECT_TRUE(Field<bool>(data, "/M.empty", SdfFieldKeys->Custom));
    EXPECT_FALSE(data.Has(SdfPath("/M.empty"), SdfFieldKeys->TargetPaths));
    EXPECT_TRUE(Field<SdfPathListOp>(data, "/M.none", SdfFieldKeys->TargetPaths).IsExplicit());
    const auto joints = Field<SdfPathListOp>(data, "/M.skel:joints", SdfFieldKeys->TargetPaths);
    EXPECT_EQ(joints.GetPrependedItems(), (SdfPathVector{SdfPath("/A"), SdfPath("/B")}));
    EXPECT_EQ(joints.GetDeletedItems(), (SdfPathVector{SdfPath("/C")}));
}

TEST(UsdaVariants, SetsVariantsAndTheirContents)
{
    const SdfData data = Read(R"(#usda 1.0
def "A" (
    variants = { string look = "red" }
    prepend variantSets = "look"
)
{
    variantSet "look" = {
        "red" {
            color3f color = (1, 0, 0)
            def "Child" {}
        }
        "blue" ( doc = "cold" ) {
        }
    }
}
)");
    EXPECT_EQ(Field<Tokens>(data, "/A", SdfChildrenKeys->VariantSetChildren), (Tokens{TfToken("look")}));
    EXPECT_EQ(data.GetSpecType(SdfPath("/A{look=}")), SdfSpecTypeVariantSet);
    EXPECT_EQ(Field<Tokens>(data, "/A{look=}", SdfChildrenKeys->VariantChildren),
              (Tokens{TfToken("red"), TfToken("blue")}));
    EXPECT_EQ(data.GetSpecType(SdfPath("/A{look=red}")), SdfSpecTypeVariant);
    EXPECT_EQ(Field<Tokens>(data, "/A{look=red}", SdfChildrenKeys->PropertyChildren), (Tokens{TfToken("color")}));
    EXPECT_EQ(data.GetSpecType(SdfPath("/A{look=red}Child")), SdfSpecTypePrim);
    EXPECT_EQ(Field<std::string>(data, "/A{look=blue}", SdfFieldKeys->Documentation), "cold");
}

TEST(UsdaComments, AllCommentFormsAreSkipped)
{
    const SdfData data = Read("#usda 1.0\n# hash\n// slashes\n/* block\n over lines */ def \"A\" { # tail\n"
                              "    int x = /* inline */ 3 // end\n}\n");
    EXPECT_EQ(Field<int>(data, "/A.x", SdfFieldKeys->Default), 3);
}

TEST(UsdaReorder, NameChildrenAndPropertiesOrder)
{
    const SdfData data = Read("#usda 1.0\ndef \"A\" {\n reorder nameChildren = [\"b\", \"a\"]\n"
                              " reorder properties = [\"y\"]\n}\n");
    EXPECT_EQ(Field<Tokens>(data, "/A", SdfFieldKeys->PrimOrder), (Tokens{TfToken("b"), TfToken("a")}));
    EXPECT_EQ(Field<Tokens>(data, "/A", SdfFieldKeys->PropertyOrder), (Tokens{TfToken("y")}));
}
