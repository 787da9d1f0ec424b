// Scene states and their container: naming, registration, groups, and the
// container's archive record with states, groups and the current group.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"
#include "AnimationTestEntities.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

#include <string>

using namespace Tavrin;

namespace {

// Each test works on a fresh process-wide container.
class SceneStates : public ::testing::Test {
protected:
    void SetUp() override { CTavrinSceneStatesContainer::SetInstance(new CTavrinSceneStatesContainer()); }
    void TearDown() override { CTavrinSceneStatesContainer::SetInstance(nullptr); }

    CTavrinSceneStatesContainer& container() { return *CTavrinSceneStatesContainer::GetInstance(); }

    CTavrinSceneState* Registered() {
        CTavrinSceneState* state = CTavrinSceneState::Create();
        container().AddSceneState(state);
        return state;
    }

    // A container written at version and read back into a new one.
    std::unique_ptr<CTavrinSceneStatesContainer> RoundTrip(unsigned int version) {
        TestWriter writer(version);
        EXPECT_TRUE(container().WriteIntoArchive(writer.archive()));
        FileVersionScope file(version);
        TestReader reader(writer.Bytes(), version);
        auto read = std::make_unique<CTavrinSceneStatesContainer>();
        EXPECT_TRUE(read->ReadFromArchive(reader.archive()));
        EXPECT_TRUE(reader.AtEnd());
        return read;
    }
};

int NumberAfter(const std::string& prefix, const CTavrinString& name) {
    const std::string text = name.toStdString();
    EXPECT_EQ(text.rfind(prefix, 0), 0u) << text;
    return std::stoi(text.substr(prefix.size()));
}

} // namespace

TEST_F(SceneStates, CreatedStatesAreNumberedAndJoinTheDefaultGroup) {
    CTavrinSceneState* first = Registered();
    CTavrinSceneState* second = Registered();
    EXPECT_EQ(NumberAfter("Scene State", second->Name()), NumberAfter("Scene State", first->Name()) + 1);
    EXPECT_FALSE(first->GroupGuid().IsValid());
    EXPECT_EQ(first->Group(), container().DefaultGroup());
    EXPECT_EQ(container().DefaultGroup()->SequenceGuids().count(first->Guid()), 1u);
}

TEST_F(SceneStates, RegisteringAgainKeepsTheFirstEntry) {
    CTavrinSceneState* state = Registered();
    EXPECT_EQ(state->ReferenceCount(), 1);
    container().AddSceneState(state);
    EXPECT_EQ(state->ReferenceCount(), 1);
    EXPECT_EQ(container().SceneStates().size(), 1u);
    EXPECT_EQ(container().FindSceneState(state->Guid()), state);
    EXPECT_EQ(container().FindSceneState(CTavrinUUID()), nullptr);
}

TEST_F(SceneStates, GroupsAreCaptionedByTheirOwnCounterAndOrdered) {
    CTavrinAnimationCollapsingGroup* first = container().CreateGroup();
    CTavrinAnimationCollapsingGroup* second = container().CreateGroup();
    EXPECT_EQ(NumberAfter("Group ", second->Caption()), NumberAfter("Group ", first->Caption()) + 1);
    EXPECT_EQ(first->Order(), 0);
    EXPECT_EQ(second->Order(), 1);
    EXPECT_EQ(container().FindGroup(second->Guid()), second);
    EXPECT_EQ(container().FindGroup(CTavrinUUID()), container().DefaultGroup());
}

TEST_F(SceneStates, SetGroupMovesTheState) {
    CTavrinSceneState* state = Registered();
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    state->SetGroup(group);
    EXPECT_EQ(state->Group(), group);
    EXPECT_EQ(container().DefaultGroup()->SequenceGuids().count(state->Guid()), 0u);
    EXPECT_EQ(group->SequenceGuids().count(state->Guid()), 1u);
    state->SetGroup(nullptr);
    EXPECT_EQ(state->Group(), group);
}

