#pragma once

#include "usdcore/pxr.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/usdGeom/imageable.h"
#include "usdcore/usdGeom/xformOp.h"
#include "usdcore/vt/types.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// A prim with a local transformation, made of the ordered transform
/// operations that its xformOpOrder names.
///
/// For row vectors the first operation in xformOpOrder is the outermost:
/// with xformOpOrder = [translate, rotateZ, scale] the local transformation
/// is S * R * T, so a point is scaled, then rotated, then translated.
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

    /// The operations xformOpOrder names, in its order, from the last
    /// "!resetXformStack!" on; entries without an attribute are left out.
    /// \p resetsXformStack tells whether the order resets the stack.
    std::vector<UsdGeomXformOp> GetOrderedXformOps(bool* resetsXformStack) const;
    /// True when xformOpOrder holds "!resetXformStack!": the prim ignores
    /// its parents' transformations.
    bool GetResetXformStack() const;

    /// The product of the ordered operations' matrices at \p time (the
    /// identity without operations). An operation immediately followed by
    /// its own inverse is skipped with it; entries without an attribute are
    /// skipped with a warning.
    bool GetLocalTransformation(GfMatrix4d* transform, bool* resetsXformStack,
                                UsdTimeCode time = UsdTimeCode::Default()) const;
    /// The same over \p ops as GetOrderedXformOps gave them.
    bool GetLocalTransformation(GfMatrix4d* transform, bool* resetsXformStack, const std::vector<UsdGeomXformOp>& ops,
                                UsdTimeCode time = UsdTimeCode::Default()) const;
    static bool GetLocalTransformation(GfMatrix4d* transform, const std::vector<UsdGeomXformOp>& orderedXformOps,
                                       UsdTimeCode time = UsdTimeCode::Default());

    /// True when some operation that counts may vary over time.
    bool TransformMightBeTimeVarying() const;
    bool TransformMightBeTimeVarying(const std::vector<UsdGeomXformOp>& ops) const;

    /// The union of the sample times of the ordered operations, ascending.
    bool GetTimeSamples(std::vector<double>* times) const;
    static bool GetTimeSamples(const std::vector<UsdGeomXformOp>& orderedXformOps, std::vector<double>* times);

    /// True for xformOpOrder and the "xformOp:" attributes.
    static bool IsTransformationAffectedByAttrNamed(const TfToken& attrName);

protected:
    const TfToken& _GetSchemaTypeName() const override { return _GetStaticTypeName(); }

private:
    /// False when the prim has no xformOpOrder attribute.
    bool _GetXformOpOrderValue(VtTokenArray* xformOpOrder) const;
};

PXR_NAMESPACE_CLOSE_SCOPE
