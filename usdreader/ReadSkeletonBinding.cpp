#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Only the mesh's own relationships count: a binding inherited from the
// skeleton root is not followed. Without readable skeleton targets the
// animation source is not looked at either, as it would animate no joints.
void CTavrinUSDReaderHandler::ReadSkeletonBinding(const UsdPrim& meshPrim)
{
    SdfPathVector skeletonPaths;
    if (!meshPrim.GetRelationship(UsdSkelTokens->skelSkeleton).GetTargets(&skeletonPaths))
        return;
    for (const SdfPath& path : skeletonPaths) {
        if (const UsdSkelSkeleton skeleton = UsdSkelSkeleton::Get(stage, path))
            ReadSkeleton(skeleton);
    }

    SdfPathVector animationPaths;
    if (!meshPrim.GetRelationship(UsdSkelTokens->skelAnimationSource).GetTargets(&animationPaths))
        return;
    for (const SdfPath& path : animationPaths) {
        if (const UsdSkelAnimation animation = UsdSkelAnimation::Get(stage, path))
            ReadSkeletalAnimation(animation);
    }
}

} // namespace Tavrin
