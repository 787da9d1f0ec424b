// Path follower key frame data: travelling along a line path with its
// constant-speed window, the frame overrides and named members, savability,
// the archive record at each version that changed it, copies and blending.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransformBSplineFollower.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "DataMemberNames.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"
#include "host/CTavrinLinePath.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tavrin;

namespace {

using FollowerPtr = CTavrinPtr<CTavrinKeyFrameDataTransformBSplineFollower>;

class PathFollower : public ::testing::Test {
protected:
    // An L of length 20: ten units along X, then ten along Y.
    CTavrinID NewLPath() {
        CTavrinLinePath* path = CTavrinLinePath::Create(entities.Document());
        path->SetBasicPath({CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(10, 0, 0), CTavrin3DVertex(10, 10, 0)});
        return path->ID();
    }

    // Over frames [start, end], the whole span at constant speed.
    FollowerPtr NewFollower(int start, int end, const CTavrinID& path) {
        FollowerPtr follower(new CTavrinKeyFrameDataTransformBSplineFollower(transform, CTavrinMatrix()));
        follower->SetEndFrame(end, false);
        follower->SetStartFrame(start, false);
        follower->SetConstantSpeedStartFrame(start);
        follower->SetConstantSpeedEndFrame(end);
        follower->SetPath(path, node);
        return follower;
    }

    static CTavrin3DVertex PositionAt(CTavrinKeyFrameDataTransformBSplineFollower& follower, int frame) {
        follower.SetWorkingFrame(frame);
        const CTavrinMatrix m = follower.Matrix();
        return CTavrin3DVertex(m.M(0, 3), m.M(1, 3), m.M(2, 3));
    }

    AnimationTestEntities entities;
    CTavrinID transform = entities.NewTransform();
    CTavrinID node = entities.NewEntity();
};

} // namespace

TEST_F(PathFollower, FactoryMakesAFollowerWithoutAPath) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(transform, KEYFRAME_BSPLINE_FOLLOWER));
    auto& follower = dynamic_cast<CTavrinKeyFrameDataTransformBSplineFollower&>(*data);
    EXPECT_EQ(follower.Type(), KEYFRAME_BSPLINE_FOLLOWER);
    EXPECT_TRUE(follower.PathID().IsDefault());
    EXPECT_TRUE(follower.FollowedNodeID().IsDefault());
    EXPECT_FALSE(follower.IsSavable());
    ExpectMatrixNear(follower.Matrix(), CTavrinMatrix());
    follower.SetPath(NewLPath(), node);
    EXPECT_TRUE(follower.IsSavable());
}

TEST_F(PathFollower, TravelsTheLengthOfThePathAtConstantSpeed) {
    FollowerPtr follower = NewFollower(0, 10, NewLPath());
    ExpectPointNear(PositionAt(*follower, 0), 0, 0, 0);
    ExpectPointNear(PositionAt(*follower, 5), 10, 0, 0);
    ExpectPointNear(PositionAt(*follower, 7), 10, 4, 0);
    ExpectPointNear(PositionAt(*follower, 10), 10, 10, 0);
}

TEST_F(PathFollower, AcceleratesUpToTheConstantSpeedStart) {
    FollowerPtr follower = NewFollower(0, 10, NewLPath());
    follower->SetConstantSpeedStartFrame(5);
    // Two frames into a five-frame acceleration of a ten-frame span:
    // 2 * 3 / (10 * 5) = 0.12 of the 20 units.
    EXPECT_NEAR((follower->SetWorkingFrame(2), follower->PathProgress()), 0.12, 1e-12);
    ExpectPointNear(PositionAt(*follower, 2), 2.4, 0, 0);
}

TEST_F(PathFollower, PlacementOrientationAndOffsetCompose) {
    FollowerPtr follower = NewFollower(0, 10, NewLPath());
    follower->SetPathPlacement(Translation(0, 0, 1));
    ExpectPointNear(PositionAt(*follower, 7), 10, 4, 1);
    follower->SetPathPlacement(CTavrinMatrix());
    follower->SetOrientation(CTavrinMatrix::DefineByRotation(1.57079632679489661923, 0, 0, 1));
    follower->SetOffset(Translation(1, 0, 0));
    // The offset along X turns to +Y before the move to (10, 4, 0).
    ExpectPointNear(PositionAt(*follower, 7), 10, 5, 0);
}

