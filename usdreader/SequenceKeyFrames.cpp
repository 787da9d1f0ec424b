#include "usdreader/SequenceKeyFrames.h"

#include <cmath>
#include <limits>

#include "TavrinAnimation/src/TavrinSequence.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "usdreader/UsdApi.h"

namespace Tavrin {

int FrameOfTimeCode(double time)
{
    if (std::isnan(time))
        return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (time <= lowest)
        return std::numeric_limits<int>::min();
    if (time >= highest)
        return std::numeric_limits<int>::max();
    return static_cast<int>(time);
}

CTavrinSequence& EnsureSequence(CTavrinSequence*& sequence)
{
    if (!sequence) {
        sequence = CTavrinSequence::Create();
        CTavrinSequenceContainer* container = CTavrinSequenceContainer::GetInstance();
        container->AddSequence(sequence);
        sequence->SetGroup(container->CreateGroup());
    }
    return *sequence;
}

void StampFrame(CTavrinKeyFrameData& data, int frame)
{
    data.SetStartFrame(frame, false);
    data.SetEndFrame(frame, false);
    data.SetConstantSpeedStartFrame(frame);
    data.SetConstantSpeedEndFrame(frame);
    data.SetSerialNumber(frame);
}

bool AddKeyFrame(CTavrinSequence& sequence, const CTavrinKeyFrameDataPtr& data, std::int64_t& budget)
{
    if (budget <= 0)
        return false;
    // Only growth is charged: a key frame that displaces others at its frame
    // (an animation converted again for another mesh, a baked frame over a
    // sample) leaves the sequence no larger.
    const auto displaced = static_cast<std::int64_t>(sequence.AddKeyFrameData(data, true).size());
    budget -= 1 - displaced;
    if (budget <= 0)
        TF_WARN("The import's key frame budget is spent: later key frames of this file are dropped");
    return true;
}

} // namespace Tavrin
