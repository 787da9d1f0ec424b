#include "TavrinAnimation/src/TavrinSequenceMessage.h"

#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinNodeQueries.h"
#include "host/CTavrinTransform.h"

#include <algorithm>

namespace Tavrin {

const char* const InsertSequenceMessageType = "eMessageType_INSERT_SEQUENCE_KEY_FRAMES_DATA";

namespace {

// The application files the message under the place that sent it.
CTavrinString InsertMessageOrigin() {
    return CTavrinString("file: ") + CTavrinString("TavrinAnimation/src/TavrinSequence") + CTavrinString(", line #") +
           CTavrinString(76);
}

// Roots of the skeletons whose joints' local transforms carry tracks, each
// listed once, in the order the tracks name them.
std::vector<CTavrinSkeletonJoint*> AnimatedSkeletonRoots(const CTavrinSequence& sequence) {
    std::vector<CTavrinSkeletonJoint*> roots;
    for (const auto& entry : sequence.Tracks()) {
        auto* transform = dynamic_cast<CTavrinTransform*>(CTavrinID(entry.first).Entity());
        if (!transform)
            continue;
        for (CTavrinSceneNode* node : ListSceneNodesReferencingThisTransform(transform)) {
            auto* joint = dynamic_cast<CTavrinSkeletonJoint*>(node);
            CTavrinSkeletonJoint* root = joint ? joint->FindSkeletonRoot() : nullptr;
            if (root && std::find(roots.begin(), roots.end(), root) == roots.end())
                roots.push_back(root);
        }
    }
    return roots;
}

} // namespace

void DistributeInsertSequenceMessage(CTavrinSequence& sequence, double numberOfTimesToRepeat, bool blendSequences) {
    std::vector<CTavrinKeyFrameDataPtr> keyFrames;
    for (const auto& entry : sequence.Tracks()) {
        for (const auto& key : entry.second)
            keyFrames.push_back(key.second);
    }
    CTavrinMessage message{CTavrinString(InsertSequenceMessageType)};
    message.SetNamedValue(CTavrinString("keyframesDataToBeCopied"), CTavrinKeyFramesVariant(std::move(keyFrames)));
    message.SetNamedValue(CTavrinString("sequenceRootJoints"), CTavrinJointsVariant(AnimatedSkeletonRoots(sequence)));
    message.SetNamedValue(CTavrinString("caption"), sequence.Name());
    message.SetNamedValue(CTavrinString("numberOfTimesToRepeat"), numberOfTimesToRepeat);
    message.SetNamedValue(CTavrinString("blendSequences"), blendSequences);
    CTavrinMessageManager::Instance()->DistributeMessage(message, InsertMessageOrigin());
}

} // namespace Tavrin
