// Sequences and the sequence container: registration, groups, copies and the
// insert message.

#include "TavrinAnimation/src/TavrinSequenceContainer.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

// Each test works on a fresh process-wide container.
class SequenceContainer : public ::testing::Test {
protected:
    void SetUp() override { CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer()); }
    void TearDown() override { CTavrinSequenceContainer::SetInstance(nullptr); }

    CTavrinSequenceContainer& container() { return *CTavrinSequenceContainer::GetInstance(); }

    // Created and handed to the container, which then holds the only reference.
    CTavrinSequence* Registered() {
        CTavrinSequence* sequence = CTavrinSequence::Create();
        container().AddSequence(sequence);
        return sequence;
    }
};

} // namespace

TEST_F(SequenceContainer, StartsWithOnlyTheDefaultGroup) {
    EXPECT_EQ(container().DefaultGroup()->Caption(), CTavrinString("Default"));
    EXPECT_FALSE(container().DefaultGroup()->Guid().IsValid());
    EXPECT_EQ(container().DefaultGroup()->Order(), -1);
    EXPECT_EQ(container().GroupCount(), 0u);
    EXPECT_TRUE(container().Sequences().empty());
    EXPECT_EQ(CTavrinSequenceContainer::CurrentGroup(), container().DefaultGroup());
}

TEST_F(SequenceContainer, InvalidUuidFindsTheDefaultGroup) {
    EXPECT_EQ(container().FindGroup(CTavrinUUID()), container().DefaultGroup());
    CTavrinUUID unknown;
    unknown.Generate();
    EXPECT_EQ(container().FindGroup(unknown), nullptr);
    EXPECT_EQ(container().FindSequence(unknown), nullptr);
}

TEST_F(SequenceContainer, CreatedSequenceJoinsTheDefaultGroup) {
    CTavrinSequence* sequence = Registered();
    EXPECT_FALSE(sequence->GroupGuid().IsValid());
    EXPECT_EQ(sequence->Group(), container().DefaultGroup());
    EXPECT_EQ(container().DefaultGroup()->SequenceGuids().count(sequence->Guid()), 1u);
    EXPECT_EQ(container().FindSequence(sequence->Guid()), sequence);
    EXPECT_EQ(sequence->ReferenceCount(), 1);
}

TEST_F(SequenceContainer, GroupsAreOrderedAndCaptionedByCounter) {
    CTavrinAnimationCollapsingGroup* first = container().CreateGroup();
    CTavrinAnimationCollapsingGroup* second = container().CreateGroup();
    EXPECT_EQ(first->Order(), 0);
    EXPECT_EQ(second->Order(), 1);
    EXPECT_TRUE(first->Guid().IsValid());
    EXPECT_FALSE(first->Guid() == second->Guid());
    EXPECT_EQ(container().FindGroup(second->Guid()), second);
    // The running number goes on from group to group: "Group n", "Group n+1".
    const std::string firstCaption = first->Caption().toStdString();
    ASSERT_EQ(firstCaption.rfind("Group ", 0), 0u);
    const int number = std::stoi(firstCaption.substr(6));
    EXPECT_EQ(second->Caption(), CTavrinString("Group ") + CTavrinString(number + 1));
}

TEST_F(SequenceContainer, SetGroupMovesTheSequenceBetweenGroups) {
    CTavrinSequence* sequence = Registered();
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    sequence->SetGroup(group);
    EXPECT_EQ(sequence->Group(), group);
    EXPECT_EQ(group->SequenceGuids().count(sequence->Guid()), 1u);
    EXPECT_TRUE(container().DefaultGroup()->SequenceGuids().empty());
    sequence->SetGroup(nullptr);
    EXPECT_EQ(sequence->Group(), group);
}

TEST_F(SequenceContainer, GroupOfAnUnknownUuidIsNull) {
    CTavrinSequence* sequence = Registered();
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    sequence->SetGroup(group);
    const CTavrinSequencePtr held(sequence); // outlives the container that registered it
    CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer());
    EXPECT_EQ(held->Group(), nullptr);
}

TEST_F(SequenceContainer, AddingARegisteredSequenceAgainOnlyMarksItRecent) {
    CTavrinSequence* first = Registered();
    CTavrinSequence* second = Registered();
    container().AddSequence(first);
    EXPECT_EQ(container().Sequences().size(), 2u);
    EXPECT_EQ(first->ReferenceCount(), 1);
    EXPECT_EQ(container().RecentlyAdded(), (std::vector<CTavrinSequence*>{first}));

    container().SetAccumulatesRecentlyAdded(true);
    container().AddSequence(second);
    EXPECT_EQ(container().RecentlyAdded(), (std::vector<CTavrinSequence*>{first, second}));
}

TEST_F(SequenceContainer, EmptyCopyKeepsGroupImageAndValueButNoKeys) {
    CTavrinSequence* sequence = Registered();
    sequence->SetName(CTavrinString("walk"));
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    sequence->SetGroup(group);
    sequence->SetPersistedValue(2.5);
    sequence->SetPreviewImageFile(CTavrinString("preview.png"));

    CTavrinSequencePtr copy(sequence->CreateEmptyCopy());
    EXPECT_EQ(copy->Name(), CTavrinString("walk_copy"));
    EXPECT_EQ(copy->Group(), group);
    EXPECT_EQ(copy->PersistedValue(), 2.5);
    EXPECT_EQ(copy->PreviewImage().FullFilename(), sequence->PreviewImage().FullFilename());
    EXPECT_FALSE(copy->PreviewImage().IsEmpty());
    EXPECT_FALSE(copy->Guid() == sequence->Guid());
    group->RemoveSequence(copy.get());
}

TEST_F(SequenceContainer, ClearForgetsTheIdentity) {
    CTavrinSequencePtr sequence(new CTavrinSequence());
    const CTavrinUUID before = sequence->Guid();
    sequence->SetNotSaved(true);
    sequence->SetPreviewImageFile(CTavrinString("preview.png"));
    sequence->Clear();
    EXPECT_FALSE(sequence->IsNotSaved());
    EXPECT_TRUE(sequence->PreviewImage().IsEmpty());
    EXPECT_FALSE(sequence->Guid() == before); // a new one is generated on demand
}
