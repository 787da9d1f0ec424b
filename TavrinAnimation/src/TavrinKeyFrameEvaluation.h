#pragma once
// The in-between key frame of two neighbouring key frames of one track.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

namespace Tavrin {

// before ends at or before frame and after starts after it; both have their
// working frames on the facing ends. Built by before's type; null when the
// pair cannot be blended.
CTavrinKeyFrameDataPtr InterpolateKeyFrameData(CTavrinKeyFrameData& before, CTavrinKeyFrameData& after, int frame);

} // namespace Tavrin
