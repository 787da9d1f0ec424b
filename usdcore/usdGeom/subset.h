#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/typed.h"
#include "usdcore/usdGeom/imageable.h"
#include "usdcore/usdGeom/tokens.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// A named set of elements (faces) of the geometry that is its parent,
/// used to bind a material to part of a mesh.
class UsdGeomSubset : public UsdTyped
{
public:
    explicit UsdGeomSubset(const UsdPrim& prim = UsdPrim()) : UsdTyped(prim) {}
    explicit UsdGeomSubset(const UsdSchemaBase& schemaObj) : UsdTyped(schemaObj) {}

    static UsdGeomSubset Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdGeomSubset(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// uniform token elementType = "face".
    UsdAttribute GetElementTypeAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->elementType); }
    /// int[] indices = []: the elements in the subset.
    UsdAttribute GetIndicesAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->indices); }
    /// uniform token familyName = "".
    UsdAttribute GetFamilyNameAttr() const { return GetPrim().GetAttribute(UsdGeomTokens->familyName); }

    /// The subsets among the children of \p geom, in child order.
    static std::vector<UsdGeomSubset> GetAllGeomSubsets(const UsdGeomImageable& geom);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
