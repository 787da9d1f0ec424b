#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/schemaBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The base of schemas that give a prim its type. A typed view is true
/// only for prims whose type is the schema's type or derives from it.
///
/// Each derived schema names its type with `_GetStaticTypeName()` and
/// returns it from `_GetSchemaTypeName()`.
class UsdTyped : public UsdSchemaBase
{
public:
    explicit UsdTyped(const UsdPrim& prim = UsdPrim()) : UsdSchemaBase(prim) {}
    explicit UsdTyped(const UsdSchemaBase& schemaObj) : UsdSchemaBase(schemaObj.GetPrim()) {}

    static UsdTyped Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdTyped(Usd_SchemaGetPrim(stage, path));
    }

    static const TfToken& _GetStaticTypeName();

protected:
    virtual const TfToken& _GetSchemaTypeName() const { return _GetStaticTypeName(); }
    bool _IsCompatible() const override { return GetPrim().IsA(_GetSchemaTypeName()); }
};

PXR_NAMESPACE_CLOSE_SCOPE
