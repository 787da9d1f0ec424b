#include "usdcore/usdGeom/xformOp.h"

#include "usdcore/gf/math.h"
#include "usdcore/gf/rotation.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/gf/vec3f.h"
#include "usdcore/gf/vec3h.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/quath.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/tf/stringUtils.h"
#include "usdcore/usd/prim.h"

#include <sstream>

PXR_NAMESPACE_OPEN_SCOPE

TF_DEFINE_PUBLIC_TOKENS(UsdGeomXformOpTypes, USDGEOM_XFORM_OP_TYPES);

namespace {

const std::string kXformOpPrefix = "xformOp:";
const std::string kInvertPrefix = "!invert!";

std::string Describe(const VtValue& value)
{
    std::ostringstream out;
    out << value;
    return out.str();
}

GfMatrix4d Rotation(const GfVec3d& axis, double degrees)
{
    return GfMatrix4d(1.0).SetRotate(GfRotation(axis, degrees));
}

// The matrix of a three-angle rotation: the angles are applied to the
// point in the order the type names them, so rotateXYZ is X * Y * Z for
// row vectors. The inverse undoes them in the opposite order.
GfMatrix4d EulerRotation(UsdGeomXformOp::Type opType, const GfVec3d& angles, bool inverse)
{
    const GfVec3d applied = inverse ? -angles : angles;
    const GfMatrix4d x = Rotation(GfVec3d::XAxis(), applied[0]);
    const GfMatrix4d y = Rotation(GfVec3d::YAxis(), applied[1]);
    const GfMatrix4d z = Rotation(GfVec3d::ZAxis(), applied[2]);
    const auto ordered = [inverse](const GfMatrix4d& first, const GfMatrix4d& second, const GfMatrix4d& third) {
        return inverse ? third * second * first : first * second * third;
    };
    switch (opType) {
    case UsdGeomXformOp::TypeRotateXYZ: return ordered(x, y, z);
    case UsdGeomXformOp::TypeRotateXZY: return ordered(x, z, y);
    case UsdGeomXformOp::TypeRotateYXZ: return ordered(y, x, z);
    case UsdGeomXformOp::TypeRotateYZX: return ordered(y, z, x);
    case UsdGeomXformOp::TypeRotateZXY: return ordered(z, x, y);
    case UsdGeomXformOp::TypeRotateZYX: return ordered(z, y, x);
    default: return GfMatrix4d(1.0);
    }
}

bool AsDouble(const VtValue& value, double* result)
{
    if (value.IsHolding<double>()) *result = value.UncheckedGet<double>();
    else if (value.IsHolding<float>()) *result = value.UncheckedGet<float>();
    else if (value.IsHolding<GfHalf>()) *result = value.UncheckedGet<GfHalf>();
    else return false;
    return true;
}

bool AsVec3d(const VtValue& value, GfVec3d* result)
{
    if (value.IsHolding<GfVec3d>()) *result = value.UncheckedGet<GfVec3d>();
    else if (value.IsHolding<GfVec3f>()) *result = GfVec3d(value.UncheckedGet<GfVec3f>());
    else if (value.IsHolding<GfVec3h>()) *result = GfVec3d(value.UncheckedGet<GfVec3h>());
    else return false;
    return true;
}

bool AsQuatd(const VtValue& value, GfQuatd* result)
{
    if (value.IsHolding<GfQuatd>()) *result = value.UncheckedGet<GfQuatd>();
    else if (value.IsHolding<GfQuatf>()) *result = GfQuatd(value.UncheckedGet<GfQuatf>());
    else if (value.IsHolding<GfQuath>()) *result = GfQuatd(value.UncheckedGet<GfQuath>());
    else return false;
    return true;
}

bool AsMatrix4d(const VtValue& value, GfMatrix4d* result)
{
    if (value.IsHolding<GfMatrix4d>()) *result = value.UncheckedGet<GfMatrix4d>();
    else if (value.IsHolding<GfMatrix4f>()) *result = GfMatrix4d(value.UncheckedGet<GfMatrix4f>());
    else return false;
    return true;
}

// The matrix of \p opType for \p value, or false when the value's type
// does not suit the operation.
bool OpMatrix(UsdGeomXformOp::Type opType, const VtValue& value, bool inverse, GfMatrix4d* matrix)
{
    double angle = 0.0;
    GfVec3d vector;
    GfQuatd quat;
    switch (opType) {
    case UsdGeomXformOp::TypeTransform:
        if (!AsMatrix4d(value, matrix)) return false;
        if (inverse) {
            double determinant = 0.0;
            *matrix = matrix->GetInverse(&determinant);
            if (GfIsClose(determinant, 0.0, 1e-9)) {
                TF_CODING_ERROR("cannot invert the singular transform op value %s", Describe(value).c_str());
            }
        }
        return true;
    case UsdGeomXformOp::TypeTranslate:
        if (!AsVec3d(value, &vector)) return false;
        matrix->SetTranslate(inverse ? -vector : vector);
        return true;
    case UsdGeomXformOp::TypeScale:
        if (!AsVec3d(value, &vector)) return false;
        if (inverse) vector = GfVec3d(1.0 / vector[0], 1.0 / vector[1], 1.0 / vector[2]);
        matrix->SetScale(vector);
        return true;
    case UsdGeomXformOp::TypeRotateX:
    case UsdGeomXformOp::TypeRotateY:
    case UsdGeomXformOp::TypeRotateZ:
        if (!AsDouble(value, &angle)) return false;
        *matrix = Rotation(GfVec3d::Axis(opType - UsdGeomXformOp::TypeRotateX), inverse ? -angle : angle);
        return true;
    case UsdGeomXformOp::TypeRotateXYZ:
    case UsdGeomXformOp::TypeRotateXZY:
    case UsdGeomXformOp::TypeRotateYXZ:
    case UsdGeomXformOp::TypeRotateYZX:
    case UsdGeomXformOp::TypeRotateZXY:
    case UsdGeomXformOp::TypeRotateZYX:
        if (!AsVec3d(value, &vector)) return false;
        *matrix = EulerRotation(opType, vector, inverse);
        return true;
    case UsdGeomXformOp::TypeOrient: {
        if (!AsQuatd(value, &quat)) return false;
        // Through a rotation, so that a quaternion that is not of unit
        // length still gives a pure rotation.
        const GfRotation rotation(quat);
        matrix->SetRotate(inverse ? rotation.GetInverse() : rotation);
        return true;
    }
    case UsdGeomXformOp::TypeInvalid: break;
    }
    return false;
}

} // namespace

