// Vertices key frame data: the table of the working frame lent to the
// document's table and always taken back, copies, the archive record, and
// blending two key frames vector by vector.

#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "ArchiveTestSupport.h"
#include "host/CTavrinTables.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

using VerticesPtr = CTavrinPtr<CTavrinKeyFrameDataVertices>;

CTavrinBasic3DVectorsTable* TableOf(std::vector<CTavrin3DVertex> vectors) {
    return new CTavrinBasic3DVectorsTable(std::move(vectors));
}

class VerticesKeyFrame : public ::testing::Test {
protected:
    // Frames 4, 5, 6 with one vector each, at x = 0, 1, 2.
    VerticesPtr NewThreeFrames(const CTavrinID& entity) {
        VerticesPtr key(new CTavrinKeyFrameDataVertices(entity, TableOf({CTavrin3DVertex(0, 0, 0)})));
        key->AddTable(TableOf({CTavrin3DVertex(1, 0, 0)}));
        key->AddTable(TableOf({CTavrin3DVertex(2, 0, 0)}));
        key->SetEndFrame(6, false);
        key->SetStartFrame(4, false);
        return key;
    }

    AnimationTestEntities entities;
    CTavrinVerticiesTable* vertices = CTavrinVerticiesTable::Create(entities.Document(), true);
};

void ExpectVectors(const CTavrinBasic3DVectorsTable* table, const std::vector<CTavrin3DVertex>& expected) {
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->Vectors().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(table->Vectors()[i].X(), expected[i].X(), 1e-12) << i;
        EXPECT_NEAR(table->Vectors()[i].Y(), expected[i].Y(), 1e-12) << i;
        EXPECT_NEAR(table->Vectors()[i].Z(), expected[i].Z(), 1e-12) << i;
    }
}

} // namespace

TEST_F(VerticesKeyFrame, FactoryMakesOneEmptyTable) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(vertices->ID(), KEYFRAME_VERTICES));
    auto& key = dynamic_cast<CTavrinKeyFrameDataVertices&>(*data);
    EXPECT_EQ(key.Type(), KEYFRAME_VERTICES);
    EXPECT_EQ(key.TableCount(), 1);
    EXPECT_EQ(key.Table(0)->GetCount(), 0);
    EXPECT_EQ(key.Table(1), nullptr);
}

TEST_F(VerticesKeyFrame, ApplyLendsTheTableOfTheWorkingFrame) {
    vertices->AddVertex(9, 9, 9);
    VerticesPtr key = NewThreeFrames(vertices->ID());
    key->SetWorkingFrame(5);
    key->Apply();
    EXPECT_EQ(vertices->LentBasicTable(), key->Table(1));
    key->SetWorkingFrame(6);
    key->Apply();
    EXPECT_EQ(vertices->LentBasicTable(), key->Table(2));
    EXPECT_EQ(vertices->ShownTableRevision(), 2);
    // The document's own vectors are left alone.
    ASSERT_EQ(vertices->GetCount(), 1);
    EXPECT_EQ(vertices->GetVertex(0)->X(), 9.0);
}

TEST_F(VerticesKeyFrame, FramePastTheTablesShowsTheOwnVectors) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    key->SetWorkingFrame(4);
    key->Apply();
    key->SetEndFrame(8, false);
    key->SetWorkingFrame(8);
    key->Apply();
    EXPECT_EQ(vertices->LentBasicTable(), nullptr);
}

TEST_F(VerticesKeyFrame, ApplyToAnEntityThatIsNoTableDoesNothing) {
    VerticesPtr key = NewThreeFrames(entities.NewEntity());
    key->Apply();
    EXPECT_EQ(vertices->LentBasicTable(), nullptr);
}

TEST_F(VerticesKeyFrame, KeyFrameTakesItsTableBackWhenItGoes) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    key->Apply();
    EXPECT_NE(vertices->LentBasicTable(), nullptr);
    key = nullptr;
    EXPECT_EQ(vertices->LentBasicTable(), nullptr);
}

TEST_F(VerticesKeyFrame, KeyFrameLeavesAnotherKeyFramesTableLent) {
    VerticesPtr shown = NewThreeFrames(vertices->ID());
    VerticesPtr other = NewThreeFrames(vertices->ID());
    shown->Apply();
    other = nullptr;
    EXPECT_EQ(vertices->LentBasicTable(), shown->Table(0));
}

TEST_F(VerticesKeyFrame, ManagerClearTakesTablesBackAndDropsThem) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    CTavrinKeyFrameManager manager;
    manager.AddKeyFrameData(key, true);
    key->Apply();
    manager.Clear();
    EXPECT_EQ(vertices->LentBasicTable(), nullptr);
    EXPECT_EQ(key->TableCount(), 0);
}

TEST_F(VerticesKeyFrame, SnapshotHoldsACopyOfTheWorkingFramesTable) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    key->SetWorkingFrame(5);
    CTavrinKeyFrameDataPtr snapshot(key->CreateCopy(true));
    auto& single = dynamic_cast<CTavrinKeyFrameDataVertices&>(*snapshot);
    EXPECT_EQ(single.StartFrame(), 5);
    EXPECT_EQ(single.EndFrame(), 5);
    ASSERT_EQ(single.TableCount(), 1);
    EXPECT_NE(single.Table(0), key->Table(1));
    ExpectVectors(single.Table(0), {CTavrin3DVertex(1, 0, 0)});
}

