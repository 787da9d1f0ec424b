#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/vt/types.h"

#include <gtest/gtest.h>

#include <set>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(SdfValueTypeNames, LookupByLayerName)
{
    const SdfSchema& schema = SdfSchema::GetInstance();
    EXPECT_EQ(schema.FindType("point3f[]"), SdfValueTypeNames->Point3fArray);
    EXPECT_EQ(schema.FindType(std::string("float")), SdfValueTypeNames->Float);
    EXPECT_EQ(schema.FindType(TfToken("texCoord2f[]")), SdfValueTypeNames->TexCoord2fArray);
    EXPECT_EQ(schema.FindType("timecode"), SdfValueTypeNames->TimeCode);
    EXPECT_FALSE(schema.FindType("float5"));
    EXPECT_FALSE(schema.FindType("point3f[][]"));
    EXPECT_FALSE(SdfValueTypeName());
}

TEST(SdfValueTypeNames, RolesSetApartTypesOfOneCppType)
{
    EXPECT_EQ(SdfValueTypeNames->Point3f.GetRole(), SdfValueRoleNames->Point);
    EXPECT_EQ(SdfValueTypeNames->Normal3fArray.GetRole(), SdfValueRoleNames->Normal);
    EXPECT_EQ(SdfValueTypeNames->Color4d.GetRole(), SdfValueRoleNames->Color);
    EXPECT_EQ(SdfValueTypeNames->Frame4d.GetRole(), SdfValueRoleNames->Frame);
    EXPECT_EQ(SdfValueTypeNames->TexCoord3h.GetRole(), SdfValueRoleNames->TextureCoordinate);
    EXPECT_TRUE(SdfValueTypeNames->Float3.GetRole().IsEmpty());
    EXPECT_NE(SdfValueTypeNames->Point3f, SdfValueTypeNames->Float3);
    EXPECT_EQ(SdfValueTypeNames->Point3f.GetCPPTypeName(), SdfValueTypeNames->Float3.GetCPPTypeName());
}

TEST(SdfValueTypeNames, LookupByValueAndRole)
{
    const SdfSchema& schema = SdfSchema::GetInstance();
    EXPECT_EQ(schema.FindType(VtValue(GfVec3f())), SdfValueTypeNames->Float3);
    EXPECT_EQ(schema.FindType(VtValue(VtVec3fArray()), SdfValueRoleNames->Normal),
              SdfValueTypeNames->Normal3fArray);
    EXPECT_EQ(schema.FindType(VtValue(GfMatrix4d(1.0)), SdfValueRoleNames->Frame),
              SdfValueTypeNames->Frame4d);
    EXPECT_EQ(schema.FindType(VtValue(SdfAssetPath())), SdfValueTypeNames->Asset);
    EXPECT_FALSE(schema.FindType(VtValue(GfVec3f()), SdfValueRoleNames->Frame));
    EXPECT_FALSE(schema.FindType(VtValue()));
}

TEST(SdfValueTypeNames, ScalarAndArrayForms)
{
    const SdfValueTypeName array = SdfValueTypeNames->Color3fArray;
    EXPECT_TRUE(array.IsArray());
    EXPECT_FALSE(array.IsScalar());
    EXPECT_EQ(array.GetScalarType(), SdfValueTypeNames->Color3f);
    EXPECT_EQ(array.GetArrayType(), array);
    EXPECT_EQ(SdfValueTypeNames->Color3f.GetArrayType(), array);
    EXPECT_EQ(array.GetAsToken(), TfToken("color3f[]"));
    EXPECT_EQ(array.GetCPPTypeName(), "VtArray<GfVec3f>");
    EXPECT_TRUE(array == std::string("color3f[]"));
    EXPECT_TRUE(array == TfToken("color3f[]"));
    EXPECT_TRUE(array != std::string("color3f"));
}

TEST(SdfValueTypeNames, DefaultValues)
{
    EXPECT_EQ(SdfValueTypeNames->Int.GetDefaultValue(), VtValue(0));
    EXPECT_EQ(SdfValueTypeNames->Bool.GetDefaultValue(), VtValue(false));
    EXPECT_EQ(SdfValueTypeNames->Token.GetDefaultValue(), VtValue(TfToken()));
    EXPECT_EQ(SdfValueTypeNames->Matrix4d.GetDefaultValue(), VtValue(GfMatrix4d(1.0)));
    EXPECT_EQ(SdfValueTypeNames->Quatf.GetDefaultValue(), VtValue(GfQuatf(1.0f)));
    EXPECT_EQ(SdfValueTypeNames->Float3Array.GetDefaultValue(), VtValue(VtVec3fArray()));
    EXPECT_TRUE(SdfValueTypeNames->Asset.GetDefaultValue().IsHolding<SdfAssetPath>());
}

TEST(SdfValueTypeNames, EveryTypeHasDistinctNamesAndBothForms)
{
    std::set<TfToken> names;
    const std::vector<SdfValueTypeName> all = SdfSchema::GetInstance().GetAllTypes();
    EXPECT_EQ(all.size(), 2u * 53u);
    for (const SdfValueTypeName& type : all) {
        EXPECT_TRUE(names.insert(type.GetAsToken()).second) << type;
        EXPECT_EQ(SdfSchema::GetInstance().FindType(type.GetAsToken()), type);
        EXPECT_EQ(type.GetScalarType().GetArrayType(), type.GetArrayType());
        EXPECT_EQ(SdfSchema::GetInstance().FindType(type.GetDefaultValue(), type.GetRole()), type);
    }
}

TEST(SdfSchemaKeys, FieldAndChildrenNamesAsLayersSpellThem)
{
    EXPECT_EQ(SdfFieldKeys->Default, "default");
    EXPECT_EQ(SdfFieldKeys->TimeSamples, "timeSamples");
    EXPECT_EQ(SdfFieldKeys->InheritPaths, "inheritPaths");
    EXPECT_EQ(SdfFieldKeys->Payload, "payload");
    EXPECT_EQ(SdfFieldKeys->SubLayerOffsets, "subLayerOffsets");
    EXPECT_EQ(SdfChildrenKeys->PropertyChildren, "properties");
    EXPECT_EQ(SdfChildrenKeys->RelationshipTargetChildren, "targetChildren");
    EXPECT_EQ(SdfChildrenKeys->VariantSetChildren, "variantSetChildren");
    EXPECT_EQ(std::set<TfToken>(SdfFieldKeys->allTokens.begin(), SdfFieldKeys->allTokens.end()).size(),
              SdfFieldKeys->allTokens.size());
}
