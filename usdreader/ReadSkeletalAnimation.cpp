#include <set>

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/JointKeys.h"
#include "usdreader/SequenceKeyFrames.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// Every whole frame at which translations, rotations or scales are sampled.
std::set<int> AnimationFrames(const UsdSkelAnimation& animation)
{
    std::set<int> frames;
    for (const UsdAttribute& attribute :
         {animation.GetTranslationsAttr(), animation.GetRotationsAttr(), animation.GetScalesAttr()}) {
        std::vector<double> times;
        attribute.GetTimeSamples(&times);
        for (const double time : times)
            frames.insert(FrameOfTimeCode(time));
    }
    return frames;
}

} // namespace

// One key frame per matched joint and frame, on the joint's local transform.
// Joints are matched by name, so an animation may list them in any order or
// only some of them. The pose is read at the whole frame; a frame whose pose
// cannot be read repeats the previous frame's.
void CTavrinUSDReaderHandler::ReadSkeletalAnimation(const UsdSkelAnimation& animation)
{
    VtTokenArray joints;
    if (!animation.GetJointsAttr().Get(&joints))
        return;
    const std::set<int> frames = AnimationFrames(animation);
    if (frames.empty())
        return;
    CTavrinSequence& animationSequence = EnsureSequence(sequence);

    // The joints' local transforms, looked up once rather than per frame.
    std::vector<CTavrinTransform*> transforms(joints.size(), nullptr);
    for (std::size_t j = 0; j < joints.size(); ++j) {
        const auto found = nodesByPath.find(JointKey(JointName(joints[j])));
        if (found != nodesByPath.end() && found->second)
            transforms[j] = found->second->LocalTransform();
    }

    VtMatrix4dArray poses;
    for (const int frame : frames) {
        animation.GetTransforms(&poses, UsdTimeCode(frame));
        for (std::size_t j = 0; j < joints.size() && j < poses.size(); ++j) {
            if (!transforms[j])
                continue;
            const CTavrinKeyFrameDataPtr keyFrame =
                CTavrinKeyFrameDataTransform::Create(transforms[j]->ID(), ConvertMatrix(poses[j]));
            StampFrame(*keyFrame, frame);
            if (!AddKeyFrame(animationSequence, keyFrame, keyFrameBudget))
                return;
        }
    }
}

} // namespace Tavrin
