#include "usdcore/usd/schemaRegistry.h"

#include "usdcore/sdf/schema.h"
#include "usdcore/vt/types.h"

#include <unordered_map>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

struct SchemaType {
    const char* name;
    /// The schema it derives from; empty for the root of the hierarchy.
    const char* base;
};

// Every typed schema the stage knows, with the schema it derives from.
constexpr SchemaType kSchemaTypes[] = {
    {"Typed", ""},
    // Geometry
    {"Imageable", "Typed"},
    {"Scope", "Imageable"},
    {"Xformable", "Imageable"},
    {"Xform", "Xformable"},
    {"Camera", "Xformable"},
    {"Boundable", "Xformable"},
    {"PointInstancer", "Boundable"},
    {"Gprim", "Boundable"},
    {"Cube", "Gprim"},
    {"Sphere", "Gprim"},
    {"Cylinder", "Gprim"},
    {"Cone", "Gprim"},
    {"Capsule", "Gprim"},
    {"Plane", "Gprim"},
    {"PointBased", "Gprim"},
    {"Mesh", "PointBased"},
    {"Points", "PointBased"},
    {"NurbsPatch", "PointBased"},
    {"Curves", "PointBased"},
    {"BasisCurves", "Curves"},
    {"NurbsCurves", "Curves"},
    {"GeomSubset", "Typed"},
    // Shading
    {"NodeGraph", "Typed"},
    {"Material", "NodeGraph"},
    {"Shader", "Typed"},
    // Skeletons
    {"SkelRoot", "Boundable"},
    {"Skeleton", "Boundable"},
    {"SkelAnimation", "Typed"},
    {"BlendShape", "Typed"},
    // Lights
    {"Light", "Xformable"},
    {"DistantLight", "Light"},
    {"DomeLight", "Light"},
    {"SphereLight", "Light"},
    {"RectLight", "Light"},
    {"DiskLight", "Light"},
    {"CylinderLight", "Light"},
    {"GeometryLight", "Light"},
    {"LightFilter", "Xformable"},
    {"LightPortal", "Xformable"},
    // Volumes
    {"Volume", "Gprim"},
    {"FieldBase", "Xformable"},
    {"FieldAsset", "FieldBase"},
    {"OpenVDBAsset", "FieldAsset"},
    {"Field3DAsset", "FieldAsset"},
};

struct AttributeRow {
    const char* schema;
    const char* name;
    const char* typeName;
    SdfVariability variability;
    VtValue fallback;
};

VtValue Token(const char* text)
{
    return VtValue(TfToken(text));
}

VtValue Extent(float minX, float minY, float minZ, float maxX, float maxY, float maxZ)
{
    return VtValue(VtVec3fArray{GfVec3f(minX, minY, minZ), GfVec3f(maxX, maxY, maxZ)});
}

const SdfVariability kUniform = SdfVariabilityUniform;
const SdfVariability kVarying = SdfVariabilityVarying;

