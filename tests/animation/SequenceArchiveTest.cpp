// Archive records of sequences, groups and the sequence container, at the
// newest layout and at each version that changed them.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "AnimationTestEntities.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

class SequenceArchive : public ::testing::Test {
protected:
    void SetUp() override { CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer()); }
    void TearDown() override { CTavrinSequenceContainer::SetInstance(nullptr); }

    CTavrinSequenceContainer& container() { return *CTavrinSequenceContainer::GetInstance(); }

    CTavrinSequence* Registered(const char* name) {
        CTavrinSequence* sequence = CTavrinSequence::Create();
        sequence->SetName(CTavrinString(name));
        container().AddSequence(sequence);
        return sequence;
    }

    static void AddKey(CTavrinSequence& sequence, const CTavrinID& entity, int frame, double x) {
        CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(entity, Translation(x, 0, 0)));
        key->SetAllFrames(frame);
        sequence.AddKeyFrameData(key, true);
    }

    CTavrinSequencePtr RoundTrip(CTavrinSequence& sequence, unsigned int version) {
        TestWriter writer(version);
        if (!sequence.ArchiveReadWrite(writer.archive()))
            return nullptr;
        FileVersionScope file(version);
        TestReader reader(writer.Bytes(), version);
        CTavrinSequencePtr read(CTavrinSequence::ReadSequence(reader.archive()));
        EXPECT_TRUE(reader.AtEnd());
        return read;
    }

    AnimationTestEntities entities;
    CTavrinID node = entities.NewEntity();
};

} // namespace

TEST_F(SequenceArchive, NewestLayoutRoundTrips) {
    CTavrinSequence* sequence = Registered("walk");
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    sequence->SetGroup(group);
    sequence->SetPersistedCounter(7);
    sequence->SetPersistedValue(2.5);
    sequence->SetPreviewImageFile(CTavrinString("textures/walk.png"));
    AddKey(*sequence, node, 3, 1.5);

    CTavrinSequencePtr read = RoundTrip(*sequence, NewestArchiveVersion);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Name(), CTavrinString("walk"));
    EXPECT_EQ(read->Guid(), sequence->Guid());
    EXPECT_EQ(read->GroupGuid(), group->Guid());
    EXPECT_EQ(read->Group(), group);
    EXPECT_EQ(read->PersistedCounter(), 7u);
    EXPECT_EQ(read->PersistedValue(), 2.5);
    CTavrinString expectedImage("textures/walk.png");
    expectedImage.ReplaceSlashWithSystemSlash();
    EXPECT_EQ(read->PreviewImage().FullFilename(), expectedImage);
    ASSERT_NE(read->FindTrack(node), nullptr);
    EXPECT_EQ(
        dynamic_cast<CTavrinKeyFrameDataTransform&>(*read->FindTrack(node)->at(3)).Matrix().M(0, 3), 1.5);
}

TEST_F(SequenceArchive, BeforeVersion11007NothingIsStored) {
    CTavrinSequence* sequence = Registered("walk");
    AddKey(*sequence, node, 3, 1.5);
    TestWriter writer(11006);
    ASSERT_TRUE(sequence->ArchiveReadWrite(writer.archive()));
    EXPECT_TRUE(writer.Bytes().empty());
    CTavrinSequencePtr read = RoundTrip(*sequence, 11006);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->Tracks().empty());
}

TEST_F(SequenceArchive, Version11007HasNoGroupAndNoCounter) {
    CTavrinSequence* sequence = Registered("walk");
    sequence->SetGroup(container().CreateGroup());
    sequence->SetPersistedCounter(7);
    CTavrinSequencePtr read = RoundTrip(*sequence, 11007);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Guid(), sequence->Guid());
    EXPECT_FALSE(read->GroupGuid().IsValid());
    EXPECT_EQ(read->PersistedCounter(), 0u);
}

TEST_F(SequenceArchive, Version11012HasNoPreviewAndNoValue) {
    CTavrinSequence* sequence = Registered("walk");
    sequence->SetPersistedCounter(7);
    sequence->SetPersistedValue(2.5);
    sequence->SetPreviewImageFile(CTavrinString("walk.png"));
    CTavrinSequencePtr read = RoundTrip(*sequence, 11012);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->PersistedCounter(), 7u);
    EXPECT_TRUE(read->PreviewImage().IsEmpty());
    EXPECT_EQ(read->PersistedValue(), -1.0);
}

TEST_F(SequenceArchive, Version11013AddsThePreviewButNotTheValue) {
    CTavrinSequence* sequence = Registered("walk");
    sequence->SetPersistedValue(2.5);
    sequence->SetPreviewImageFile(CTavrinString("walk.png"));
    CTavrinSequencePtr read = RoundTrip(*sequence, 12519);
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->PreviewImage().IsEmpty());
    EXPECT_EQ(read->PersistedValue(), -1.0);
}

