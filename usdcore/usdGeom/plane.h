#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/gprim.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A rectangle centred on the origin, facing along its axis.
class UsdGeomPlane : public UsdGeomGprim
{
public:
    explicit UsdGeomPlane(const UsdPrim& prim = UsdPrim()) : UsdGeomGprim(prim) {}
    explicit UsdGeomPlane(const UsdSchemaBase& schemaObj) : UsdGeomGprim(schemaObj) {}

    static UsdGeomPlane Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomPlane(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// double width = 2: its size along X, or along Z for axis "X".
    UsdAttribute GetWidthAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->width); }
    /// double length = 2: its size along Y, or along Z for axis "Y".
    UsdAttribute GetLengthAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->length); }
    /// uniform token axis = "Z" ("X", "Y", "Z"): the direction it faces.
    UsdAttribute GetAxisAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->axis); }

    /// width/2 and length/2 either way in the plane, nothing along the axis; false for an axis
    /// other than X, Y or Z.
    static bool ComputeExtent(double width, double length, const TfToken& axis, VtVec3fArray* extent);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
