// Tracks of the key frame manager: overlap removal on insert, serial
// numbering, the frame range and entity redirects.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

class ManagerTracks : public ::testing::Test {
protected:
    CTavrinKeyFrameDataPtr Key(int start, int end, int serial = 0, const CTavrinID* entity = nullptr) {
        CTavrinKeyFrameDataPtr key(
            CTavrinKeyFrameDataTransform::Create(entity ? *entity : first, Translation(start, end, 0)));
        key->SetEndFrame(end, false);
        key->SetStartFrame(start, false);
        key->SetSerialNumber(serial);
        return key;
    }

    std::vector<int> StartFrames(const CTavrinID& entity) {
        std::vector<int> starts;
        if (const auto* track = manager.FindTrack(entity)) {
            for (const auto& entry : *track)
                starts.push_back(entry.second->StartFrame());
        }
        return starts;
    }

    static std::vector<std::pair<int, int>> SpansOf(const std::vector<CTavrinKeyFrameDataPtr>& keys) {
        std::vector<std::pair<int, int>> spans;
        for (const auto& key : keys)
            spans.emplace_back(key->StartFrame(), key->EndFrame());
        return spans;
    }

    AnimationTestEntities entities;
    CTavrinID first = entities.NewEntity();
    CTavrinID second = entities.NewEntity();
    CTavrinKeyFrameManager manager;
};

using Spans = std::vector<std::pair<int, int>>;

} // namespace

TEST_F(ManagerTracks, NullDataChangesNothing) {
    EXPECT_TRUE(manager.AddKeyFrameData(nullptr, true).empty());
    EXPECT_TRUE(manager.Tracks().empty());
}

TEST_F(ManagerTracks, KeyFramesAreOrderedByStartFrame) {
    manager.AddKeyFrameData(Key(20, 20), true);
    manager.AddKeyFrameData(Key(5, 5), true);
    manager.AddKeyFrameData(Key(12, 14), true);
    EXPECT_EQ(StartFrames(first), (std::vector<int>{5, 12, 20}));
}

TEST_F(ManagerTracks, EarlierKeyThatReachesTheNewStartIsDisplaced) {
    manager.AddKeyFrameData(Key(5, 12), true);
    manager.AddKeyFrameData(Key(20, 20), true);
    const auto displaced = manager.AddKeyFrameData(Key(10, 10), true);
    EXPECT_EQ(SpansOf(displaced), (Spans{{5, 12}}));
    EXPECT_EQ(StartFrames(first), (std::vector<int>{10, 20}));
}

TEST_F(ManagerTracks, KeysStartingInsideTheNewSpanAreDisplacedInOrder) {
    for (auto span : Spans{{5, 8}, {10, 10}, {15, 15}, {20, 20}, {25, 25}})
        manager.AddKeyFrameData(Key(span.first, span.second), true);
    const auto displaced = manager.AddKeyFrameData(Key(10, 20), true);
    EXPECT_EQ(SpansOf(displaced), (Spans{{10, 10}, {15, 15}, {20, 20}}));
    EXPECT_EQ(StartFrames(first), (std::vector<int>{5, 10, 25}));
    EXPECT_EQ(manager.FindTrack(first)->at(10)->EndFrame(), 20);
}

TEST_F(ManagerTracks, SameStartFrameReplacesTheKey) {
    auto old = Key(5, 5);
    manager.AddKeyFrameData(old, true);
    auto replacement = Key(5, 5);
    const auto displaced = manager.AddKeyFrameData(replacement, true);
    ASSERT_EQ(displaced.size(), 1u);
    EXPECT_EQ(displaced[0].get(), old.get());
    EXPECT_EQ(manager.FindTrack(first)->at(5).get(), replacement.get());
}

TEST_F(ManagerTracks, KeyEndingBeforeTheNewStartStays) {
    manager.AddKeyFrameData(Key(2, 9), true);
    EXPECT_TRUE(manager.AddKeyFrameData(Key(10, 12), true).empty());
    EXPECT_EQ(StartFrames(first), (std::vector<int>{2, 10}));
}

