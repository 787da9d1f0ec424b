// Frame setters of key frame data: clamping to frame 0, the extend flags,
// the constant-speed window, shifting and scaling.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Tavrin;

namespace {

CTavrinKeyFrameDataPtr MakeKey(int start, int end) {
    CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(CTavrinID(), CTavrinMatrix()));
    key->SetEndFrame(end, false);
    key->SetStartFrame(start, false);
    return key;
}

} // namespace

TEST(KeyFrameFrames, NewDataStartsAtFrameZeroEverywhere) {
    CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(CTavrinID(), CTavrinMatrix()));
    EXPECT_EQ(key->StartFrame(), 0);
    EXPECT_EQ(key->EndFrame(), 0);
    EXPECT_EQ(key->WorkingFrame(), 0);
    EXPECT_EQ(key->SerialNumber(), 0);
    EXPECT_EQ(key->Type(), KEYFRAME_TRANSFORM);
}

// One change to a key of frames [start, end], and the span it leaves.
TEST(KeyFrameFrames, SpanChanges) {
    const struct {
        const char* name;
        int start, end;
        std::function<void(CTavrinKeyFrameData&)> change;
        int expectedStart, expectedEnd;
    } cases[] = {
        {"start above end is accepted without extend", 0, 3,
         [](CTavrinKeyFrameData& key) { EXPECT_EQ(key.SetStartFrame(5, false), 5); }, 5, 3},
        {"start above end moves the end with extend", 0, 3, [](CTavrinKeyFrameData& key) { key.SetStartFrame(5, true); },
         5, 5},
        {"end below start moves the start with extend", 5, 9,
         [](CTavrinKeyFrameData& key) { key.SetEndFrame(2, true); }, 2, 2},
        {"negative frames become zero", 2, 8,
         [](CTavrinKeyFrameData& key) {
             EXPECT_EQ(key.SetStartFrame(-4, false), 0);
             EXPECT_EQ(key.SetEndFrame(-1, false), 0);
         },
         0, 0},
        {"shift below frame zero changes nothing", 5, 9, [](CTavrinKeyFrameData& key) { key.ShiftFrames(-10); }, 5, 9},
        {"scale below one changes nothing", 3, 7, [](CTavrinKeyFrameData& key) { key.ScaleFrames(0.5); }, 3, 7},
        {"scale stops at the largest frame", 3, 7, [](CTavrinKeyFrameData& key) { key.ScaleFrames(1e12); },
         2147483647, 2147483647},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        auto key = MakeKey(test.start, test.end);
        test.change(*key);
        EXPECT_EQ(key->StartFrame(), test.expectedStart);
        EXPECT_EQ(key->EndFrame(), test.expectedEnd);
    }
}

TEST(KeyFrameFrames, WorkingFrameFollowsTheSpan) {
    auto key = MakeKey(2, 8);
    key->SetWorkingFrame(5);
    EXPECT_EQ(key->WorkingFrame(), 5);
    key->SetStartFrame(6, false); // raised to the new start
    EXPECT_EQ(key->WorkingFrame(), 6);
    key->SetWorkingFrame(7);
    key->SetEndFrame(4, false); // lowered to the new end
    key->SetStartFrame(1, false);
    EXPECT_EQ(key->WorkingFrame(), 4);
}

TEST(KeyFrameFrames, SingleFrameKeyWorksAtItsStart) {
    auto key = MakeKey(0, 0);
    key->SetAllFrames(4);
    key->SetWorkingFrame(9);
    EXPECT_EQ(key->WorkingFrame(), 4);
}

TEST(KeyFrameFrames, SetAllFramesStoresNegativeValuesUnchanged) {
    auto key = MakeKey(2, 8);
    key->SetAllFrames(-3);
    EXPECT_EQ(key->StartFrame(), -3);
    EXPECT_EQ(key->EndFrame(), -3);
    EXPECT_EQ(key->ConstantSpeedStartFrame(), -3);
    EXPECT_EQ(key->ConstantSpeedEndFrame(), -3);
    EXPECT_EQ(key->WorkingFrame(), -3);
}

TEST(KeyFrameFrames, ConstantSpeedWindowStaysInsideTheSpan) {
    auto key = MakeKey(10, 20);
    key->SetConstantSpeedStartFrame(25); // pushes the end along, both clamped to 20
    EXPECT_EQ(key->ConstantSpeedStartFrame(), 20);
    EXPECT_EQ(key->ConstantSpeedEndFrame(), 20);

    key->SetConstantSpeedStartFrame(5); // raised to the start frame
    EXPECT_EQ(key->ConstantSpeedStartFrame(), 10);
    EXPECT_EQ(key->ConstantSpeedEndFrame(), 20);

    key->SetConstantSpeedStartFrame(15);
    key->SetConstantSpeedEndFrame(12); // pulls the start back to 12
    EXPECT_EQ(key->ConstantSpeedStartFrame(), 12);
    EXPECT_EQ(key->ConstantSpeedEndFrame(), 12);
}

TEST(KeyFrameFrames, ShiftMovesEveryFrame) {
    auto key = MakeKey(5, 9);
    key->SetConstantSpeedStartFrame(6);
    key->SetConstantSpeedEndFrame(8);
    key->SetWorkingFrame(7);
    key->ShiftFrames(3);
    EXPECT_EQ(key->StartFrame(), 8);
    EXPECT_EQ(key->EndFrame(), 12);
    EXPECT_EQ(key->ConstantSpeedStartFrame(), 9);
    EXPECT_EQ(key->ConstantSpeedEndFrame(), 11);
    EXPECT_EQ(key->WorkingFrame(), 10);
}

TEST(KeyFrameFrames, ShiftClampsTheWorkingFrameIntoTheNewSpan) {
    auto key = MakeKey(5, 9);
    key->SetWorkingFrame(20);
    key->ShiftFrames(1);
    EXPECT_EQ(key->WorkingFrame(), 10);
}

TEST(KeyFrameFrames, ScaleByTwo) {
    auto key = MakeKey(3, 7);
    key->SetWorkingFrame(5);
    key->ScaleFrames(2.0);
    EXPECT_EQ(key->StartFrame(), 6);
    EXPECT_EQ(key->EndFrame(), 14);
    EXPECT_EQ(key->WorkingFrame(), 10);
}

TEST(KeyFrameFrames, ScaleTruncatesTowardZero) {
    auto key = MakeKey(3, 7);
    key->SetConstantSpeedStartFrame(4);
    key->SetConstantSpeedEndFrame(6);
    key->SetWorkingFrame(5);
    key->ScaleFrames(1.5);
    EXPECT_EQ(key->StartFrame(), 4);   // 4.5
    EXPECT_EQ(key->EndFrame(), 10);    // 10.5
    EXPECT_EQ(key->WorkingFrame(), 7); // 7.5
    EXPECT_EQ(key->ConstantSpeedStartFrame(), 6);
    EXPECT_EQ(key->ConstantSpeedEndFrame(), 9);
}
