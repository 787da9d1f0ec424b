#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/attribute.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/typed.h"

PXR_NAMESPACE_OPEN_SCOPE

/// A shape target of a mesh: offsets of some or all of its points. True for
/// prims of type "BlendShape" and derived types.
class UsdSkelBlendShape : public UsdTyped
{
public:
    explicit UsdSkelBlendShape(const UsdPrim& prim = UsdPrim()) : UsdTyped(prim) {}
    explicit UsdSkelBlendShape(const UsdSchemaBase& schemaObj) : UsdTyped(schemaObj) {}

    static UsdSkelBlendShape Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdSkelBlendShape(Usd_SchemaGetPrim(stage, path));
    }
    static const TfToken& _GetStaticTypeName();

    /// uniform vector3f[] offsets: one per point, or one per entry of
    /// pointIndices.
    UsdAttribute GetOffsetsAttr() const;
    /// uniform vector3f[] normalOffsets, laid out as the offsets.
    UsdAttribute GetNormalOffsetsAttr() const;
    /// uniform int[] pointIndices: the points the offsets move, when not all.
    UsdAttribute GetPointIndicesAttr() const;

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }
};

PXR_NAMESPACE_CLOSE_SCOPE
