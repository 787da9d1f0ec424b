#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/apiSchemaBase.h"
#include "usdcore/usdGeom/primvar.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// The primvars of a prim of any type.
class UsdGeomPrimvarsAPI : public UsdAPISchemaBase
{
public:
    explicit UsdGeomPrimvarsAPI(const UsdPrim& prim = UsdPrim()) : UsdAPISchemaBase(prim) {}
    explicit UsdGeomPrimvarsAPI(const UsdSchemaBase& schemaObj) : UsdAPISchemaBase(schemaObj) {}

    static UsdGeomPrimvarsAPI Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomPrimvarsAPI(Usd_SchemaGetPrim(stage, path));
    }

    /// The primvar \p name ("st" or "primvars:st"); false when the prim has
    /// no such primvar.
    UsdGeomPrimvar GetPrimvar(const TfToken& name) const;
    /// Every primvar the prim has, authored or defined by its schema (a
    /// mesh's "primvars:displayColor"), in property order.
    std::vector<UsdGeomPrimvar> GetPrimvars() const;
    /// Only those that some layer authors.
    std::vector<UsdGeomPrimvar> GetAuthoredPrimvars() const;
    /// Only those with a value (authored or fallback).
    std::vector<UsdGeomPrimvar> GetPrimvarsWithValues() const;
    /// Only those with an authored value.
    std::vector<UsdGeomPrimvar> GetPrimvarsWithAuthoredValues() const;
    bool HasPrimvar(const TfToken& name) const;
};

PXR_NAMESPACE_CLOSE_SCOPE
