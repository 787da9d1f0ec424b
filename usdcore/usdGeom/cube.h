#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/gprim.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A cube centred on the origin, its edges along the axes.
class UsdGeomCube : public UsdGeomGprim
{
public:
    explicit UsdGeomCube(const UsdPrim& prim = UsdPrim()) : UsdGeomGprim(prim) {}
    explicit UsdGeomCube(const UsdSchemaBase& schemaObj) : UsdGeomGprim(schemaObj) {}

    static UsdGeomCube Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomCube(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// double size = 2: the length of its edges.
    UsdAttribute GetSizeAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->size); }

    /// The box from -size/2 to size/2 on every axis.
    static bool ComputeExtent(double size, VtVec3fArray* extent);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