TEST_F(VerticesKeyFrame, FullCopyCopiesEveryTable) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    CTavrinKeyFrameDataPtr copy(key->CreateCopy(false));
    auto& copied = dynamic_cast<CTavrinKeyFrameDataVertices&>(*copy);
    ASSERT_EQ(copied.TableCount(), 3);
    EXPECT_NE(copied.Table(2), key->Table(2));
    ExpectVectors(copied.Table(2), {CTavrin3DVertex(2, 0, 0)});
    EXPECT_EQ(copied.StartFrame(), 4);
    EXPECT_EQ(copied.EndFrame(), 6);
}

TEST_F(VerticesKeyFrame, NewestRecordRoundTrips) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    VerticesPtr read(new CTavrinKeyFrameDataVertices(CTavrinID(), TableOf({CTavrin3DVertex(7, 7, 7)})));
    ASSERT_TRUE(RoundTrip(*key, *read));
    EXPECT_FALSE(read->IsReading());
    EXPECT_EQ(read->EntityID(), vertices->ID());
    ASSERT_EQ(read->TableCount(), 3);
    ExpectVectors(read->Table(0), {CTavrin3DVertex(0, 0, 0)});
    ExpectVectors(read->Table(2), {CTavrin3DVertex(2, 0, 0)});
}

TEST_F(VerticesKeyFrame, RecordIsTheCountThenEachTable) {
    TestWriter writer(NewestArchiveVersion);
    RecordWriter out(writer.archive());
    out.ID(vertices->ID()).ID(vertices->ID()).Int(2).Int(3).Int(2).Int(0).Int(0).Int(1);
    out.UUID(CTavrinUUID()).UUID(CTavrinUUID());
    out.Int(2).Int(1).Double(1).Double(2).Double(3).Int(0);
    VerticesPtr read(new CTavrinKeyFrameDataVertices(CTavrinID(), nullptr));
    ASSERT_TRUE(ReadBack(writer, *read));
    ASSERT_EQ(read->TableCount(), 2);
    ExpectVectors(read->Table(0), {CTavrin3DVertex(1, 2, 3)});
    ExpectVectors(read->Table(1), {});
}

TEST_F(VerticesKeyFrame, ShortOrNegativeRecordsFail) {
    TestWriter shortWriter(NewestArchiveVersion);
    RecordWriter shortRecord(shortWriter.archive());
    shortRecord.ID(vertices->ID()).ID(vertices->ID()).Int(2).Int(3).Int(2).Int(0).Int(0).Int(1);
    shortRecord.UUID(CTavrinUUID()).UUID(CTavrinUUID());
    // Two tables announced, the second cut off after its count.
    shortRecord.Int(2).Int(1).Double(1).Double(2).Double(3).Int(5).Double(1);
    FileVersionScope file(NewestArchiveVersion);
    TestReader shortReader(shortWriter.Bytes(), NewestArchiveVersion);
    VerticesPtr read(new CTavrinKeyFrameDataVertices(CTavrinID(), nullptr));
    EXPECT_FALSE(read->ArchiveReadWrite(shortReader.archive()));
    EXPECT_FALSE(read->IsReading());
    EXPECT_EQ(read->TableCount(), 1);

    TestWriter negativeWriter(NewestArchiveVersion);
    RecordWriter negative(negativeWriter.archive());
    negative.ID(vertices->ID()).ID(vertices->ID()).Int(2).Int(3).Int(2).Int(0).Int(0).Int(1);
    negative.UUID(CTavrinUUID()).UUID(CTavrinUUID()).Int(-1);
    TestReader negativeReader(negativeWriter.Bytes(), NewestArchiveVersion);
    EXPECT_FALSE(read->ArchiveReadWrite(negativeReader.archive()));
    EXPECT_EQ(read->TableCount(), 0);
}

TEST_F(VerticesKeyFrame, ReadingTakesBackTheTableItReplaces) {
    VerticesPtr key = NewThreeFrames(vertices->ID());
    key->Apply();
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(key->ArchiveReadWrite(writer.archive()));
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    ASSERT_TRUE(key->ArchiveReadWrite(reader.archive()));
    EXPECT_EQ(vertices->LentBasicTable(), nullptr);
}

TEST_F(VerticesKeyFrame, GapBlendsVectorByVector) {
    CTavrinKeyFrameManager manager;
    CTavrinKeyFrameDataPtr first(new CTavrinKeyFrameDataVertices(
        vertices->ID(), TableOf({CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(5, 5, 5)})));
    CTavrinKeyFrameDataPtr second(new CTavrinKeyFrameDataVertices(
        vertices->ID(), TableOf({CTavrin3DVertex(10, 0, 0), CTavrin3DVertex(0, 20, 0)})));
    second->SetAllFrames(10);
    manager.AddKeyFrameData(first, true);
    manager.AddKeyFrameData(second, true);
    CTavrinKeyFrameDataPtr between = manager.KeyFrameDataAt(vertices->ID(), 4);
    ASSERT_TRUE(between);
    EXPECT_EQ(between->Type(), KEYFRAME_VERTICES);
    // The third vector has no partner and stays where the first key put it.
    ExpectVectors(dynamic_cast<CTavrinKeyFrameDataVertices&>(*between).Table(0),
                  {CTavrin3DVertex(4, 0, 0), CTavrin3DVertex(0, 8, 0), CTavrin3DVertex(5, 5, 5)});
}
