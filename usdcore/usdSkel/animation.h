#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/timeCode.h"
#include "usdcore/usd/typed.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// Joint and blend shape animation, per joint in the order of its own
/// "joints" (which may list a skeleton's joints in another order, or only
/// some of them). True for prims of type "SkelAnimation" and derived types.
class UsdSkelAnimation : public UsdTyped
{
public:
    explicit UsdSkelAnimation(const UsdPrim& prim = UsdPrim()) : UsdTyped(prim) {}
    explicit UsdSkelAnimation(const UsdSchemaBase& schemaObj) : UsdTyped(schemaObj) {}

    static UsdSkelAnimation Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdSkelAnimation(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// uniform token[] joints: the joint paths the other arrays follow.
    UsdAttribute GetJointsAttr() const;
    /// float3[] translations, joint-local.
    UsdAttribute GetTranslationsAttr() const;
    /// quatf[] rotations, joint-local, real part first.
    UsdAttribute GetRotationsAttr() const;
    /// half3[] scales, joint-local.
    UsdAttribute GetScalesAttr() const;
    /// uniform token[] blendShapes: the blend shapes the weights follow.
    UsdAttribute GetBlendShapesAttr() const;
    /// float[] blendShapeWeights.
    UsdAttribute GetBlendShapeWeightsAttr() const;

    /// The joint-local matrices at \p time, one per joint, each composed from
    /// the joint's scale, rotation and translation in that order (see
    /// UsdSkelMakeTransform). False, leaving \p xforms as it was, when one of
    /// the three arrays cannot be read or they differ in size.
    bool GetTransforms(VtMatrix4dArray* xforms, UsdTimeCode time = UsdTimeCode::Default()) const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