TEST_F(PathFollower, WithoutItsPathTheStoredPlacementHolds) {
    FollowerPtr follower;
    {
        AnimationTestEntities elsewhere;
        CTavrinLinePath* path = CTavrinLinePath::Create(elsewhere.Document());
        path->SetBasicPath({CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(0, 0, 8)});
        follower = NewFollower(0, 4, path->ID());
        follower->SetWorkingFrame(2);
        follower->ApplyPathPlacement();
    }
    ExpectMatrixNear(follower->Matrix(), Translation(0, 0, 4));
}

TEST_F(PathFollower, ApplyPlacesTheTransformAtThePointReached) {
    CTavrinTransform* moved = entities.NewTransformEntity();
    FollowerPtr follower(new CTavrinKeyFrameDataTransformBSplineFollower(moved->ID(), CTavrinMatrix()));
    follower->SetEndFrame(10, false);
    follower->SetConstantSpeedEndFrame(10);
    follower->SetPath(NewLPath(), node);
    follower->SetWorkingFrame(7);
    follower->Apply();
    ExpectMatrixNear(moved->Matrix(), Translation(10, 4, 0));
}

TEST_F(PathFollower, FrameSettersReclampTheConstantSpeedWindow) {
    FollowerPtr follower = NewFollower(0, 10, NewLPath());
    follower->SetConstantSpeedStartFrame(2);
    follower->SetConstantSpeedEndFrame(8);
    follower->SetStartFrame(4, false);
    follower->SetEndFrame(6, false);
    EXPECT_EQ(follower->ConstantSpeedStartFrame(), 4);
    EXPECT_EQ(follower->ConstantSpeedEndFrame(), 6);
}

TEST_F(PathFollower, NamedMembersAreItsFourFrames) {
    FollowerPtr follower = NewFollower(5, 10, NewLPath());
    std::vector<int> types;
    EXPECT_EQ(MemberNames(*follower, &types), (std::vector<std::string>{"Start Frame", "End Frame",
                                                                        "Constant Speed Start Frame",
                                                                        "Constant Speed End Frame"}));
    EXPECT_EQ(types, std::vector<int>(4, DATA_MEMBER_INT));
    ASSERT_TRUE(follower->DataMemberValueChanged(3, 1)); // the end frame pulls the start along
    EXPECT_EQ(follower->StartFrame(), 3);
    EXPECT_EQ(follower->EndFrame(), 3);
    ASSERT_TRUE(follower->DataMemberValueChanged(12, 0)); // the start frame pushes the end along
    EXPECT_EQ(follower->EndFrame(), 12);
    ASSERT_TRUE(follower->DataMemberValueChanged(20, 3)); // kept within the span
    EXPECT_EQ(follower->ConstantSpeedEndFrame(), 12);
}

TEST_F(PathFollower, NewestRecordRoundTrips) {
    const CTavrinID path = NewLPath();
    FollowerPtr follower = NewFollower(2, 12, path);
    follower->SetConstantSpeedStartFrame(4);
    follower->SetConstantSpeedEndFrame(9);
    follower->SetPathPlacement(Translation(1, 0, 0));
    follower->SetOrientation(Translation(0, 2, 0));
    follower->SetOffset(Translation(0, 0, 3));
    follower->SetMatrix(Translation(7, 7, 7));

    FollowerPtr read(new CTavrinKeyFrameDataTransformBSplineFollower(CTavrinID(), CTavrinMatrix()));
    ASSERT_TRUE(RoundTrip(*follower, *read));
    EXPECT_EQ(read->PathID(), path);
    EXPECT_EQ(read->FollowedNodeID(), node);
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 4);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 9);
    ExpectMatrixNear(read->PathPlacement(), Translation(1, 0, 0));
    ExpectMatrixNear(read->Orientation(), Translation(0, 2, 0));
    ExpectMatrixNear(read->Offset(), Translation(0, 0, 3));
    read->SetPath(CTavrinID(), CTavrinID());
    ExpectMatrixNear(read->Matrix(), Translation(7, 7, 7));
}

