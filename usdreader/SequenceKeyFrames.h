#pragma once
// What the skeletal and the transform animation share: frames from time
// codes, the import's one sequence, and key frames pinned to one frame.

#include <cstdint>

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

namespace Tavrin {

class CTavrinSequence;

// Time codes are taken as frame numbers, cut toward zero. Codes beyond the
// frame range clamp to its ends and NaN counts as frame 0, so that no file
// can make the conversion undefined.
int FrameOfTimeCode(double time);

// The import's sequence, made on first use: handed to the application's
// sequence container and put into a group of its own, named at the end of
// the import.
CTavrinSequence& EnsureSequence(CTavrinSequence*& sequence);

// Start, end, constant-speed range and serial number all at frame.
void StampFrame(CTavrinKeyFrameData& data, int frame);

// Inserts data into the sequence, extending its range, while the import's
// key frame budget lasts, and charges the budget with the net growth of the
// sequence; false, adding nothing, once it is spent. The key frames data
// displaces are released.
bool AddKeyFrame(CTavrinSequence& sequence, const CTavrinKeyFrameDataPtr& data, std::int64_t& budget);

} // namespace Tavrin