TEST_F(SceneStates, ArchiveKeepsStatesGroupsAndTheCurrentGroup) {
    AnimationTestEntities entities;
    const CTavrinID node = entities.NewTransform();
    CTavrinSceneState* grouped = Registered();
    CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(node, Translation(1, 2, 3)));
    key->SetAllFrames(4);
    grouped->AddKeyFrameData(key, true);
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    group->SetCaption(CTavrinString("Lighting"));
    grouped->SetGroup(group);
    CTavrinSceneState* loose = Registered();
    CTavrinSceneState* unsaved = Registered();
    unsaved->SetNotSaved(true);

    std::unique_ptr<CTavrinSceneStatesContainer> read = RoundTrip(NewestArchiveVersion);
    ASSERT_EQ(read->SceneStates().size(), 2u);
    CTavrinSceneState* readGrouped = read->FindSceneState(grouped->Guid());
    ASSERT_NE(readGrouped, nullptr);
    EXPECT_EQ(readGrouped->GroupGuid(), group->Guid());
    const CTavrinKeyFrameManager::Track* track = readGrouped->FindTrack(node);
    ASSERT_NE(track, nullptr);
    ASSERT_EQ(track->count(4), 1u);
    ExpectMatrixNear(dynamic_cast<CTavrinKeyFrameDataTransform&>(*track->at(4)).Matrix(), Translation(1, 2, 3));

    ASSERT_EQ(read->DefaultGroupSceneStates().size(), 1u);
    EXPECT_EQ(read->DefaultGroupSceneStates()[0]->Guid(), loose->Guid());
    CTavrinAnimationCollapsingGroup* readGroup = read->FindGroup(group->Guid());
    ASSERT_NE(readGroup, nullptr);
    EXPECT_EQ(readGroup->Caption().toStdString(), "Lighting");
    EXPECT_EQ(readGroup->SequenceGuids(), (std::set<CTavrinUUID>{grouped->Guid()}));
    // The unsaved state is listed in no group record.
    EXPECT_EQ(read->DefaultGroup()->SequenceGuids(), (std::set<CTavrinUUID>{loose->Guid()}));
    EXPECT_EQ(CTavrinSceneStatesContainer::CurrentGroup(), read->DefaultGroup());
}

TEST_F(SceneStates, ArchiveBefore11012HoldsOnlyTheStates) {
    Registered()->SetGroup(container().CreateGroup());
    std::unique_ptr<CTavrinSceneStatesContainer> read = RoundTrip(11011);
    EXPECT_EQ(read->SceneStates().size(), 1u);
    EXPECT_EQ(read->GroupCount(), 0u);
}

TEST_F(SceneStates, ShortRecordFailsAndKeepsTheStatesReadBefore) {
    Registered();
    Registered();
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));
    std::vector<std::uint8_t> bytes = writer.Bytes();
    bytes.resize(bytes.size() / 2);
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(bytes, NewestArchiveVersion);
    CTavrinSceneStatesContainer read;
    EXPECT_FALSE(read.ReadFromArchive(reader.archive()));
    EXPECT_EQ(read.SceneStates().size(), 1u);
}

// The scene-states container only ever writes its default group as the
// current one; a document written by the application may name another.
TEST_F(SceneStates, ReadFailingAtTheEndLeavesTheCurrentGroupUsable) {
    Registered()->SetGroup(container().CreateGroup());
    const CTavrinUUID groupGuid = container().SceneStates().begin()->second->GroupGuid();
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));
    std::vector<std::uint8_t> bytes = writer.Bytes();
    TestWriter defaultGuid(NewestArchiveVersion);
    CTavrinUUID none;
    ASSERT_TRUE(defaultGuid.archive().ReadWrite(none));
    bytes.resize(bytes.size() - defaultGuid.Bytes().size());
    TestWriter currentGuid(NewestArchiveVersion);
    CTavrinUUID current = groupGuid;
    ASSERT_TRUE(currentGuid.archive().ReadWrite(current));
    const std::vector<std::uint8_t> currentBytes = currentGuid.Bytes();
    bytes.insert(bytes.end(), currentBytes.begin(), currentBytes.end());

    FileVersionScope file(NewestArchiveVersion);
    {
        TestReader reader(bytes, NewestArchiveVersion);
        ASSERT_TRUE(container().ReadFromArchive(reader.archive()));
    }
    ASSERT_EQ(CTavrinSceneStatesContainer::CurrentGroup(), container().FindGroup(groupGuid));
    // The same record again, cut within its last UUID: the group is read
    // again, in the place of the current one, before the read fails.
    bytes.pop_back();
    TestReader reader(bytes, NewestArchiveVersion);
    EXPECT_FALSE(container().ReadFromArchive(reader.archive()));
    CTavrinAnimationCollapsingGroup* after = CTavrinSceneStatesContainer::CurrentGroup();
    if (after) {
        EXPECT_EQ(after->Guid(), groupGuid);
        EXPECT_EQ(container().FindGroup(after->Guid()), after);
    }
}
