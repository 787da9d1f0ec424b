#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usdGeom/boundable.h"
#include "usdcore/usdGeom/primvar.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A geometric primitive: display colour and opacity, sidedness and the
/// winding of its faces.
class UsdGeomGprim : public UsdGeomBoundable
{
public:
    explicit UsdGeomGprim(const UsdPrim& prim = UsdPrim()) : UsdGeomBoundable(prim) {}
    explicit UsdGeomGprim(const UsdSchemaBase& schemaObj) : UsdGeomBoundable(schemaObj) {}

    static UsdGeomGprim Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomGprim(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// color3f[] primvars:displayColor.
    UsdAttribute GetDisplayColorAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->primvarsDisplayColor); }
    /// float[] primvars:displayOpacity.
    UsdAttribute GetDisplayOpacityAttr() const
    {
        return GetPrim().GetAttribute(UsdGeomTokens->primvarsDisplayOpacity);
    }
    UsdGeomPrimvar GetDisplayColorPrimvar() const { return UsdGeomPrimvar(GetDisplayColorAttr()); }
    UsdGeomPrimvar GetDisplayOpacityPrimvar() const { return UsdGeomPrimvar(GetDisplayOpacityAttr()); }
    /// uniform bool doubleSided = false.
    UsdAttribute GetDoubleSidedAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->doubleSided); }
    /// uniform token orientation = "rightHanded" ("rightHanded", "leftHanded").
    UsdAttribute GetOrientationAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->orientation); }

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
