#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/xformable.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A transformable grouping prim.
class UsdGeomXform : public UsdGeomXformable
{
public:
    explicit UsdGeomXform(const UsdPrim& prim = UsdPrim()) : UsdGeomXformable(prim) {}
    explicit UsdGeomXform(const UsdSchemaBase& schemaObj) : UsdGeomXformable(schemaObj) {}

    static UsdGeomXform Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomXform(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
