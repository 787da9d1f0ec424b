#include "usdcore/usdSkel/bindingAPI.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usdSkel/animation.h"
#include "usdcore/usdSkel/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

/// Whether \p rel binds anything: it has targets, or it is authored empty,
/// which blocks a binding inherited from above. \p prim is then the prim at
/// the first target, invalid when the stage has none there.
bool BoundTargetPrim(const UsdRelationship& rel, UsdPrim* prim)
{
    *prim = UsdPrim();
    SdfPathVector targets;
    if (!rel || !rel.GetTargets(&targets) || (targets.empty() && !rel.HasAuthoredTargets())) return false;
    if (!targets.empty() && targets.front().IsPrimPath()) *prim = rel.GetStage()->GetPrimAtPath(targets.front());
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
    const bool bound = BoundTargetPrim(GetSkeletonRel(), &prim);
    *skel = UsdSkelSkeleton(prim);
    return bound;
}

bool UsdSkelBindingAPI::GetAnimationSource(UsdPrim* prim) const
{
    if (!prim) {
        TF_CODING_ERROR("'prim' pointer is null.");
        return false;
    }
    const bool bound = BoundTargetPrim(GetAnimationSourceRel(), prim);
    if (*prim && !prim->IsA<UsdSkelAnimation>()) *prim = UsdPrim();
    return bound;
}

UsdSkelSkeleton UsdSkelBindingAPI::GetInheritedSkeleton() const
{
    UsdSkelSkeleton skel;
    for (UsdPrim p = GetPrim(); p && !p.IsPseudoRoot(); p = p.GetParent()) {
        if (p.HasAPI(UsdSkelTokens->SkelBindingAPI) && UsdSkelBindingAPI(p).GetSkeleton(&skel)) return skel;
    }
    return UsdSkelSkeleton();
}

UsdPrim UsdSkelBindingAPI::GetInheritedAnimationSource() const
{
    UsdPrim source;
    for (UsdPrim p = GetPrim(); p && !p.IsPseudoRoot(); p = p.GetParent()) {
        if (p.HasAPI(UsdSkelTokens->SkelBindingAPI) && UsdSkelBindingAPI(p).GetAnimationSource(&source))
            return source;
    }
    return UsdPrim();
}

PXR_NAMESPACE_CLOSE_SCOPE
