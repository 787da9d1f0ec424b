#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usd/typed.h"
#include "usdcore/usdGeom/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The base of every prim that can be drawn or that groups drawn prims:
/// visibility and purpose.
class UsdGeomImageable : public UsdTyped
{
public:
    explicit UsdGeomImageable(const UsdPrim& prim = UsdPrim()) : UsdTyped(prim) {}
    explicit UsdGeomImageable(const UsdSchemaBase& schemaObj) : UsdTyped(schemaObj) {}

    static UsdGeomImageable Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomImageable(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// token visibility = "inherited" ("inherited", "invisible").
    UsdAttribute GetVisibilityAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->visibility); }
    /// uniform token purpose = "default" ("default", "render", "proxy", "guide").
    UsdAttribute GetPurposeAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->purpose); }
    UsdRelationship GetProxyPrimRel() const { return GetPrim().GetRelationship(TfToken("proxyPrim")); }

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
