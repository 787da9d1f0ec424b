#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/gprim.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A closed cylinder centred on the origin along its axis.
class UsdGeomCylinder : public UsdGeomGprim
{
public:
    explicit UsdGeomCylinder(const UsdPrim& prim = UsdPrim()) : UsdGeomGprim(prim) {}
    explicit UsdGeomCylinder(const UsdSchemaBase& schemaObj) : UsdGeomGprim(schemaObj) {}

    static UsdGeomCylinder Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomCylinder(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// double height = 2: its length along the axis.
    UsdAttribute GetHeightAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->height); }
    /// double radius = 1.
    UsdAttribute GetRadiusAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->radius); }
    /// uniform token axis = "Z" ("X", "Y", "Z").
    UsdAttribute GetAxisAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->axis); }

    /// height/2 either way along the axis, radius across it; false for an axis other than X, Y or
    /// Z.
    static bool ComputeExtent(double height, double radius, const TfToken& axis, VtVec3fArray* extent);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
