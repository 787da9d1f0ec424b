#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/imageable.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A prim with a local transformation, made of the ordered transform
/// operations that its xformOpOrder names.
class UsdGeomXformable : public UsdGeomImageable
{
public:
    explicit UsdGeomXformable(const UsdPrim& prim = UsdPrim()) : UsdGeomImageable(prim) {}
    explicit UsdGeomXformable(const UsdSchemaBase& schemaObj) : UsdGeomImageable(schemaObj) {}

    static UsdGeomXformable Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomXformable(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// uniform token[] xformOpOrder.
    UsdAttribute GetXformOpOrderAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->xformOpOrder); }

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
