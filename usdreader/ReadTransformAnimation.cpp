#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/SequenceKeyFrames.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Every sample becomes a key frame at its whole frame; root nodes get the
// root correction as their static matrix does. Unless the samples already
// sit one per frame from 1 on, every whole frame from 0 to the last sample
// is then baked from the sequence's own evaluation, so the application plays
// the animation frame by frame; a baked frame that had a sample replaces it.
void CTavrinUSDReaderHandler::ReadTransformAnimation(const UsdGeomXformable& xformable, CTavrinSceneNode* node,
                                                     CTavrinSceneNode* parentNode)
{
    CTavrinSequence& animationSequence = EnsureSequence(sequence);
    CTavrinTransform* localTransform = node ? node->LocalTransform() : nullptr;
    // The operations are gathered once for all samples.
    bool resetsXformStack = false;
    const std::vector<UsdGeomXformOp> ops = xformable.GetOrderedXformOps(&resetsXformStack);
    std::vector<double> times;
    if (!localTransform || !UsdGeomXformable::GetTimeSamples(ops, &times) || times.empty())
        return;
    const CTavrinID& entity = localTransform->ID();

    const CTavrinMatrix correction = parentNode ? CTavrinMatrix() : rootMatrix;
    for (const double time : times) {
        // A transformation that cannot be computed leaves the identity.
        GfMatrix4d localTransformation(1.0);
        UsdGeomXformable::GetLocalTransformation(&localTransformation, ops, UsdTimeCode(time));
        const CTavrinKeyFrameDataPtr keyFrame =
            CTavrinKeyFrameDataTransform::Create(entity, correction * ConvertMatrix(localTransformation));
        StampFrame(*keyFrame, FrameOfTimeCode(time));
        if (!AddKeyFrame(animationSequence, keyFrame, keyFrameBudget))
            return;
    }

    const double last = times.back();
    if (static_cast<double>(times.size()) == last || !(last > 0.0))
        return;
    for (int frame = 0; frame < last && keyFrameBudget > 0; ++frame) {
        const CTavrinKeyFrameDataPtr evaluated = animationSequence.KeyFrameDataAt(entity, frame);
        if (!dynamic_cast<CTavrinKeyFrameDataTransform*>(evaluated.get()))
            continue;
        StampFrame(*evaluated, frame);
        AddKeyFrame(animationSequence, evaluated, keyFrameBudget);
    }
}

} // namespace Tavrin
