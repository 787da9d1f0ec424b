#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usdGeom/boundable.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A joint hierarchy with its bind and rest poses. Every array attribute is
/// indexed by joint, in the order of "joints". True for prims of type
/// "Skeleton" and derived types.
class UsdSkelSkeleton : public UsdGeomBoundable
{
public:
    explicit UsdSkelSkeleton(const UsdPrim& prim = UsdPrim()) : UsdGeomBoundable(prim) {}
    explicit UsdSkelSkeleton(const UsdSchemaBase& schemaObj) : UsdGeomBoundable(schemaObj) {}

    static UsdSkelSkeleton Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdSkelSkeleton(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// uniform token[] joints: joint paths ("Hips", "Hips/Spine"), whose
    /// nesting gives the hierarchy.
    UsdAttribute GetJointsAttr() const;
    /// uniform token[] jointNames: optional display names of the joints.
    UsdAttribute GetJointNamesAttr() const;
    /// uniform matrix4d[] bindTransforms: each joint's world-space transform
    /// at bind time.
    UsdAttribute GetBindTransformsAttr() const;
    /// uniform matrix4d[] restTransforms: each joint's transform relative to
    /// its parent joint when no animation applies.
    UsdAttribute GetRestTransformsAttr() const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