// The attributes each typed schema defines, with the fallback values its
// definition gives (none where the definition declares the attribute only).
std::vector<AttributeRow> AttributeRows()
{
    return {
        {"Imageable", "visibility", "token", kVarying, Token("inherited")},
        {"Imageable", "purpose", "token", kUniform, Token("default")},
        {"Xformable", "xformOpOrder", "token[]", kUniform, VtValue()},
        {"Boundable", "extent", "float3[]", kVarying, VtValue()},
        {"Gprim", "primvars:displayColor", "color3f[]", kVarying, VtValue()},
        {"Gprim", "primvars:displayOpacity", "float[]", kVarying, VtValue()},
        {"Gprim", "doubleSided", "bool", kUniform, VtValue(false)},
        {"Gprim", "orientation", "token", kUniform, Token("rightHanded")},
        {"PointBased", "points", "point3f[]", kVarying, VtValue()},
        {"PointBased", "velocities", "vector3f[]", kVarying, VtValue()},
        {"PointBased", "normals", "normal3f[]", kVarying, VtValue()},
        // The implicit shapes: the extent fallback of each is the box of its
        // own fallback sizes.
        {"Cube", "size", "double", kVarying, VtValue(2.0)},
        {"Cube", "extent", "float3[]", kVarying, Extent(-1, -1, -1, 1, 1, 1)},
        {"Sphere", "radius", "double", kVarying, VtValue(1.0)},
        {"Sphere", "extent", "float3[]", kVarying, Extent(-1, -1, -1, 1, 1, 1)},
        {"Cylinder", "height", "double", kVarying, VtValue(2.0)},
        {"Cylinder", "radius", "double", kVarying, VtValue(1.0)},
        {"Cylinder", "axis", "token", kUniform, Token("Z")},
        {"Cylinder", "extent", "float3[]", kVarying, Extent(-1, -1, -1, 1, 1, 1)},
        {"Cone", "height", "double", kVarying, VtValue(2.0)},
        {"Cone", "radius", "double", kVarying, VtValue(1.0)},
        {"Cone", "axis", "token", kUniform, Token("Z")},
        {"Cone", "extent", "float3[]", kVarying, Extent(-1, -1, -1, 1, 1, 1)},
        {"Capsule", "height", "double", kVarying, VtValue(1.0)},
        {"Capsule", "radius", "double", kVarying, VtValue(0.5)},
        {"Capsule", "axis", "token", kUniform, Token("Z")},
        {"Capsule", "extent", "float3[]", kVarying, Extent(-0.5f, -0.5f, -1, 0.5f, 0.5f, 1)},
        {"Plane", "width", "double", kVarying, VtValue(2.0)},
        {"Plane", "length", "double", kVarying, VtValue(2.0)},
        {"Plane", "axis", "token", kUniform, Token("Z")},
        {"Plane", "doubleSided", "bool", kUniform, VtValue(true)},
        {"Plane", "extent", "float3[]", kVarying, Extent(-1, -1, 0, 1, 1, 0)},
        {"Mesh", "faceVertexIndices", "int[]", kVarying, VtValue()},
        {"Mesh", "faceVertexCounts", "int[]", kVarying, VtValue()},
        {"Mesh", "subdivisionScheme", "token", kUniform, Token("catmullClark")},
        {"Mesh", "interpolateBoundary", "token", kVarying, Token("edgeAndCorner")},
        {"Mesh", "faceVaryingLinearInterpolation", "token", kVarying, Token("cornersPlus1")},
        {"Mesh", "triangleSubdivisionRule", "token", kVarying, Token("catmullClark")},
        {"Mesh", "holeIndices", "int[]", kVarying, VtValue(VtIntArray())},
        {"Mesh", "cornerIndices", "int[]", kVarying, VtValue(VtIntArray())},
        {"Mesh", "cornerSharpnesses", "float[]", kVarying, VtValue(VtFloatArray())},
        {"Mesh", "creaseIndices", "int[]", kVarying, VtValue(VtIntArray())},
        {"Mesh", "creaseLengths", "int[]", kVarying, VtValue(VtIntArray())},
        {"Mesh", "creaseSharpnesses", "float[]", kVarying, VtValue(VtFloatArray())},
        {"GeomSubset", "elementType", "token", kUniform, Token("face")},
        {"GeomSubset", "indices", "int[]", kVarying, VtValue(VtIntArray())},
        {"GeomSubset", "familyName", "token", kUniform, Token("")},
        {"Shader", "info:implementationSource", "token", kUniform, Token("id")},
        {"Shader", "info:id", "token", kUniform, VtValue()},
        {"Skeleton", "joints", "token[]", kUniform, VtValue()},
        {"Skeleton", "jointNames", "token[]", kUniform, VtValue()},
        {"Skeleton", "bindTransforms", "matrix4d[]", kUniform, VtValue()},
        {"Skeleton", "restTransforms", "matrix4d[]", kUniform, VtValue()},
        {"SkelAnimation", "joints", "token[]", kUniform, VtValue()},
        {"SkelAnimation", "translations", "float3[]", kVarying, VtValue()},
        {"SkelAnimation", "rotations", "quatf[]", kVarying, VtValue()},
        {"SkelAnimation", "scales", "half3[]", kVarying, VtValue()},
        {"SkelAnimation", "blendShapes", "token[]", kUniform, VtValue()},
        {"SkelAnimation", "blendShapeWeights", "float[]", kVarying, VtValue()},
        {"BlendShape", "offsets", "vector3f[]", kUniform, VtValue()},
        {"BlendShape", "normalOffsets", "vector3f[]", kUniform, VtValue()},
        {"BlendShape", "pointIndices", "int[]", kUniform, VtValue()},
    };
}

