#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/staticData.h"
#include "usdcore/tf/staticTokens.h"
#include "usdcore/tf/token.h"
#include "usdcore/vt/value.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

// Every value type an attribute can have, listed once:
// X(Member, "name in layers", C++ type, role). Each also has an array form,
// "name[]" holding VtArray<C++ type>, reached as Member##Array.
#define SDF_VALUE_TYPES(X)                                                    \
    X(Bool, "bool", bool, )                                                   \
    X(UChar, "uchar", unsigned char, )                                        \
    X(Int, "int", int, )                                                      \
    X(UInt, "uint", unsigned int, )                                           \
    X(Int64, "int64", int64_t, )                                              \
    X(UInt64, "uint64", uint64_t, )                                           \
    X(Half, "half", GfHalf, )                                                 \
    X(Float, "float", float, )                                                \
    X(Double, "double", double, )                                             \
    X(TimeCode, "timecode", SdfTimeCode, )                                    \
    X(String, "string", std::string, )                                        \
    X(Token, "token", TfToken, )                                              \
    X(Asset, "asset", SdfAssetPath, )                                         \
    X(Int2, "int2", GfVec2i, )                                                \
    X(Int3, "int3", GfVec3i, )                                                \
    X(Int4, "int4", GfVec4i, )                                                \
    X(Half2, "half2", GfVec2h, )                                              \
    X(Half3, "half3", GfVec3h, )                                              \
    X(Half4, "half4", GfVec4h, )                                              \
    X(Float2, "float2", GfVec2f, )                                            \
    X(Float3, "float3", GfVec3f, )                                            \
    X(Float4, "float4", GfVec4f, )                                            \
    X(Double2, "double2", GfVec2d, )                                          \
    X(Double3, "double3", GfVec3d, )                                          \
    X(Double4, "double4", GfVec4d, )                                          \
    X(Point3h, "point3h", GfVec3h, Point)                                     \
    X(Point3f, "point3f", GfVec3f, Point)                                     \
    X(Point3d, "point3d", GfVec3d, Point)                                     \
    X(Vector3h, "vector3h", GfVec3h, Vector)                                  \
    X(Vector3f, "vector3f", GfVec3f, Vector)                                  \
    X(Vector3d, "vector3d", GfVec3d, Vector)                                  \
    X(Normal3h, "normal3h", GfVec3h, Normal)                                  \
    X(Normal3f, "normal3f", GfVec3f, Normal)                                  \
    X(Normal3d, "normal3d", GfVec3d, Normal)                                  \
    X(Color3h, "color3h", GfVec3h, Color)                                     \
    X(Color3f, "color3f", GfVec3f, Color)                                     \
    X(Color3d, "color3d", GfVec3d, Color)                                     \
    X(Color4h, "color4h", GfVec4h, Color)                                     \
    X(Color4f, "color4f", GfVec4f, Color)                                     \
    X(Color4d, "color4d", GfVec4d, Color)                                     \
    X(Quath, "quath", GfQuath, )                                              \
    X(Quatf, "quatf", GfQuatf, )                                              \
    X(Quatd, "quatd", GfQuatd, )                                              \
    X(Matrix2d, "matrix2d", GfMatrix2d, )                                     \
    X(Matrix3d, "matrix3d", GfMatrix3d, )                                     \
    X(Matrix4d, "matrix4d", GfMatrix4d, )                                     \
    X(Frame4d, "frame4d", GfMatrix4d, Frame)                                  \
    X(TexCoord2h, "texCoord2h", GfVec2h, TextureCoordinate)                   \
    X(TexCoord2f, "texCoord2f", GfVec2f, TextureCoordinate)                   \
    X(TexCoord2d, "texCoord2d", GfVec2d, TextureCoordinate)                   \
    X(TexCoord3h, "texCoord3h", GfVec3h, TextureCoordinate)                   \
    X(TexCoord3f, "texCoord3f", GfVec3f, TextureCoordinate)                   \
    X(TexCoord3d, "texCoord3d", GfVec3d, TextureCoordinate)