TEST_F(SequenceArchive, ContainerWritesOnlyWhatIsSaved) {
    CTavrinSequence* kept = Registered("kept");
    CTavrinSequence* dropped = Registered("dropped");
    dropped->SetNotSaved(true);
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    kept->SetGroup(group);
    dropped->SetGroup(group);
    CTavrinAnimationCollapsingGroup* unsavedGroup = container().CreateGroup();
    unsavedGroup->SetNotSaved(true);
    CTavrinSequenceContainer::SetCurrentGroup(group);

    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));
    const CTavrinUUID groupGuid = group->Guid();
    const CTavrinString groupCaption = group->Caption();
    const int groupOrder = group->Order();

    // Replacing the container releases everything written.
    auto* read = new CTavrinSequenceContainer();
    CTavrinSequenceContainer::SetInstance(read);
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    ASSERT_TRUE(read->ReadFromArchive(reader.archive()));
    EXPECT_TRUE(reader.AtEnd());
    ASSERT_EQ(read->Sequences().size(), 1u);
    CTavrinSequence* readKept = read->Sequences().begin()->second.get();
    EXPECT_EQ(readKept->Name(), CTavrinString("kept"));
    EXPECT_EQ(read->GroupCount(), 1u);
    CTavrinAnimationCollapsingGroup* readGroup = read->FindGroup(groupGuid);
    ASSERT_NE(readGroup, nullptr);
    EXPECT_EQ(readGroup->Caption(), groupCaption);
    EXPECT_EQ(readGroup->Order(), groupOrder);
    EXPECT_EQ(readGroup->SequenceGuids(), (std::set<CTavrinUUID>{readKept->Guid()}));
    EXPECT_EQ(readKept->Group(), readGroup);
    EXPECT_EQ(CTavrinSequenceContainer::CurrentGroup(), readGroup);
    EXPECT_TRUE(read->DefaultGroupSequences().empty());
}

TEST_F(SequenceArchive, ContainerBefore11012WritesOnlyTheSequences) {
    CTavrinSequence* sequence = Registered("walk");
    sequence->SetGroup(container().CreateGroup());
    TestWriter writer(11011);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));

    FileVersionScope file(11011);
    TestReader reader(writer.Bytes(), 11011);
    int count = 0;
    ASSERT_TRUE(reader.archive().ReadWrite(count));
    EXPECT_EQ(count, 1);
    CTavrinSequencePtr read(CTavrinSequence::ReadSequence(reader.archive()));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Guid(), sequence->Guid());
    EXPECT_TRUE(reader.AtEnd());
}

TEST_F(SequenceArchive, SequencesOfTheDefaultGroupAreListedOnReading) {
    Registered("loose");
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));
    CTavrinSequenceContainer read;
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    ASSERT_TRUE(read.ReadFromArchive(reader.archive()));
    ASSERT_EQ(read.DefaultGroupSequences().size(), 1u);
    EXPECT_EQ(read.DefaultGroupSequences()[0]->Name(), CTavrinString("loose"));
    EXPECT_EQ(read.DefaultGroup()->SequenceGuids().size(), 1u);
}

TEST_F(SequenceArchive, ContainerReadStopsAtAFailingSequence) {
    Registered("first");
    Registered("second");
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));
    // The count and the first sequence (in UUID order), then a cut a few
    // bytes into the second.
    TestWriter firstOnly(NewestArchiveVersion);
    int count = 2;
    ASSERT_TRUE(firstOnly.archive().ReadWrite(count));
    ASSERT_TRUE(container().Sequences().begin()->second->ArchiveReadWrite(firstOnly.archive()));
    std::vector<unsigned char> bytes = writer.Bytes();
    bytes.resize(firstOnly.Bytes().size() + 6);
    CTavrinSequenceContainer read;
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(bytes, NewestArchiveVersion);
    EXPECT_FALSE(read.ReadFromArchive(reader.archive()));
    ASSERT_EQ(read.Sequences().size(), 1u);
    EXPECT_EQ(read.Sequences().begin()->second->Name(), container().Sequences().begin()->second->Name());
}

// Reading a document into the container that wrote it replaces its groups and
// sequences under the same UUIDs. A read that fails after that must leave
// nothing pointing at what was replaced: the current group and the recently
// added list are used long after the failed read.
TEST_F(SequenceArchive, ContainerReadFailingAtTheEndLeavesNothingDangling) {
    CTavrinSequence* sequence = Registered("walk");
    CTavrinAnimationCollapsingGroup* group = container().CreateGroup();
    group->SetCaption(CTavrinString("Walks"));
    sequence->SetGroup(group);
    CTavrinSequenceContainer::SetCurrentGroup(group);
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container().WriteIntoArchive(writer.archive()));
    // Everything but the last byte of the current group's UUID.
    std::vector<std::uint8_t> bytes = writer.Bytes();
    bytes.pop_back();

    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(bytes, NewestArchiveVersion);
    EXPECT_FALSE(container().ReadFromArchive(reader.archive()));

    CTavrinAnimationCollapsingGroup* current = CTavrinSequenceContainer::CurrentGroup();
    if (current) {
        EXPECT_EQ(current->Caption(), CTavrinString("Walks"));
        EXPECT_EQ(container().FindGroup(current->Guid()), current);
    }
    for (CTavrinSequence* recent : container().RecentlyAdded())
        EXPECT_EQ(container().FindSequence(recent->Guid()), recent);
    TestWriter rewritten(NewestArchiveVersion);
    EXPECT_TRUE(container().WriteIntoArchive(rewritten.archive()));
    EXPECT_EQ(rewritten.Bytes(), writer.Bytes());
}