struct TypeInfo {
    /// The type and the schemas it derives from, nearest first.
    std::vector<TfToken> lineage;
    std::vector<const Usd_BuiltinAttribute*> attributes;
};

class Registry
{
public:
    Registry()
    {
        std::unordered_map<TfToken, TfToken, TfToken::HashFunctor> bases;
        for (const SchemaType& type : kSchemaTypes) bases.emplace(TfToken(type.name), TfToken(type.base));

        const std::vector<AttributeRow> rows = AttributeRows();
        _attributes.reserve(rows.size());
        std::unordered_map<TfToken, std::vector<const Usd_BuiltinAttribute*>, TfToken::HashFunctor> own;
        for (const AttributeRow& row : rows) {
            _attributes.push_back({TfToken(row.name), SdfSchema::GetInstance().FindType(row.typeName),
                                   row.variability, row.fallback});
            own[TfToken(row.schema)].push_back(&_attributes.back());
        }

        for (const auto& [name, base] : bases) {
            TypeInfo& info = _types[name];
            // The table is acyclic; the bound only guards against a row
            // added by mistake that closes a loop.
            for (TfToken type = name; !type.IsEmpty() && info.lineage.size() < bases.size();) {
                info.lineage.push_back(type);
                const auto found = own.find(type);
                if (found != own.end()) {
                    info.attributes.insert(info.attributes.end(), found->second.begin(), found->second.end());
                }
                const auto next = bases.find(type);
                type = next == bases.end() ? TfToken() : next->second;
            }
        }
    }

    const TypeInfo* Find(const TfToken& typeName) const
    {
        const auto found = _types.find(typeName);
        return found == _types.end() ? nullptr : &found->second;
    }

private:
    std::vector<Usd_BuiltinAttribute> _attributes;
    std::unordered_map<TfToken, TypeInfo, TfToken::HashFunctor> _types;
};

const Registry& GetRegistry()
{
    static const Registry registry;
    return registry;
}

} // namespace

bool Usd_SchemaTypeIsA(const TfToken& typeName, const TfToken& schemaTypeName)
{
    const TypeInfo* info = GetRegistry().Find(typeName);
    if (!info) return false;
    for (const TfToken& type : info->lineage) {
        if (type == schemaTypeName) return true;
    }
    return false;
}

const std::vector<const Usd_BuiltinAttribute*>& Usd_GetBuiltinAttributes(const TfToken& typeName)
{
    static const std::vector<const Usd_BuiltinAttribute*> none;
    const TypeInfo* info = GetRegistry().Find(typeName);
    return info ? info->attributes : none;
}

const Usd_BuiltinAttribute* Usd_FindBuiltinAttribute(const TfToken& typeName, const TfToken& attrName)
{
    for (const Usd_BuiltinAttribute* attribute : Usd_GetBuiltinAttributes(typeName)) {
        if (attribute->name == attrName) return attribute;
    }
    return nullptr;
}

PXR_NAMESPACE_CLOSE_SCOPE
