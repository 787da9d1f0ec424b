// The legacy key frame: a snapshot of several entities read from older
// documents, copied deeply.

#include "TavrinAnimation/src/TavrinKeyFrame.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "AnimationTestEntities.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

class LegacyKeyFrame : public ::testing::Test {
protected:
    // An entity ID, a type code, then the data's own record (no flags, no
    // start-frame key as tracks have).
    void WriteEntries(RecordWriter& out) {
        out.Int(2);
        out.ID(node).Int(KEYFRAME_TRANSFORM);
        out.ID(node).ID(node).Int(3).Int(3).Int(3).Int(0).Int(0).Int(1).UUID(CTavrinUUID()).UUID(CTavrinUUID());
        out.Matrix(Translation(1, 2, 3)).Vertex(CTavrin3DVertex());
        out.ID(lamp).Int(KEYFRAME_HIDE_SHOW);
        out.ID(lamp).ID(lamp).Int(3).Int(3).Int(3).Int(0).Int(0).Int(1).UUID(CTavrinUUID()).UUID(CTavrinUUID());
    }

    AnimationTestEntities entities;
    CTavrinID node = entities.NewEntity();
    CTavrinID lamp = entities.NewEntity();
};

} // namespace

TEST_F(LegacyKeyFrame, ReadsOneDataPerEntity) {
    TestWriter writer(NewestArchiveVersion);
    RecordWriter out(writer.archive());
    WriteEntries(out);
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    CTavrinKeyFrame keyFrame;
    keyFrame.Set(entities.NewEntity(), CTavrinKeyFrameDataPtr(CreateKeyFrameData(CTavrinID(), KEYFRAME_TRANSFORM)));
    ASSERT_TRUE(keyFrame.ReadFromArchive(reader.archive()));
    EXPECT_TRUE(reader.AtEnd());
    ASSERT_EQ(keyFrame.Entries().size(), 2u); // the entry held before is gone
    auto& transform = dynamic_cast<CTavrinKeyFrameDataTransform&>(*keyFrame.Entries().at(node));
    ExpectMatrixNear(transform.Matrix(), Translation(1, 2, 3), 0.0);
    EXPECT_EQ(transform.StartFrame(), 3);
    // The visibility flag lives outside the data's own record: the factory's value.
    EXPECT_TRUE(dynamic_cast<CTavrinKeyFrameDataHideShow&>(*keyFrame.Entries().at(lamp)).Hide());
}

TEST_F(LegacyKeyFrame, UnknownTypeStopsTheRead) {
    TestWriter writer(NewestArchiveVersion);
    RecordWriter out(writer.archive());
    out.Int(1).ID(node).Int(12);
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    CTavrinKeyFrame keyFrame;
    EXPECT_FALSE(keyFrame.ReadFromArchive(reader.archive()));
    EXPECT_TRUE(keyFrame.Entries().empty());
}

TEST_F(LegacyKeyFrame, CopiesAreDeep) {
    CTavrinKeyFrame keyFrame;
    CTavrinKeyFrameDataPtr data(CTavrinKeyFrameDataTransform::Create(node, Translation(4, 0, 0)));
    keyFrame.Set(node, data);
    CTavrinKeyFrame copy(keyFrame);
    EXPECT_NE(copy.Entries().at(node).get(), data.get());
    EXPECT_EQ(data->ReferenceCount(), 2); // this holder and the original snapshot
    ExpectMatrixNear(dynamic_cast<CTavrinKeyFrameDataTransform&>(*copy.Entries().at(node)).Matrix(),
                     Translation(4, 0, 0), 0.0);
}
