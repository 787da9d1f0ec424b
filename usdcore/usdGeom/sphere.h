#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/gprim.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A sphere centred on the origin.
class UsdGeomSphere : public UsdGeomGprim
{
public:
    explicit UsdGeomSphere(const UsdPrim& prim = UsdPrim()) : UsdGeomGprim(prim) {}
    explicit UsdGeomSphere(const UsdSchemaBase& schemaObj) : UsdGeomGprim(schemaObj) {}

    static UsdGeomSphere Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomSphere(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// double radius = 1.
    UsdAttribute GetRadiusAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->radius); }

    /// The box from -radius to radius on every axis.
    static bool ComputeExtent(double radius, VtVec3fArray* extent);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
