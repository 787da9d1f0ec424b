// Archive records of the key frame manager and its key frame data: round
// trips at the newest layout, dense serial numbers on writing, and records
// of older layouts built by hand, one per version threshold.

#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"
#include "host/CTavrinGeometry.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

// Never savable, like a path follower whose path is gone.
class UnsavableTransform : public CTavrinKeyFrameDataTransform {
public:
    using CTavrinKeyFrameDataTransform::CTavrinKeyFrameDataTransform;
    bool IsSavable() override { return false; }
};

class KeyFrameArchive : public ::testing::Test {
protected:
    CTavrinKeyFrameDataTransform* AddTransform(CTavrinKeyFrameManager& target, const CTavrinID& entity, int start,
                                               int end, const CTavrinMatrix& m, int serial = 0) {
        CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(entity, m));
        key->SetEndFrame(end, false);
        key->SetStartFrame(start, false);
        key->SetSerialNumber(serial);
        target.AddKeyFrameData(key, true);
        return static_cast<CTavrinKeyFrameDataTransform*>(key.get());
    }

    // Writes source into an archive of version and reads the bytes back into
    // a new manager. Key frame data always write their newest layout, so the
    // document being read is of the newest version.
    bool RoundTrip(CTavrinKeyFrameManager& source, CTavrinKeyFrameManager& target, unsigned int version) {
        TestWriter writer(version);
        if (!source.ArchiveReadWrite(writer.archive()))
            return false;
        FileVersionScope file(NewestArchiveVersion);
        TestReader reader(writer.Bytes(), version);
        return target.ArchiveReadWrite(reader.archive()) && reader.AtEnd();
    }

    static CTavrinKeyFrameData& At(const CTavrinKeyFrameManager& manager, const CTavrinID& entity, int start) {
        return *manager.FindTrack(entity)->at(start);
    }

    AnimationTestEntities entities;
    CTavrinID first = entities.NewEntity();
    CTavrinID second = entities.NewEntity();
    CTavrinKeyFrameManager manager;
};

} // namespace

TEST_F(KeyFrameArchive, NewestLayoutRoundTrips) {
    CTavrinKeyFrameDataTransform* key = AddTransform(manager, first, 2, 6, Translation(1, 2, 3));
    key->SetPivot(CTavrin3DVertex(0.5, -1, 2));
    key->SetEaseInMode(1);
    key->SetEaseOutMode(3);
    key->SetConstantSpeedStartFrame(3);
    key->SetConstantSpeedEndFrame(5);
    key->SetWorkingFrame(4);
    AddTransform(manager, first, 10, 10, CTavrinMatrix::CreateScalling(2, 2, 2));
    CTavrinKeyFrameDataTransform* moved = AddTransform(manager, second, 7, 7, Translation(-4, 0, 0));
    moved->SetOriginalEntityID(first);
    manager.AddKeyFrameData(CTavrinKeyFrameDataPtr(moved), false); // records first -> second

    CTavrinKeyFrameManager read;
    ASSERT_TRUE(RoundTrip(manager, read, NewestArchiveVersion));

    ASSERT_EQ(read.Tracks().size(), 2u);
    auto& readKey = dynamic_cast<CTavrinKeyFrameDataTransform&>(At(read, first, 2));
    EXPECT_EQ(readKey.EndFrame(), 6);
    EXPECT_EQ(readKey.WorkingFrame(), 4);
    EXPECT_EQ(readKey.EaseInMode(), 1);
    EXPECT_EQ(readKey.EaseOutMode(), 3);
    EXPECT_EQ(readKey.SerialNumber(), 1);
    EXPECT_EQ(readKey.Pivot().Y(), -1.0);
    ExpectMatrixNear(readKey.Matrix(), Translation(1, 2, 3), 0.0);
    // Constant-speed frames are not part of the base record.
    EXPECT_EQ(readKey.ConstantSpeedStartFrame(), 0);
    EXPECT_EQ(At(read, first, 10).SerialNumber(), 2);
    EXPECT_EQ(At(read, second, 7).OriginalEntityID(), first);
    EXPECT_EQ(read.ResolveEntityID(first), second);
    EXPECT_EQ(read.SerialCounter(first), 2);
    EXPECT_EQ(read.SerialCounter(second), 1);
    EXPECT_EQ(read.RangeStart(), 0);
    EXPECT_EQ(read.RangeEnd(), 10);
    EXPECT_EQ(read.AnimatedEntities(), (std::set<CTavrinID>{first, second}));
}

