#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/xformable.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A transformable prim with an extent (its local bounding box).
class UsdGeomBoundable : public UsdGeomXformable
{
public:
    explicit UsdGeomBoundable(const UsdPrim& prim = UsdPrim()) : UsdGeomXformable(prim) {}
    explicit UsdGeomBoundable(const UsdSchemaBase& schemaObj) : UsdGeomXformable(schemaObj) {}

    static UsdGeomBoundable Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomBoundable(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// float3[] extent: the minimum and the maximum corner.
    UsdAttribute GetExtentAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->extent); }

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