UsdGeomXformOp::UsdGeomXformOp(const UsdAttribute& attr, bool isInverseOp) : _attr(attr), _isInverseOp(isInverseOp)
{
    // An invalid attribute makes a false op without complaint.
    if (!attr) return;
    const std::vector<std::string> components = attr.SplitName();
    if (!IsXformOp(attr.GetName()) || components.size() < 2) {
        TF_CODING_ERROR("invalid xform op <%s>", attr.GetPath().GetText());
        return;
    }
    _opType = GetOpTypeEnum(TfToken(components[1]));
}

bool UsdGeomXformOp::IsXformOp(const UsdAttribute& attr)
{
    return attr.IsValid() && IsXformOp(attr.GetName());
}

bool UsdGeomXformOp::IsXformOp(const TfToken& attrName)
{
    return TfStringStartsWith(attrName.GetString(), kXformOpPrefix);
}

const TfToken& UsdGeomXformOp::GetOpTypeToken(Type opType)
{
    static const TfToken empty;
    if (opType < TypeTranslate || opType > TypeTransform) return empty;
    return UsdGeomXformOpTypes->allTokens[opType - TypeTranslate];
}

UsdGeomXformOp::Type UsdGeomXformOp::GetOpTypeEnum(const TfToken& opTypeToken)
{
    for (int type = TypeTranslate; type <= TypeTransform; ++type) {
        if (GetOpTypeToken(Type(type)) == opTypeToken) return Type(type);
    }
    if (!opTypeToken.IsEmpty()) TF_CODING_ERROR("invalid xform op type '%s'", opTypeToken.GetText());
    return TypeInvalid;
}