TEST_F(KeyFrameArchive, SerialNumbersAreWrittenDenseAndRestored) {
    CTavrinKeyFrameData* a = AddTransform(manager, first, 1, 1, CTavrinMatrix(), 4);
    CTavrinKeyFrameData* b = AddTransform(manager, first, 2, 2, CTavrinMatrix(), 4);
    CTavrinKeyFrameData* c = AddTransform(manager, first, 3, 3, CTavrinMatrix(), 9);

    CTavrinKeyFrameManager read;
    ASSERT_TRUE(RoundTrip(manager, read, NewestArchiveVersion));
    EXPECT_EQ(At(read, first, 1).SerialNumber(), 1);
    EXPECT_EQ(At(read, first, 2).SerialNumber(), 1);
    EXPECT_EQ(At(read, first, 3).SerialNumber(), 2);
    EXPECT_EQ(read.SerialCounter(first), 2);

    EXPECT_EQ(a->SerialNumber(), 4);
    EXPECT_EQ(b->SerialNumber(), 4);
    EXPECT_EQ(c->SerialNumber(), 9);
    EXPECT_EQ(manager.SerialCounter(first), 0);
}

TEST_F(KeyFrameArchive, UnsavableEntryIsCountedButWrittenAsAFalseFlag) {
    CTavrinKeyFrameDataPtr unsavable(new UnsavableTransform(first, CTavrinMatrix()));
    unsavable->SetAllFrames(1);
    manager.AddKeyFrameData(unsavable, true);
    AddTransform(manager, first, 4, 4, Translation(0, 0, 8));

    // Below the version of the named-object record the manager's record
    // starts with its tracks, so it can be read back field by field.
    TestWriter writer(10058);
    ASSERT_TRUE(manager.ArchiveReadWrite(writer.archive()));
    TestReader reader(writer.Bytes(), 10058);
    CTavrinArchiveBase& in = reader.archive();
    unsigned int tracks = 0, entries = 0, key = 0, type = 0;
    bool savable = true;
    CTavrinID entity;
    ASSERT_TRUE(in.ReadWrite(tracks) && in.ReadWrite(entity) && in.ReadWrite(entries));
    EXPECT_EQ(tracks, 1u);
    EXPECT_EQ(entries, 2u);
    ASSERT_TRUE(in.ReadWrite(savable));
    EXPECT_FALSE(savable);
    ASSERT_TRUE(in.ReadWrite(savable) && in.ReadWrite(key) && in.ReadWrite(type));
    EXPECT_TRUE(savable);
    EXPECT_EQ(key, 4u);
    EXPECT_EQ(type, 0u);

    CTavrinKeyFrameManager read;
    ASSERT_TRUE(RoundTrip(manager, read, 10058));
    EXPECT_EQ(read.FindTrack(first)->size(), 1u);
}

TEST_F(KeyFrameArchive, UnknownTypeCodeFailsTheRecord) {
    TestWriter writer(10058);
    RecordWriter out(writer.archive());
    out.UInt(1).ID(first).UInt(1).Bool(true).UInt(3).UInt(42);
    FileVersionScope file(10058);
    TestReader reader(writer.Bytes(), 10058);
    CTavrinKeyFrameManager read;
    EXPECT_FALSE(read.ArchiveReadWrite(reader.archive()));
    EXPECT_TRUE(read.Tracks().empty());
}

