#include <algorithm>
#include <vector>

#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// The mesh's own skel:skeleton targets in order when it authors the
// relationship; otherwise the skeleton inherited down namespace, which is
// how exporters bind a SkelRoot's meshes. False when neither binds one.
bool BoundSkeletons(const UsdStageRefPtr& stage, const UsdPrim& meshPrim, std::vector<UsdSkelSkeleton>* skeletons)
{
    SdfPathVector paths;
    if (meshPrim.GetRelationship(UsdSkelTokens->skelSkeleton).GetTargets(&paths)) {
        for (const SdfPath& path : paths) {
            if (const UsdSkelSkeleton skeleton = UsdSkelSkeleton::Get(stage, path))
                skeletons->push_back(skeleton);
        }
        return true;
    }
    if (const UsdSkelSkeleton inherited = UsdSkelBindingAPI(meshPrim).GetInheritedSkeleton()) {
        skeletons->push_back(inherited);
        return true;
    }
    return false;
}

// The mesh's own skel:animationSource targets in order when it authors the
// relationship; otherwise each skeleton's animation, bound on the skeleton
// prim or its nearest ancestor, once each.
std::vector<UsdSkelAnimation> BoundAnimations(const UsdStageRefPtr& stage, const UsdPrim& meshPrim,
                                              const std::vector<UsdSkelSkeleton>& skeletons)
{
    std::vector<UsdSkelAnimation> animations;
    SdfPathVector paths;
    if (meshPrim.GetRelationship(UsdSkelTokens->skelAnimationSource).GetTargets(&paths)) {
        for (const SdfPath& path : paths) {
            if (const UsdSkelAnimation animation = UsdSkelAnimation::Get(stage, path))
                animations.push_back(animation);
        }
        return animations;
    }
    for (const UsdSkelSkeleton& skeleton : skeletons) {
        const UsdSkelAnimation animation(UsdSkelBindingAPI(skeleton.GetPrim()).GetInheritedAnimationSource());
        const auto same = [&animation](const UsdSkelAnimation& known) { return known.GetPath() == animation.GetPath(); };
        if (animation && std::none_of(animations.begin(), animations.end(), same))
            animations.push_back(animation);
    }
    return animations;
}

} // namespace

// Skeletons first, so that the animations find their joints. Without any
// skeleton binding the animation source is not looked at, as it would
// animate no joints.
void CTavrinUSDReaderHandler::ReadSkeletonBinding(const UsdPrim& meshPrim)
{
    std::vector<UsdSkelSkeleton> skeletons;
    if (!BoundSkeletons(stage, meshPrim, &skeletons))
        return;
    for (const UsdSkelSkeleton& skeleton : skeletons)
        ReadSkeleton(skeleton);
    for (const UsdSkelAnimation& animation : BoundAnimations(stage, meshPrim, skeletons))
        ReadSkeletalAnimation(animation);
}

} // namespace Tavrin
