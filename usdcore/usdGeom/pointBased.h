#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/gprim.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A primitive made of points, with optional velocities and normals.
class UsdGeomPointBased : public UsdGeomGprim
{
public:
    explicit UsdGeomPointBased(const UsdPrim& prim = UsdPrim()) : UsdGeomGprim(prim) {}
    explicit UsdGeomPointBased(const UsdSchemaBase& schemaObj) : UsdGeomGprim(schemaObj) {}

    static UsdGeomPointBased Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomPointBased(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// point3f[] points.
    UsdAttribute GetPointsAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->points); }
    /// vector3f[] velocities.
    UsdAttribute GetVelocitiesAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->velocities); }
    /// normal3f[] normals.
    UsdAttribute GetNormalsAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->normals); }

    /// The "interpolation" metadata of the normals attribute, "vertex" when
    /// it is not authored.
    TfToken GetNormalsInterpolation() const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