// The oldest layout: no savable flags, a legacy value instead of the ease
// modes, no serial numbers, no pivot, no serial counters.
TEST_F(KeyFrameArchive, Version10002) {
    TestWriter writer(10002);
    RecordWriter out(writer.archive());
    out.UInt(1).ID(first).UInt(1);                                  // one track, one entry
    out.UInt(4).UInt(KEYFRAME_TRANSFORM);                           // key, type
    out.ID(first).ID(first).Int(4).Int(4).Int(4).Int(77);           // base: frames, legacy value
    out.Matrix(Translation(3, 0, 0));                               // no pivot
    out.UInt(0).Int(0).Int(0).Int(4);                               // no redirects; reserved, range
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));
    auto& key = dynamic_cast<CTavrinKeyFrameDataTransform&>(At(read, first, 4));
    EXPECT_EQ(key.LegacyValue(), 77);
    EXPECT_EQ(key.EaseInMode(), 0);
    EXPECT_EQ(key.SerialNumber(), 0);
    EXPECT_EQ(key.ConstantSpeedStartFrame(), 4); // start equals end
    EXPECT_EQ(key.ConstantSpeedEndFrame(), 4);
    EXPECT_EQ(key.Pivot().X(), 0.0);
    ExpectMatrixNear(key.Matrix(), Translation(3, 0, 0), 0.0);
    EXPECT_EQ(read.RangeEnd(), 4);
}

TEST_F(KeyFrameArchive, Version10003AddsTheSavableFlag) {
    TestWriter writer(10003);
    RecordWriter out(writer.archive());
    out.UInt(1).ID(first).UInt(2);
    out.Bool(false);                                                 // skipped entry
    out.Bool(true).UInt(2).UInt(KEYFRAME_TRANSFORM);
    out.ID(first).ID(first).Int(2).Int(6).Int(3).Int(0);
    out.Matrix(CTavrinMatrix());
    out.UInt(0).Int(0).Int(0).Int(0);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));
    ASSERT_EQ(read.FindTrack(first)->size(), 1u);
    EXPECT_EQ(At(read, first, 2).WorkingFrame(), 3);
    EXPECT_EQ(At(read, first, 2).ConstantSpeedStartFrame(), 0); // start differs from end
}

TEST_F(KeyFrameArchive, Version10006AddsSerialNumbersPivotAndCounters) {
    TestWriter writer(10006);
    RecordWriter out(writer.archive());
    out.UInt(1).ID(first).UInt(1).Bool(true).UInt(5).UInt(KEYFRAME_TRANSFORM);
    out.ID(first).ID(first).Int(5).Int(5).Int(5).Int(0).Int(3);     // legacy value, serial 3
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex(1, 2, 3));
    out.UInt(1).ID(second).ID(first);                                // one redirect
    out.Int(0).Int(0).Int(5);
    out.UInt(1).ID(first).UInt(3);                                   // one counter
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));
    auto& key = dynamic_cast<CTavrinKeyFrameDataTransform&>(At(read, first, 5));
    EXPECT_EQ(key.SerialNumber(), 3);
    EXPECT_EQ(key.Pivot().Z(), 3.0);
    EXPECT_EQ(read.SerialCounter(first), 3);
    EXPECT_EQ(read.ResolveEntityID(second), first);
}

TEST_F(KeyFrameArchive, Version12201ReplacesTheLegacyValueByEaseModes) {
    TestWriter writer(12201);
    RecordWriter out(writer.archive());
    out.Manager().UInt(1).ID(first).UInt(1).Bool(true).UInt(5).UInt(KEYFRAME_TRANSFORM);
    out.ID(first).ID(first).Int(5).Int(5).Int(5).Int(2).Int(1).Int(1); // ease in 2, out 1, serial 1
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex());
    out.UInt(0).Int(0).Int(0).Int(5).UInt(0);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));
    EXPECT_EQ(At(read, first, 5).EaseInMode(), 2);
    EXPECT_EQ(At(read, first, 5).EaseOutMode(), 1);
    EXPECT_EQ(At(read, first, 5).LegacyValue(), 0);
}