UsdGeomXformOp::Precision UsdGeomXformOp::GetPrecisionFromValueTypeName(const SdfValueTypeName& typeName)
{
    const SdfValueTypeName doubles[] = {SdfValueTypeNames->Matrix4d, SdfValueTypeNames->Double3,
                                        SdfValueTypeNames->Double, SdfValueTypeNames->Quatd};
    const SdfValueTypeName floats[] = {SdfValueTypeNames->Float3, SdfValueTypeNames->Float,
                                       SdfValueTypeNames->Quatf};
    const SdfValueTypeName halves[] = {SdfValueTypeNames->Half3, SdfValueTypeNames->Half, SdfValueTypeNames->Quath};
    for (const SdfValueTypeName& name : doubles) {
        if (typeName == name) return PrecisionDouble;
    }
    for (const SdfValueTypeName& name : floats) {
        if (typeName == name) return PrecisionFloat;
    }
    for (const SdfValueTypeName& name : halves) {
        if (typeName == name) return PrecisionHalf;
    }
    TF_CODING_ERROR("'%s' is not a value type of an xform op", typeName.GetAsToken().GetText());
    return PrecisionDouble;
}

const SdfValueTypeName& UsdGeomXformOp::GetValueTypeName(Type opType, Precision precision)
{
    const auto byPrecision = [precision](const SdfValueTypeName& d, const SdfValueTypeName& f,
                                         const SdfValueTypeName& h) -> const SdfValueTypeName& {
        return precision == PrecisionFloat ? f : precision == PrecisionHalf ? h : d;
    };
    switch (opType) {
    case TypeTransform:
        // Matrices are stored in double precision only.
        if (precision != PrecisionDouble) {
            TF_CODING_ERROR("a transform op is always of double precision");
        }
        return SdfValueTypeNames->Matrix4d;
    case TypeTranslate:
    case TypeScale:
    case TypeRotateXYZ:
    case TypeRotateXZY:
    case TypeRotateYXZ:
    case TypeRotateYZX:
    case TypeRotateZXY:
    case TypeRotateZYX:
        return byPrecision(SdfValueTypeNames->Double3, SdfValueTypeNames->Float3, SdfValueTypeNames->Half3);
    case TypeRotateX:
    case TypeRotateY:
    case TypeRotateZ:
        return byPrecision(SdfValueTypeNames->Double, SdfValueTypeNames->Float, SdfValueTypeNames->Half);
    case TypeOrient:
        return byPrecision(SdfValueTypeNames->Quatd, SdfValueTypeNames->Quatf, SdfValueTypeNames->Quath);
    case TypeInvalid: break;
    }
    static const SdfValueTypeName none;
    return none;
}

TfToken UsdGeomXformOp::GetOpName(Type opType, const TfToken& opSuffix, bool inverse)
{
    std::string name = kXformOpPrefix + GetOpTypeToken(opType).GetString();
    if (!opSuffix.IsEmpty()) name += ":" + opSuffix.GetString();
    return TfToken(inverse ? kInvertPrefix + name : name);
}

TfToken UsdGeomXformOp::GetOpName() const
{
    return _isInverseOp ? TfToken(kInvertPrefix + GetName().GetString()) : GetName();
}

bool UsdGeomXformOp::HasSuffix(const TfToken& suffix) const
{
    return TfStringEndsWith(GetName().GetString(), suffix.GetString());
}

GfMatrix4d UsdGeomXformOp::GetOpTransform(Type opType, const VtValue& opVal, bool isInverseOp)
{
    GfMatrix4d matrix(1.0);
    if (!OpMatrix(opType, opVal, isInverseOp, &matrix)) {
        TF_CODING_ERROR("an xform op of type '%s' cannot take the value %s; using the identity",
                        GetOpTypeToken(opType).GetText(), Describe(opVal).c_str());
        return GfMatrix4d(1.0);
    }
    return matrix;
}

GfMatrix4d UsdGeomXformOp::GetOpTransform(UsdTimeCode time) const
{
    VtValue value;
    if (!_attr.Get(&value, time)) return GfMatrix4d(1.0);
    return GetOpTransform(_opType, value, _isInverseOp);
}

UsdAttribute UsdGeomXformOp::_GetXformOpAttr(const UsdPrim& prim, const TfToken& opName, bool* isInverseOp)
{
    const std::string& name = opName.GetString();
    *isInverseOp = TfStringStartsWith(name, kInvertPrefix + kXformOpPrefix);
    return prim.GetAttribute(*isInverseOp ? TfToken(name.substr(kInvertPrefix.size())) : opName);
}

PXR_NAMESPACE_CLOSE_SCOPE