TEST_F(PathFollower, FileBefore12201DerivesTheEaseModesFromTheWindow) {
    const CTavrinID path = NewLPath();
    TestWriter writer(12200);
    RecordWriter out(writer.archive());
    out.ID(transform).ID(transform).Int(0).Int(10).Int(0).Int(0).Int(1); // base, legacy value, serial
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex()).Matrix(CTavrinMatrix()).ID(path);
    out.Matrix(CTavrinMatrix()).Matrix(CTavrinMatrix()).ID(node).Int(2).Int(8);
    FollowerPtr read(new CTavrinKeyFrameDataTransformBSplineFollower(CTavrinID(), CTavrinMatrix()));
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 2);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 8);
    EXPECT_EQ(read->EaseInMode(), 1);
    EXPECT_EQ(read->EaseOutMode(), 2);
}

TEST_F(PathFollower, FileBefore10047RunsTheWholeSpanAtConstantSpeed) {
    TestWriter writer(10046);
    RecordWriter out(writer.archive());
    out.ID(transform).ID(transform).Int(3).Int(9).Int(3).Int(0).Int(1);
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex()).Matrix(CTavrinMatrix()).ID(NewLPath());
    out.Matrix(CTavrinMatrix()).Matrix(CTavrinMatrix()).ID(node);
    FollowerPtr read(new CTavrinKeyFrameDataTransformBSplineFollower(CTavrinID(), CTavrinMatrix()));
    read->SetEaseInMode(3);
    read->SetEaseOutMode(3);
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 3);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 9);
    EXPECT_EQ(read->EaseInMode(), 0);
    EXPECT_EQ(read->EaseOutMode(), 0);
}

TEST_F(PathFollower, ArchiveBefore11000NamedTheCurveOfThePath) {
    const CTavrinID curve = entities.NewEntity();
    const CTavrinID path = NewLPath();
    CTavrinDocumentsContainer::DocumentsContainer()->RecordLinePathID(curve, path);
    TestWriter writer(10999);
    RecordWriter out(writer.archive());
    out.ID(transform).ID(transform).Int(0).Int(10).Int(0).Int(0).Int(1);
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex()).Matrix(CTavrinMatrix()).ID(curve);
    out.Matrix(CTavrinMatrix()).Matrix(CTavrinMatrix()).ID(node).Int(0).Int(10);
    FollowerPtr read(new CTavrinKeyFrameDataTransformBSplineFollower(CTavrinID(), CTavrinMatrix()));
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->PathID(), path);
}

TEST_F(PathFollower, SnapshotIsAPlainTransformAtThePointReached) {
    FollowerPtr follower = NewFollower(0, 10, NewLPath());
    follower->SetWorkingFrame(7);
    CTavrinKeyFrameDataPtr snapshot(follower->CreateCopy(true));
    EXPECT_EQ(snapshot->Type(), KEYFRAME_TRANSFORM);
    EXPECT_EQ(snapshot->StartFrame(), 7);
    ExpectMatrixNear(dynamic_cast<CTavrinKeyFrameDataTransform&>(*snapshot).Matrix(), Translation(10, 4, 0));
    CTavrinKeyFrameDataPtr copy(follower->CreateCopy(false));
    EXPECT_EQ(copy->Type(), KEYFRAME_BSPLINE_FOLLOWER);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataTransformBSplineFollower&>(*copy).PathID(), follower->PathID());
}

TEST_F(PathFollower, GapAfterTheFollowerBlendsFromThePathsEnd) {
    CTavrinKeyFrameManager manager;
    manager.AddKeyFrameData(NewFollower(0, 10, NewLPath()), true);
    CTavrinKeyFrameDataPtr after(CTavrinKeyFrameDataTransform::Create(transform, Translation(30, 0, 0)));
    after->SetAllFrames(20);
    manager.AddKeyFrameData(after, true);
    CTavrinKeyFrameDataPtr between = manager.KeyFrameDataAt(transform, 15);
    ASSERT_TRUE(between);
    EXPECT_EQ(between->Type(), KEYFRAME_TRANSFORM);
    ExpectMatrixNear(dynamic_cast<CTavrinKeyFrameDataTransform&>(*between).Matrix(), Translation(20, 5, 0));
}