TEST_F(KeyFrameArchive, Version12503AddsTheLinkedGuids) {
    CTavrinUUID linked, secondLinked;
    linked.Generate();
    secondLinked.Generate();
    TestWriter writer(12503);
    RecordWriter out(writer.archive());
    out.Manager().UInt(1).ID(first).UInt(1).Bool(true).UInt(5).UInt(KEYFRAME_TRANSFORM);
    out.ID(first).ID(first).Int(5).Int(5).Int(5).Int(0).Int(0).Int(1).UUID(linked).UUID(secondLinked);
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex());
    out.UInt(0).Int(0).Int(0).Int(5).UInt(0);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));
    EXPECT_TRUE(At(read, first, 5).HasLinkedGuids());
    EXPECT_EQ(At(read, first, 5).LinkedGuid(), linked); // no entity has it: kept as read
    EXPECT_EQ(At(read, first, 5).SecondLinkedGuid(), secondLinked);
}

TEST_F(KeyFrameArchive, NegativeFramesOfADamagedRecordReadAsZero) {
    TestWriter writer(NewestArchiveVersion);
    RecordWriter out(writer.archive());
    out.ID(first).ID(first).Int(-7).Int(-2147483647 - 1).Int(-3).Int(0).Int(0).Int(1).UUID(CTavrinUUID());
    out.UUID(CTavrinUUID()).Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex());
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    CTavrinKeyFrameDataPtr read(CTavrinKeyFrameDataTransform::Create(CTavrinID(), CTavrinMatrix()));
    ASSERT_TRUE(read->ArchiveReadWrite(reader.archive()));
    EXPECT_EQ(read->StartFrame(), 0);
    EXPECT_EQ(read->EndFrame(), 0);
    EXPECT_EQ(read->WorkingFrame(), 0);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 0);
}

TEST_F(KeyFrameArchive, VisibilityRecordStartsAt10212) {
    CTavrinKeyFrameDataPtr show(new CTavrinKeyFrameDataHideShow(first, false));
    show->SetAllFrames(3);
    manager.AddKeyFrameData(show, true);

    CTavrinKeyFrameManager old;
    ASSERT_TRUE(RoundTrip(manager, old, 10211));
    // Nothing of the key frame was stored: it comes back as the factory makes it.
    const auto& oldKey = dynamic_cast<const CTavrinKeyFrameDataHideShow&>(At(old, first, 3));
    EXPECT_TRUE(oldKey.Hide());
    EXPECT_EQ(oldKey.StartFrame(), 0);

    CTavrinKeyFrameManager current;
    ASSERT_TRUE(RoundTrip(manager, current, 10212));
    const auto& key = dynamic_cast<const CTavrinKeyFrameDataHideShow&>(At(current, first, 3));
    EXPECT_FALSE(key.Hide());
    EXPECT_EQ(key.StartFrame(), 3);
}

TEST_F(KeyFrameArchive, MorphRecordsBeforeAndAfterThePerTargetLayout) {
    TestWriter writer(13003);
    RecordWriter out(writer.archive());
    out.Manager().UInt(1).ID(first).UInt(1).Bool(true).UInt(2).UInt(KEYFRAME_MORPH);
    out.ID(first).ID(first).Int(2).Int(2).Int(2).Int(0).Int(0).Int(1).UUID(CTavrinUUID()).UUID(CTavrinUUID());
    out.UInt(3).Double(0.25).Double(0.5).Double(1.0);
    out.UInt(0).Int(0).Int(0).Int(2).UInt(0);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));
    EXPECT_EQ(dynamic_cast<const CTavrinKeyFrameDataMorph&>(At(read, first, 2)).LegacyWeights(),
              (std::vector<double>{0.25, 0.5, 1.0}));

    CTavrinKeyFrameDataPtr morph(new CTavrinKeyFrameDataMorph(first, second, 0.75));
    morph->SetAllFrames(6);
    manager.AddKeyFrameData(morph, true);
    CTavrinKeyFrameManager current;
    ASSERT_TRUE(RoundTrip(manager, current, 13014));
    const auto& key = dynamic_cast<const CTavrinKeyFrameDataMorph&>(At(current, first, 6));
    EXPECT_EQ(key.Weight(), 0.75);
    EXPECT_EQ(key.MorphedObjectID(), second);
    EXPECT_TRUE(key.LegacyWeights().empty());

    CTavrinKeyFrameManager older;
    ASSERT_TRUE(RoundTrip(manager, older, 13002));
    EXPECT_EQ(dynamic_cast<const CTavrinKeyFrameDataMorph&>(At(older, first, 6)).Weight(), 0.0);
}