// The names older layers carry, still read: X("name in layers", C++ type,
// role). A name whose C++ type and role are those of a type above is
// another name of that type ("Vec3f" is float3, "Point" point3d); the
// others are types of their own that no newer name spells ("Transform",
// "PointIndex"...).
#define SDF_LEGACY_VALUE_TYPES(X)                                             \
    X("Vec2i", GfVec2i, )                                                     \
    X("Vec2h", GfVec2h, )                                                     \
    X("Vec2f", GfVec2f, )                                                     \
    X("Vec2d", GfVec2d, )                                                     \
    X("Vec3i", GfVec3i, )                                                     \
    X("Vec3h", GfVec3h, )                                                     \
    X("Vec3f", GfVec3f, )                                                     \
    X("Vec3d", GfVec3d, )                                                     \
    X("Vec4i", GfVec4i, )                                                     \
    X("Vec4h", GfVec4h, )                                                     \
    X("Vec4f", GfVec4f, )                                                     \
    X("Vec4d", GfVec4d, )                                                     \
    X("Point", GfVec3d, Point)                                                \
    X("PointFloat", GfVec3f, Point)                                           \
    X("Normal", GfVec3d, Normal)                                              \
    X("NormalFloat", GfVec3f, Normal)                                         \
    X("Vector", GfVec3d, Vector)                                              \
    X("VectorFloat", GfVec3f, Vector)                                         \
    X("Color", GfVec3d, Color)                                                \
    X("ColorFloat", GfVec3f, Color)                                           \
    X("Quath", GfQuath, )                                                     \
    X("Quatf", GfQuatf, )                                                     \
    X("Quatd", GfQuatd, )                                                     \
    X("Matrix2d", GfMatrix2d, )                                               \
    X("Matrix3d", GfMatrix3d, )                                               \
    X("Matrix4d", GfMatrix4d, )                                               \
    X("Frame", GfMatrix4d, Frame)                                             \
    X("Transform", GfMatrix4d, Transform)                                     \
    X("PointIndex", int, PointIndex)                                          \
    X("EdgeIndex", int, EdgeIndex)                                            \
    X("FaceIndex", int, FaceIndex)

#define SDF_VALUE_ROLE_NAME_TOKENS(X)                                         \
    X(Point, "Point")                                                         \
    X(Normal, "Normal")                                                       \
    X(Vector, "Vector")                                                       \
    X(Color, "Color")                                                         \
    X(Frame, "Frame")                                                         \
    X(Transform, "Transform")                                                 \
    X(PointIndex, "PointIndex")                                               \
    X(EdgeIndex, "EdgeIndex")                                                 \
    X(FaceIndex, "FaceIndex")                                                 \
    X(Group, "Group")                                                         \
    X(TextureCoordinate, "TextureCoordinate")

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_PUBLIC_TOKENS(SdfValueRoleNames, SDF_VALUE_ROLE_NAME_TOKENS);

struct Sdf_ValueTypeImpl;

/// The type of an attribute's value as layers name it: the C++ type it
/// holds plus a role ("point3f" and "float3" both hold GfVec3f). Names are
/// registered once (SdfValueTypeNames, SdfSchema::FindType); a
/// default-constructed name is invalid. Two names of one C++ type and role
/// ("float3" and the older "Vec3f") are one type: they compare equal.
class SdfValueTypeName
{
public:
    SdfValueTypeName() = default;

    /// The name this one was found by: "float3", "point3f[]", "Vec3f"...
    TfToken GetAsToken() const;
    /// Every name of this type, the current one first ("float3", "Vec3f").
    const std::vector<TfToken>& GetAliasesAsTokens() const;
    /// "GfVec3f", "VtArray<GfVec3f>"...
    const std::string& GetCPPTypeName() const;
    /// The role token ("Point", "Color"...), empty for none.
    const TfToken& GetRole() const;
    /// The value of an unauthored attribute of this type: zero, false, the
    /// empty string, identity matrices and quaternions, or an empty array.
    const VtValue& GetDefaultValue() const;

    SdfValueTypeName GetScalarType() const;
    SdfValueTypeName GetArrayType() const;
    bool IsScalar() const;
    bool IsArray() const;

    size_t GetHash() const;

    explicit operator bool() const { return _impl != nullptr; }
    bool operator==(const SdfValueTypeName& rhs) const;
    bool operator!=(const SdfValueTypeName& rhs) const { return !(*this == rhs); }
    /// True when \p rhs is one of the type's names.
    bool operator==(const std::string& rhs) const;
    bool operator!=(const std::string& rhs) const { return !(*this == rhs); }
    bool operator==(const TfToken& rhs) const;
    bool operator!=(const TfToken& rhs) const { return !(*this == rhs); }

private:
    friend class Sdf_ValueTypeRegistry;
    explicit SdfValueTypeName(const Sdf_ValueTypeImpl* impl) : _impl(impl) {}

    const Sdf_ValueTypeImpl* _impl = nullptr;
};

inline size_t hash_value(const SdfValueTypeName& name) { return name.GetHash(); }

std::ostream& operator<<(std::ostream& out, const SdfValueTypeName& name);

#define SDF_VALUE_TYPE_NAME_MEMBERS_(member, name, type, role)                \
    SdfValueTypeName member;                                                  \
    SdfValueTypeName member##Array;

/// SdfValueTypeNames->Float3, ->Point3fArray, ...
struct Sdf_ValueTypeNamesType {
    Sdf_ValueTypeNamesType();
    SDF_VALUE_TYPES(SDF_VALUE_TYPE_NAME_MEMBERS_)
};

#undef SDF_VALUE_TYPE_NAME_MEMBERS_

extern TfStaticData<Sdf_ValueTypeNamesType> SdfValueTypeNames;

PXR_NAMESPACE_CLOSE_SCOPE
