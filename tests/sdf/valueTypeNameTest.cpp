#include "usdcore/gf/matrix4d.h"
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

TEST(SdfValueTypeNames, OlderNamesAreTheTypesOfTheirCppTypeAndRole)
{
    // As OpenUSD registers them: the name found by is kept, and the type is
    // the current one of the same C++ type and role.
    const struct {
        const char* name;
        SdfValueTypeName current;
    } cases[] = {
        {"Vec2i", SdfValueTypeNames->Int2},          {"Vec2h", SdfValueTypeNames->Half2},
        {"Vec2f", SdfValueTypeNames->Float2},        {"Vec2d", SdfValueTypeNames->Double2},
        {"Vec3i", SdfValueTypeNames->Int3},          {"Vec3h", SdfValueTypeNames->Half3},
        {"Vec3f", SdfValueTypeNames->Float3},        {"Vec3d", SdfValueTypeNames->Double3},
        {"Vec4i", SdfValueTypeNames->Int4},          {"Vec4h", SdfValueTypeNames->Half4},
        {"Vec4f", SdfValueTypeNames->Float4},        {"Vec4d", SdfValueTypeNames->Double4},
        {"Point", SdfValueTypeNames->Point3d},       {"PointFloat", SdfValueTypeNames->Point3f},
        {"Normal", SdfValueTypeNames->Normal3d},     {"NormalFloat", SdfValueTypeNames->Normal3f},
        {"Vector", SdfValueTypeNames->Vector3d},     {"VectorFloat", SdfValueTypeNames->Vector3f},
        {"Color", SdfValueTypeNames->Color3d},       {"ColorFloat", SdfValueTypeNames->Color3f},
        {"Quath", SdfValueTypeNames->Quath},         {"Quatf", SdfValueTypeNames->Quatf},
        {"Quatd", SdfValueTypeNames->Quatd},         {"Matrix2d", SdfValueTypeNames->Matrix2d},
        {"Matrix3d", SdfValueTypeNames->Matrix3d},   {"Matrix4d", SdfValueTypeNames->Matrix4d},
        {"Frame", SdfValueTypeNames->Frame4d},
    };
    const SdfSchema& schema = SdfSchema::GetInstance();
    for (const auto& c : cases) {
        const SdfValueTypeName scalar = schema.FindType(c.name);
        EXPECT_EQ(scalar, c.current) << c.name;
        EXPECT_EQ(scalar.GetAsToken(), TfToken(c.name));
        EXPECT_EQ(scalar.GetRole(), c.current.GetRole()) << c.name;
        EXPECT_EQ(scalar.GetAliasesAsTokens().front(), c.current.GetAsToken()) << c.name;
        EXPECT_TRUE(c.current == std::string(c.name)) << c.name;

        const SdfValueTypeName array = schema.FindType(std::string(c.name) + "[]");
        EXPECT_EQ(array, c.current.GetArrayType()) << c.name;
        EXPECT_EQ(array.GetAsToken(), TfToken(std::string(c.name) + "[]"));
        EXPECT_EQ(array.GetScalarType().GetAsToken(), TfToken(c.name));
        // A value's type is found under its current name.
        EXPECT_EQ(schema.FindType(scalar.GetDefaultValue(), scalar.GetRole()).GetAsToken(),
                  c.current.GetAsToken());
    }
    EXPECT_NE(schema.FindType("Point"), SdfValueTypeNames->Double3);
    EXPECT_NE(schema.FindType("Vec3f"), SdfValueTypeNames->Color3f);
}

TEST(SdfValueTypeNames, OlderNamesOfRolesNoCurrentNameHasAreTypesOfTheirOwn)
{
    const SdfSchema& schema = SdfSchema::GetInstance();
    const struct {
        const char* name;
        TfToken role;
        const char* cppTypeName;
        VtValue defaultValue;
    } cases[] = {
        {"Transform", SdfValueRoleNames->Transform, "GfMatrix4d", VtValue(GfMatrix4d(1.0))},
        {"PointIndex", SdfValueRoleNames->PointIndex, "int", VtValue(0)},
        {"EdgeIndex", SdfValueRoleNames->EdgeIndex, "int", VtValue(0)},
        {"FaceIndex", SdfValueRoleNames->FaceIndex, "int", VtValue(0)},
    };
    for (const auto& c : cases) {
        const SdfValueTypeName type = schema.FindType(c.name);
        ASSERT_TRUE(type) << c.name;
        EXPECT_EQ(type.GetRole(), c.role);
        EXPECT_EQ(type.GetCPPTypeName(), c.cppTypeName);
        EXPECT_EQ(type.GetDefaultValue(), c.defaultValue);
        EXPECT_EQ(type.GetAliasesAsTokens(), std::vector<TfToken>{TfToken(c.name)});
        EXPECT_EQ(schema.FindType(c.defaultValue, c.role), type);
        EXPECT_EQ(schema.FindType(std::string(c.name) + "[]").GetCPPTypeName(),
                  "VtArray<" + std::string(c.cppTypeName) + ">");
    }
    EXPECT_NE(schema.FindType("Transform"), SdfValueTypeNames->Matrix4d);
    EXPECT_NE(schema.FindType("PointIndex"), SdfValueTypeNames->Int);
    EXPECT_NE(schema.FindType("PointIndex"), schema.FindType("FaceIndex"));
}

TEST(SdfValueTypeNames, EveryTypeHasDistinctNamesAndBothForms)
{
    std::set<TfToken> names;
    const std::vector<SdfValueTypeName> all = SdfSchema::GetInstance().GetAllTypes();
    // 53 current names and 31 older ones, each with an array form.
    EXPECT_EQ(all.size(), 2u * (53u + 31u));
    for (const SdfValueTypeName& type : all) {
        EXPECT_TRUE(names.insert(type.GetAsToken()).second) << type;
        EXPECT_EQ(SdfSchema::GetInstance().FindType(type.GetAsToken()), type);
        EXPECT_EQ(type.GetScalarType().GetArrayType(), type.GetArrayType());
        EXPECT_EQ(SdfSchema::GetInstance().FindType(type.GetDefaultValue(), type.GetRole()), type);
        EXPECT_TRUE(type == type.GetAsToken()) << type;
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