TEST_F(KeyFrameArchive, LegacyMorphWeightsBecomeOneKeyPerTarget) {
    CTavrin3DObject* object = CTavrin3DObject::Create(entities.Document());
    CTavrinGeometry* smile = CTavrinGeometry::Create(entities.Document());
    CTavrinGeometry* frown = CTavrinGeometry::Create(entities.Document());
    object->MorphingTable()->AddMorphGeometry(smile);
    object->MorphingTable()->AddMorphGeometry(frown);

    TestWriter writer(13003);
    RecordWriter out(writer.archive());
    out.Manager().UInt(1).ID(object->ID()).UInt(1).Bool(true).UInt(2).UInt(KEYFRAME_MORPH);
    out.ID(object->ID()).ID(object->ID()).Int(2).Int(2).Int(2).Int(0).Int(0).Int(4);
    out.UUID(CTavrinUUID()).UUID(CTavrinUUID());
    out.UInt(3).Double(0.25).Double(0.5).Double(1.0); // one weight more than targets
    out.UInt(0).Int(0).Int(0).Int(2).UInt(0);
    FileVersionScope file(13003);
    TestReader reader(writer.Bytes(), 13003);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(read.ArchiveReadWrite(reader.archive()));

    EXPECT_EQ(read.FindTrack(object->ID()), nullptr);
    const auto& smiling = dynamic_cast<const CTavrinKeyFrameDataMorph&>(At(read, smile->ID(), 2));
    const auto& frowning = dynamic_cast<const CTavrinKeyFrameDataMorph&>(At(read, frown->ID(), 2));
    EXPECT_EQ(smiling.Weight(), 0.25);
    EXPECT_EQ(frowning.Weight(), 0.5);
    EXPECT_EQ(smiling.MorphedObjectID(), object->ID());
    EXPECT_EQ(smiling.SerialNumber(), 4);
    EXPECT_TRUE(smiling.LegacyWeights().empty());
    EXPECT_EQ(read.Tracks().size(), 2u);
}

TEST_F(KeyFrameArchive, LinkedGuidFollowsAReplacedEntity) {
    CTavrinDocumentsContainer* documents = CTavrinDocumentsContainer::DocumentsContainer();
    CTavrinTransformNode* linkedNode = CTavrinTransformNode::Create(entities.Document());
    documents->AddDocument(entities.Document());
    CTavrinUUID oldGuid;
    oldGuid.Generate();
    documents->RecordReplacedUUID(oldGuid, linkedNode->GetGuid());

    TestWriter writer(12503);
    RecordWriter out(writer.archive());
    out.ID(first).ID(first).Int(5).Int(5).Int(5).Int(0).Int(0).Int(1).UUID(oldGuid).UUID(oldGuid);
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex());
    FileVersionScope file(12503);
    TestReader reader(writer.Bytes(), 12503);
    CTavrinKeyFrameDataPtr key(CreateKeyFrameData(first, KEYFRAME_TRANSFORM));
    const bool read = key->ArchiveReadWrite(reader.archive());
    documents->RemoveDocument(entities.Document());
    ASSERT_TRUE(read);
    EXPECT_EQ(key->LinkedGuid(), linkedNode->GetGuid());
    EXPECT_EQ(key->SecondLinkedGuid(), oldGuid); // stored as read
}
