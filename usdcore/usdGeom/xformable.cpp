#include "usdcore/usdGeom/xformable.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/vt/types.h"

#include <algorithm>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

const std::string kInvertPrefix = "!invert!";

// Entries \p a and \p b of xformOpOrder name the same operation, one of
// them inverted: next to each other they cancel out.
bool AreInverseNames(const TfToken& a, const TfToken& b)
{
    return kInvertPrefix + a.GetString() == b.GetString() || kInvertPrefix + b.GetString() == a.GetString();
}

bool AreInverseOps(const UsdGeomXformOp& a, const UsdGeomXformOp& b)
{
    return a.GetAttr() == b.GetAttr() && a.IsInverseOp() != b.IsInverseOp();
}

} // namespace

const TfToken& UsdGeomXformable::_GetStaticTypeName()
{
    static const TfToken name("Xformable");
    return name;
}

bool UsdGeomXformable::_GetXformOpOrderValue(VtTokenArray* xformOpOrder) const
{
    const UsdAttribute attr = GetXformOpOrderAttr();
    if (!attr) return false;
    attr.Get(xformOpOrder);
    return true;
}

std::vector<UsdGeomXformOp> UsdGeomXformable::GetOrderedXformOps(bool* resetsXformStack) const
{
    std::vector<UsdGeomXformOp> ops;
    if (resetsXformStack) {
        *resetsXformStack = false;
    } else {
        TF_CODING_ERROR("resetsXformStack is null");
    }
    VtTokenArray order;
    if (!_GetXformOpOrderValue(&order)) return ops;
    ops.reserve(order.size());
    for (const TfToken& opName : order) {
        if (opName == UsdGeomXformOpTypes->resetXformStack) {
            if (resetsXformStack) *resetsXformStack = true;
            ops.clear();
            continue;
        }
        bool isInverseOp = false;
        const UsdAttribute attr = UsdGeomXformOp::_GetXformOpAttr(GetPrim(), opName, &isInverseOp);
        if (attr) ops.emplace_back(attr, isInverseOp);
    }
    return ops;
}

bool UsdGeomXformable::GetResetXformStack() const
{
    VtTokenArray order;
    if (!_GetXformOpOrderValue(&order)) return false;
    return std::find(order.begin(), order.end(), UsdGeomXformOpTypes->resetXformStack) != order.end();
}

bool UsdGeomXformable::GetLocalTransformation(GfMatrix4d* transform, bool* resetsXformStack, UsdTimeCode time) const
{
    if (!transform) {
        TF_CODING_ERROR("transform is null");
        return false;
    }
    *transform = GfMatrix4d(1.0);
    if (!resetsXformStack) {
        TF_CODING_ERROR("resetsXformStack is null");
        return false;
    }
    *resetsXformStack = false;
    VtTokenArray order;
    if (!_GetXformOpOrderValue(&order)) return false;

    // From the last entry back, so that each operation multiplies on the
    // right and the first listed ends up outermost; a reset ends the walk.
    for (size_t i = order.size(); i-- > 0;) {
        const TfToken& opName = order[i];
        if (i > 0 && AreInverseNames(opName, order[i - 1])) {
            --i;
            continue;
        }
        if (opName == UsdGeomXformOpTypes->resetXformStack) {
            *resetsXformStack = true;
            break;
        }
        bool isInverseOp = false;
        const UsdAttribute attr = UsdGeomXformOp::_GetXformOpAttr(GetPrim(), opName, &isInverseOp);
        if (!attr) {
            TF_WARN("xformOpOrder of <%s> names '%s', which has no attribute; the transformation leaves it out",
                    GetPath().GetText(), opName.GetText());
            continue;
        }
        const UsdGeomXformOp op(attr, isInverseOp);
        if (op) *transform *= op.GetOpTransform(time);
    }
    return true;
}

bool UsdGeomXformable::GetLocalTransformation(GfMatrix4d* transform, bool* resetsXformStack,
                                              const std::vector<UsdGeomXformOp>& ops, UsdTimeCode time) const
{
    if (resetsXformStack) {
        *resetsXformStack = GetResetXformStack();
    } else {
        TF_CODING_ERROR("resetsXformStack is null");
    }
    return GetLocalTransformation(transform, ops, time);
}

bool UsdGeomXformable::GetLocalTransformation(GfMatrix4d* transform,
                                              const std::vector<UsdGeomXformOp>& orderedXformOps, UsdTimeCode time)
{
    if (!transform) {
        TF_CODING_ERROR("transform is null");
        return false;
    }
    GfMatrix4d result(1.0);
    for (size_t i = orderedXformOps.size(); i-- > 0;) {
        if (i > 0 && AreInverseOps(orderedXformOps[i], orderedXformOps[i - 1])) {
            --i;
            continue;
        }
        result *= orderedXformOps[i].GetOpTransform(time);
    }
    *transform = result;
    return true;
}

bool UsdGeomXformable::TransformMightBeTimeVarying() const
{
    VtTokenArray order;
    if (!_GetXformOpOrderValue(&order)) return false;
    // Operations before the last reset do not count.
    for (size_t i = order.size(); i-- > 0;) {
        if (order[i] == UsdGeomXformOpTypes->resetXformStack) return false;
        bool isInverseOp = false;
        const UsdAttribute attr = UsdGeomXformOp::_GetXformOpAttr(GetPrim(), order[i], &isInverseOp);
        if (!attr) continue;
        const UsdGeomXformOp op(attr, isInverseOp);
        if (op && op.MightBeTimeVarying()) return true;
    }
    return false;
}

bool UsdGeomXformable::TransformMightBeTimeVarying(const std::vector<UsdGeomXformOp>& ops) const
{
    return std::any_of(ops.begin(), ops.end(), [](const UsdGeomXformOp& op) { return op.MightBeTimeVarying(); });
}

bool UsdGeomXformable::GetTimeSamples(std::vector<double>* times) const
{
    bool resetsXformStack = false;
    return GetTimeSamples(GetOrderedXformOps(&resetsXformStack), times);
}

bool UsdGeomXformable::GetTimeSamples(const std::vector<UsdGeomXformOp>& orderedXformOps, std::vector<double>* times)
{
    times->clear();
    std::vector<double> opTimes;
    for (const UsdGeomXformOp& op : orderedXformOps) {
        if (!op.GetTimeSamples(&opTimes)) return false;
        times->insert(times->end(), opTimes.begin(), opTimes.end());
    }
    std::sort(times->begin(), times->end());
    times->erase(std::unique(times->begin(), times->end()), times->end());
    return true;
}

bool UsdGeomXformable::IsTransformationAffectedByAttrNamed(const TfToken& attrName)
{
    return attrName == UsdGeomTokens->xformOpOrder || UsdGeomXformOp::IsXformOp(attrName);
}

PXR_NAMESPACE_CLOSE_SCOPE
