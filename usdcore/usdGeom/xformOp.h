#pragma once

#include "usdcore/gf/matrix4d.h"
#include "usdcore/pxr.h"
#include "usdcore/sdf/valueTypeName.h"
#include "usdcore/tf/staticTokens.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/timeCode.h"
#include "usdcore/vt/value.h"

#include <string>
#include <vector>

// The operation names that may follow "xformOp:" in an attribute name, in
// the order of UsdGeomXformOp::Type, and the marker that, in xformOpOrder,
// discards the parent transforms.
#define USDGEOM_XFORM_OP_TYPES(X)                                             \
    X(translate, "translate")                                                 \
    X(scale, "scale")                                                         \
    X(rotateX, "rotateX")                                                     \
    X(rotateY, "rotateY")                                                     \
    X(rotateZ, "rotateZ")                                                     \
    X(rotateXYZ, "rotateXYZ")                                                 \
    X(rotateXZY, "rotateXZY")                                                 \
    X(rotateYXZ, "rotateYXZ")                                                 \
    X(rotateYZX, "rotateYZX")                                                 \
    X(rotateZXY, "rotateZXY")                                                 \
    X(rotateZYX, "rotateZYX")                                                 \
    X(orient, "orient")                                                       \
    X(transform, "transform")                                                 \
    X(resetXformStack, "!resetXformStack!")

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_PUBLIC_TOKENS(UsdGeomXformOpTypes, USDGEOM_XFORM_OP_TYPES);

/// One transform operation of a prim: an attribute named
/// "xformOp:<type>[:<suffix>]" ("xformOp:translate:pivot"), possibly used
/// inverted ("!invert!xformOp:translate:pivot" in xformOpOrder).
///
/// Angles are in degrees; a positive angle turns counter-clockwise looking
/// down the axis towards the origin. Matrices act on row vectors
/// (p' = p * M).
class UsdGeomXformOp
{
public:
    enum Type {
        TypeInvalid,
        TypeTranslate,
        TypeScale,
        TypeRotateX,
        TypeRotateY,
        TypeRotateZ,
        TypeRotateXYZ,
        TypeRotateXZY,
        TypeRotateYXZ,
        TypeRotateYZX,
        TypeRotateZXY,
        TypeRotateZYX,
        TypeOrient,
        TypeTransform,
    };

    enum Precision {
        PrecisionDouble,
        PrecisionFloat,
        PrecisionHalf,
    };

    UsdGeomXformOp() = default;
    /// The operation of \p attr; false unless \p attr is valid and named
    /// "xformOp:<known type>...".
    explicit UsdGeomXformOp(const UsdAttribute& attr, bool isInverseOp = false);

    /// True when \p attr is valid and in the "xformOp:" namespace.
    static bool IsXformOp(const UsdAttribute& attr);
    static bool IsXformOp(const TfToken& attrName);
    static const TfToken& GetOpTypeToken(Type opType);
    /// The type named \p opTypeToken; TypeInvalid (with a coding error
    /// unless the token is empty) for an unknown name.
    static Type GetOpTypeEnum(const TfToken& opTypeToken);
    static Precision GetPrecisionFromValueTypeName(const SdfValueTypeName& typeName);
    static const SdfValueTypeName& GetValueTypeName(Type opType, Precision precision);
    /// "xformOp:<type>[:<suffix>]", with "!invert!" in front when inverse.
    static TfToken GetOpName(Type opType, const TfToken& opSuffix = TfToken(), bool inverse = false);

    /// The matrix of an operation of \p opType with value \p opVal; the
    /// identity, with a coding error, when the value does not suit the type.
    static GfMatrix4d GetOpTransform(Type opType, const VtValue& opVal, bool isInverseOp = false);

    /// The name as xformOpOrder lists it ("!invert!" included).
    TfToken GetOpName() const;
    Type GetOpType() const { return _opType; }
    Precision GetPrecision() const { return GetPrecisionFromValueTypeName(GetTypeName()); }
    bool IsInverseOp() const { return _isInverseOp; }
    bool HasSuffix(const TfToken& suffix) const;

    /// The operation's matrix at \p time; the identity when it has no value.
    GfMatrix4d GetOpTransform(UsdTimeCode time) const;
    bool MightBeTimeVarying() const { return _attr.ValueMightBeTimeVarying(); }

    const UsdAttribute& GetAttr() const { return _attr; }
    bool IsDefined() const { return _attr.IsValid() && _opType != TypeInvalid; }
    explicit operator bool() const { return IsDefined(); }
    const TfToken& GetName() const { return _attr.GetName(); }
    TfToken GetBaseName() const { return _attr.GetBaseName(); }
    TfToken GetNamespace() const { return _attr.GetNamespace(); }
    std::vector<std::string> SplitName() const { return _attr.SplitName(); }
    SdfValueTypeName GetTypeName() const { return _attr.GetTypeName(); }

    template <class T>
    bool Get(T* value, UsdTimeCode time = UsdTimeCode::Default()) const
    {
        return _attr.Get(value, time);
    }
    bool GetTimeSamples(std::vector<double>* times) const { return _attr.GetTimeSamples(times); }
    size_t GetNumTimeSamples() const { return _attr.GetNumTimeSamples(); }

    friend bool operator==(const UsdGeomXformOp& lhs, const UsdGeomXformOp& rhs)
    {
        return lhs._attr == rhs._attr && lhs._isInverseOp == rhs._isInverseOp;
    }
    friend bool operator!=(const UsdGeomXformOp& lhs, const UsdGeomXformOp& rhs) { return !(lhs == rhs); }

private:
    friend class UsdGeomXformable;
    /// The attribute that xformOpOrder entry \p opName names, and whether
    /// the entry inverts it.
    static UsdAttribute _GetXformOpAttr(const UsdPrim& prim, const TfToken& opName, bool* isInverseOp);

    UsdAttribute _attr;
    Type _opType = TypeInvalid;
    bool _isInverseOp = false;
};

PXR_NAMESPACE_CLOSE_SCOPE
