#pragma once
// The message that asks the application to insert a sequence's key frames
// into the scene.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"
#include "host/CTavrinMessage.h"

#include <vector>

namespace Tavrin {

class CTavrinSequence;
class CTavrinSkeletonJoint;

using CTavrinKeyFramesVariant = CTavrinDefinedVariant<std::vector<CTavrinKeyFrameDataPtr>>;
using CTavrinJointsVariant = CTavrinDefinedVariant<std::vector<CTavrinSkeletonJoint*>>;

extern const char* const InsertSequenceMessageType;

// Every key frame data of sequence, the roots of the skeletons it animates,
// its name and the two insert options, sent to the process-wide message manager.
void DistributeInsertSequenceMessage(CTavrinSequence& sequence, double numberOfTimesToRepeat, bool blendSequences);

} // namespace Tavrin
