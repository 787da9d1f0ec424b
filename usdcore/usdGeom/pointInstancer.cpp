#include "usdcore/usdGeom/pointInstancer.h"

#include "usdcore/gf/quatd.h"
#include "usdcore/gf/rotation.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"

#include <unordered_set>

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomPointInstancer::_GetStaticTypeName()
{
    static const TfToken name("PointInstancer");
    return name;
}

std::vector<bool> UsdGeomPointInstancer::ComputeMaskAtTime(UsdTimeCode time, const VtInt64Array* ids) const
{
    VtInt64Array invisible;
    GetInvisibleIdsAttr().Get(&invisible, time);
    SdfInt64ListOp inactiveOp;
    GetPrim().GetMetadata(UsdGeomTokens->inactiveIds, &inactiveOp);
    std::vector<int64_t> inactive;
    inactiveOp.ApplyOperations(&inactive);
    if (invisible.empty() && inactive.empty()) {
        return {};
    }
    std::unordered_set<int64_t> hidden(invisible.begin(), invisible.end());
    hidden.insert(inactive.begin(), inactive.end());

    VtInt64Array authoredIds;
    if (!ids) {
        GetIdsAttr().Get(&authoredIds, time);
        ids = &authoredIds;
    }
    VtIntArray protoIndices;
    GetProtoIndicesAttr().Get(&protoIndices, time);
    // Without ids of their own, instances are known by their index.
    const bool byIndex = ids->empty();
    std::vector<bool> mask(protoIndices.size(), true);
    bool anyHidden = false;
    for (size_t i = 0; i < mask.size(); ++i) {
        const int64_t id = byIndex ? int64_t(i) : (i < ids->size() ? (*ids)[i] : int64_t(i));
        if (hidden.count(id)) {
            mask[i] = false;
            anyHidden = true;
        }
    }
    return anyHidden ? mask : std::vector<bool>();
}

bool UsdGeomPointInstancer::ComputeInstanceTransformsAtTime(VtMatrix4dArray* xforms, UsdTimeCode time,
                                                            UsdTimeCode baseTime,
                                                            ProtoXformInclusion doProtoXforms,
                                                            MaskApplication applyMask) const
{
    xforms->clear();
    VtIntArray protoIndices;
    VtVec3fArray positions;
    VtQuathArray orientations;
    VtVec3fArray scales;
    GetProtoIndicesAttr().Get(&protoIndices, baseTime);
    GetPositionsAttr().Get(&positions, baseTime);
    GetOrientationsAttr().Get(&orientations, baseTime);
    GetScalesAttr().Get(&scales, baseTime);
    const size_t count = protoIndices.size();
    const char* const path = GetPath().GetText();
    if (positions.size() != count || (!orientations.empty() && orientations.size() != count) ||
        (!scales.empty() && scales.size() != count)) {
        TF_WARN("<%s>: %zu proto indices but %zu positions, %zu orientations and %zu scales", path, count,
                positions.size(), orientations.size(), scales.size());
        return false;
    }
    SdfPathVector prototypes;
    GetPrototypesRel().GetTargets(&prototypes);
    for (const int index : protoIndices) {
        if (index < 0 || size_t(index) >= prototypes.size()) {
            TF_WARN("<%s>: proto index %d names none of its %zu prototypes", path, index, prototypes.size());
            return false;
        }
    }

    std::vector<GfMatrix4d> protoXforms;
    if (doProtoXforms == IncludeProtoXform) {
        for (const SdfPath& prototype : prototypes) {
            GfMatrix4d local(1.0);
            bool resetsXformStack = false;
            UsdGeomXformable(GetPrim().GetStage()->GetPrimAtPath(prototype))
                .GetLocalTransformation(&local, &resetsXformStack, time);
            protoXforms.push_back(local);
        }
    }
    const std::vector<bool> mask = applyMask == ApplyMask ? ComputeMaskAtTime(time) : std::vector<bool>();
    xforms->reserve(count);
    for (size_t i = 0; i < count; ++i) {
        if (!mask.empty() && !mask[i]) continue;
        GfMatrix4d transform(1.0);
        if (!scales.empty()) {
            transform.SetScale(GfVec3d(scales[i]));
        }
        if (!orientations.empty()) {
            transform *= GfMatrix4d(1.0).SetRotate(GfRotation(GfQuatd(orientations[i])));
        }
        transform.SetTranslateOnly(GfVec3d(positions[i]));
        xforms->push_back(doProtoXforms == IncludeProtoXform ? protoXforms[size_t(protoIndices[i])] * transform
                                                             : transform);
    }
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