TEST_F(ManagerTracks, EntitiesHaveTracksOfTheirOwn) {
    manager.AddKeyFrameData(Key(5, 5), true);
    EXPECT_TRUE(manager.AddKeyFrameData(Key(5, 5, 0, &second), true).empty());
    EXPECT_EQ(StartFrames(first), (std::vector<int>{5}));
    EXPECT_EQ(StartFrames(second), (std::vector<int>{5}));
}

TEST_F(ManagerTracks, CollectOverlappingOfAnEmptyOrInvertedSpanIsEmpty) {
    CTavrinKeyFrameManager::Track track;
    auto range = CTavrinKeyFrameManager::CollectOverlapping(0, 10, track);
    EXPECT_EQ(range.first, range.second);
    track[3] = Key(3, 3);
    range = CTavrinKeyFrameManager::CollectOverlapping(5, 4, track);
    EXPECT_EQ(range.first, track.end());
    EXPECT_EQ(range.second, track.end());
}

TEST_F(ManagerTracks, UnnumberedKeysAreNumberedPerEntity) {
    auto a = Key(3, 3), b = Key(4, 4), c = Key(5, 5), other = Key(3, 3, 0, &second);
    manager.AddKeyFrameData(a, true);
    manager.AddKeyFrameData(b, true);
    manager.AddKeyFrameData(other, true);
    manager.AddKeyFrameData(c, true);
    EXPECT_EQ(a->SerialNumber(), 1);
    EXPECT_EQ(b->SerialNumber(), 2);
    EXPECT_EQ(c->SerialNumber(), 3);
    EXPECT_EQ(other->SerialNumber(), 1);

    auto numbered = Key(6, 6, 7);
    manager.AddKeyFrameData(numbered, true);
    EXPECT_EQ(numbered->SerialNumber(), 7);
    EXPECT_EQ(manager.SerialCounter(first), 3);
}

TEST_F(ManagerTracks, RangeGrowsOnlyWhenAsked) {
    manager.AddKeyFrameData(Key(4, 9), true);
    EXPECT_EQ(manager.RangeStart(), 0); // starts at 0 and only goes down
    EXPECT_EQ(manager.RangeEnd(), 9);
    manager.AddKeyFrameData(Key(12, 15), false);
    EXPECT_EQ(manager.RangeEnd(), 9);
    manager.AddKeyFrameData(Key(20, 30), true);
    EXPECT_EQ(manager.RangeEnd(), 30);
}

TEST_F(ManagerTracks, RedirectsResolveOneStep) {
    const CTavrinID third = entities.NewEntity();
    auto key = Key(1, 1);
    key->SetOriginalEntityID(second);
    manager.AddKeyFrameData(key, true);
    auto chained = Key(1, 1, 0, &third);
    chained->SetOriginalEntityID(first);
    manager.AddKeyFrameData(chained, true); // first -> third, second -> first

    EXPECT_EQ(manager.ResolveEntityID(second), first);
    EXPECT_EQ(manager.ResolveEntityID(first), third);
    EXPECT_EQ(manager.ResolveEntityID(third), third);
}

TEST(ProcessWideManager, NewDataResolvesItsEntityThroughTheRedirects) {
    AnimationTestEntities entities;
    const CTavrinID original = entities.NewEntity();
    const CTavrinID moved = entities.NewEntity();
    CTavrinKeyFrameManager::SetInstance(new CTavrinKeyFrameManager());
    CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(moved, CTavrinMatrix()));
    key->SetOriginalEntityID(original);
    CTavrinKeyFrameManager::GetInstance()->AddKeyFrameData(key, true);

    CTavrinKeyFrameDataPtr later(CTavrinKeyFrameDataTransform::Create(original, CTavrinMatrix()));
    EXPECT_EQ(later->EntityID(), moved);
    EXPECT_EQ(later->OriginalEntityID(), moved);
    CTavrinKeyFrameManager::SetInstance(nullptr);
}
