#include "usdcore/usdSkel/bindingAPI.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usdSkel/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

/// The prim at the first target of \p rel. True when the first target is a
/// prim path, whether or not the stage has a prim there.
bool FirstTargetPrim(const UsdRelationship& rel, UsdPrim* prim)
{
    *prim = UsdPrim();
    SdfPathVector targets;
    if (!rel || !rel.GetTargets(&targets) || targets.empty() || !targets.front().IsPrimPath()) return false;
    *prim = rel.GetStage()->GetPrimAtPath(targets.front());
    return true;
}

} // namespace

UsdRelationship UsdSkelBindingAPI::GetSkeletonRel() const
{
    return GetPrim().GetRelationship(UsdSkelTokens->skelSkeleton);
}

UsdRelationship UsdSkelBindingAPI::GetAnimationSourceRel() const
{
    return GetPrim().GetRelationship(UsdSkelTokens->skelAnimationSource);
}

UsdRelationship UsdSkelBindingAPI::GetBlendShapeTargetsRel() const
{
    return GetPrim().GetRelationship(UsdSkelTokens->skelBlendShapeTargets);
}

UsdAttribute UsdSkelBindingAPI::GetJointsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->skelJoints);
}

UsdAttribute UsdSkelBindingAPI::GetJointIndicesAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->primvarsSkelJointIndices);
}

UsdAttribute UsdSkelBindingAPI::GetJointWeightsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->primvarsSkelJointWeights);
}

UsdAttribute UsdSkelBindingAPI::GetGeomBindTransformAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->primvarsSkelGeomBindTransform);
}

UsdAttribute UsdSkelBindingAPI::GetBlendShapesAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->skelBlendShapes);
}

bool UsdSkelBindingAPI::GetSkeleton(UsdSkelSkeleton* skel) const
{
    if (!skel) {
        TF_CODING_ERROR("'skel' pointer is null.");
        return false;
    }
    UsdPrim prim;
    const bool targeted = FirstTargetPrim(GetSkeletonRel(), &prim);
    *skel = UsdSkelSkeleton(prim);
    return targeted;
}

bool UsdSkelBindingAPI::GetAnimationSource(UsdPrim* prim) const
{
    if (!prim) {
        TF_CODING_ERROR("'prim' pointer is null.");
        return false;
    }
    return FirstTargetPrim(GetAnimationSourceRel(), prim);
}

UsdSkelSkeleton UsdSkelBindingAPI::GetInheritedSkeleton() const
{
    UsdSkelSkeleton skel;
    for (UsdPrim p = GetPrim(); p && !p.IsPseudoRoot(); p = p.GetParent()) {
        if (UsdSkelBindingAPI(p).GetSkeleton(&skel)) return skel;
    }
    return UsdSkelSkeleton();
}

UsdPrim UsdSkelBindingAPI::GetInheritedAnimationSource() const
{
    UsdPrim source;
    for (UsdPrim p = GetPrim(); p && !p.IsPseudoRoot(); p = p.GetParent()) {
        if (UsdSkelBindingAPI(p).GetAnimationSource(&source)) return source;
    }
    return UsdPrim();
}

PXR_NAMESPACE_CLOSE_SCOPE
