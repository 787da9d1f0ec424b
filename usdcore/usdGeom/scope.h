#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/imageable.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A grouping prim without a transformation of its own.
class UsdGeomScope : public UsdGeomImageable
{
public:
    explicit UsdGeomScope(const UsdPrim& prim = UsdPrim()) : UsdGeomImageable(prim) {}
    explicit UsdGeomScope(const UsdSchemaBase& schemaObj) : UsdGeomImageable(schemaObj) {}

    static UsdGeomScope Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomScope(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
