#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/schemaBase.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The base of API schemas: views that add properties and behaviour to a
/// prim of any type. An API view is true for any valid prim.
class UsdAPISchemaBase : public UsdSchemaBase
{
public:
    explicit UsdAPISchemaBase(const UsdPrim& prim = UsdPrim()) : UsdSchemaBase(prim) {}
    explicit UsdAPISchemaBase(const UsdSchemaBase& schemaObj) : UsdSchemaBase(schemaObj.GetPrim()) {}
};

PXR_NAMESPACE_CLOSE_SCOPE
