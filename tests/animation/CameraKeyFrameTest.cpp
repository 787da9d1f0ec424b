// Camera key frame data: lens defaults and clamping, the frame overrides,
// the named data members of both member sets, the orbit, transforms, the
// archive record at each version that changed it, and blending.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransformCamera.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "DataMemberNames.h"
#include "ArchiveTestSupport.h"
#include "MatrixExpectations.h"
#include "host/CTavrinCamera.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

using CameraPtr = CTavrinPtr<CTavrinKeyFrameDataTransformCamera>;

// At the origin looking down -Z, the target 5 units ahead.
CTavrinBasicCamera FrontCamera() {
    return CTavrinBasicCamera(CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(0, 0, -5), CTavrin3DVertex(0, 1, 0));
}

CameraPtr NewCamera(const CTavrinID& entity = CTavrinID()) {
    return CameraPtr(new CTavrinKeyFrameDataTransformCamera(entity, FrontCamera()));
}

CTavrin3DVertex PositionOf(const CTavrinMatrix& m) {
    return CTavrin3DVertex(m.M(0, 3), m.M(1, 3), m.M(2, 3));
}

} // namespace

TEST(CameraKeyFrame, FactoryDefaults) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(CTavrinID(), KEYFRAME_CAMERA));
    auto& camera = dynamic_cast<CTavrinKeyFrameDataTransformCamera&>(*data);
    EXPECT_EQ(camera.Type(), KEYFRAME_CAMERA);
    EXPECT_EQ(camera.DistanceToTarget(), 1.0);
    EXPECT_EQ(camera.Angle(), 360.0);
    EXPECT_EQ(camera.FieldOfView(), 30.0);
    EXPECT_EQ(camera.DepthOfFieldDistance(), 5.0);
    EXPECT_EQ(camera.DepthOfFieldFieldStop(), 1.4);
    EXPECT_FALSE(camera.DepthOfFieldEnabled());
    EXPECT_FALSE(camera.HasMemberSet());
    ExpectMatrixNear(camera.Matrix(), CTavrinMatrix());
}

TEST(CameraKeyFrame, FactoryRejectsUnknownTypes) {
    EXPECT_EQ(CreateKeyFrameData(CTavrinID(), 10), nullptr);
    EXPECT_EQ(CreateKeyFrameData(CTavrinID(), -1), nullptr);
}

TEST(CameraKeyFrame, FieldOfViewStaysWithinOneAndHundredSeventyNine) {
    CameraPtr camera = NewCamera();
    camera->SetFieldOfView(200);
    EXPECT_EQ(camera->FieldOfView(), 179.0);
    camera->SetFieldOfView(0.5);
    EXPECT_EQ(camera->FieldOfView(), 1.0);
}

TEST(CameraKeyFrame, FrameSettersReclampTheConstantSpeedWindow) {
    CameraPtr camera = NewCamera();
    camera->SetEndFrame(10, false);
    camera->SetConstantSpeedStartFrame(2);
    camera->SetConstantSpeedEndFrame(8);
    camera->SetStartFrame(5, false);
    EXPECT_EQ(camera->ConstantSpeedStartFrame(), 5);
    EXPECT_EQ(camera->ConstantSpeedEndFrame(), 8);
    camera->SetEndFrame(6, false);
    EXPECT_EQ(camera->ConstantSpeedEndFrame(), 6);
}

TEST(CameraKeyFrame, MembersWithoutTheMemberSet) {
    CameraPtr camera = NewCamera();
    EXPECT_EQ(MemberNames(*camera), (std::vector<std::string>{"Working Frame", "Field Of View [ 1 - 179 ]",
                                                              "Depth Of Field Enabled", "Depth Of Field",
                                                              "DOF Field Stop"}));
    EXPECT_TRUE(camera->DataMemberValueChanged(250.0, 1));
    EXPECT_EQ(camera->FieldOfView(), 179.0);
    EXPECT_TRUE(camera->DataMemberValueChanged(7, 0)); // the working frame moves the whole key
    EXPECT_EQ(camera->StartFrame(), 7);
    EXPECT_EQ(camera->EndFrame(), 7);
}

TEST(CameraKeyFrame, MembersWithTheMemberSet) {
    CameraPtr camera = NewCamera();
    camera->SetMemberSet(true);
    EXPECT_EQ(MemberNames(*camera),
              (std::vector<std::string>{"Start Frame", "End Frame", "Angle", "Field Of View [ 1 - 179 ]",
                                        "Depth Of Field Enabled", "Depth Of Field", "DOF Field Stop"}));
    EXPECT_TRUE(camera->DataMemberValueChanged(9, 0)); // extends the end along
    EXPECT_EQ(camera->StartFrame(), 9);
    EXPECT_EQ(camera->EndFrame(), 9);
    EXPECT_TRUE(camera->DataMemberValueChanged(4, 1)); // pulls the start back
    EXPECT_EQ(camera->StartFrame(), 4);
    EXPECT_TRUE(camera->DataMemberValueChanged(90.0, 2));
    EXPECT_EQ(camera->Angle(), 90.0);
}

TEST(CameraKeyFrame, MemberSetOrbitsTheTarget) {
    CameraPtr camera = NewCamera();
    camera->SetMemberSet(true);
    camera->SetAngle(180);
    camera->SetEndFrame(4, false);
    camera->SetWorkingFrame(4); // half a turn about the target at (0, 0, -5)
    const CTavrin3DVertex position = PositionOf(camera->Matrix());
    EXPECT_NEAR(position.X(), 0, 1e-9);
    EXPECT_NEAR(position.Z(), -10, 1e-9);
    camera->SetWorkingFrame(0);
    EXPECT_NEAR(PositionOf(camera->Matrix()).Z(), 0, 1e-9);
}

TEST(CameraKeyFrame, TransformCarriesTheTargetAlong) {
    CameraPtr camera = NewCamera();
    camera->Transform(Translation(1, 0, 0), true);
    EXPECT_NEAR(camera->DistanceToTarget(), 5, 1e-9);
    camera->Transform(CTavrinMatrix::CreateScalling(2, 2, 2), true);
    EXPECT_NEAR(camera->DistanceToTarget(), 10, 1e-9);
    EXPECT_NEAR(PositionOf(camera->Matrix()).X(), 2, 1e-9);
}

TEST(CameraKeyFrame, SnapshotBakesTheOrbit) {
    CameraPtr camera = NewCamera();
    camera->SetMemberSet(true);
    camera->SetAngle(180);
    camera->SetEndFrame(4, false);
    camera->SetWorkingFrame(4);
    CTavrinKeyFrameDataPtr snapshot(camera->CreateCopy(true));
    auto& baked = dynamic_cast<CTavrinKeyFrameDataTransformCamera&>(*snapshot);
    EXPECT_EQ(baked.StartFrame(), 4);
    EXPECT_EQ(baked.EndFrame(), 4);
    EXPECT_FALSE(baked.HasMemberSet());
    EXPECT_NEAR(PositionOf(baked.Matrix()).Z(), -10, 1e-9);
    EXPECT_NEAR(baked.DistanceToTarget(), 5, 1e-9);
}

TEST(CameraKeyFrame, NewestRecordRoundTrips) {
    CameraPtr camera = NewCamera();
    camera->SetEndFrame(8, false);
    camera->SetConstantSpeedStartFrame(2);
    camera->SetConstantSpeedEndFrame(6);
    camera->SetFieldOfView(45);
    camera->SetDepthOfField(true, 3, 2.8);
    camera->SetAngle(90);
    camera->SetBlendsCameras(true);

    CameraPtr read = NewCamera();
    ASSERT_TRUE(RoundTrip(*camera, *read));
    EXPECT_EQ(read->FieldOfView(), 45.0);
    EXPECT_TRUE(read->DepthOfFieldEnabled());
    EXPECT_EQ(read->DepthOfFieldDistance(), 3.0);
    EXPECT_EQ(read->DepthOfFieldFieldStop(), 2.8);
    EXPECT_EQ(read->Angle(), 90.0);
    EXPECT_EQ(read->DistanceToTarget(), 5.0);
    EXPECT_TRUE(read->BlendsCameras());
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 2);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 6);
}

TEST(CameraKeyFrame, FileOf10049HasNoFieldOfView) {
    TestWriter writer(10049);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(8).Int(0).Int(0).Int(1); // base, legacy value, serial
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex()).Double(5).Double(360).Bool(false).Bool(false).Bool(false);
    CameraPtr read = NewCamera();
    read->SetFieldOfView(80);
    read->SetEaseInMode(2);
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->FieldOfView(), 30.0);
    // Before ease modes the whole span ran at constant speed.
    EXPECT_EQ(read->ConstantSpeedStartFrame(), 0);
    EXPECT_EQ(read->ConstantSpeedEndFrame(), 8);
    EXPECT_EQ(read->EaseInMode(), 0);
}

TEST(CameraKeyFrame, FileOf10070HasNoDepthOfField) {
    TestWriter writer(10070);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(0).Int(0).Int(0).Int(1);
    out.Matrix(CTavrinMatrix()).Vertex(CTavrin3DVertex()).Double(5).Double(360).Bool(false).Bool(false).Bool(false);
    out.Double(60);
    CameraPtr read = NewCamera();
    read->SetDepthOfField(true, 9, 9);
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->FieldOfView(), 60.0);
    EXPECT_FALSE(read->DepthOfFieldEnabled());
    EXPECT_EQ(read->DepthOfFieldDistance(), 5.0);
    EXPECT_EQ(read->DepthOfFieldFieldStop(), 1.4);
}

TEST(CameraKeyFrame, FileOf10013KeptAWholeCamera) {
    const CTavrinBasicCamera stored(CTavrin3DVertex(1, 2, 3), CTavrin3DVertex(1, 2, -1), CTavrin3DVertex(0, 1, 0));
    TestWriter writer(10013);
    RecordWriter out(writer.archive());
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(0).Int(0).Int(0).Int(1);
    out.Bool(false).Double(45);
    CTavrinBasicCamera copy = stored;
    ASSERT_TRUE(writer.archive().ReadWrite(copy));
    CameraPtr read = NewCamera();
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(read->Angle(), 45.0);
    EXPECT_NEAR(read->DistanceToTarget(), 4.0, 1e-12);
    EXPECT_TRUE(read->HasMemberSet());
    EXPECT_TRUE(read->BlendsCameras());
    EXPECT_EQ(PositionOf(stored.ComputeLocalToWorld()).Y(), 2.0);
    read->SetMemberSet(false);
    ExpectMatrixNear(read->Matrix(), stored.ComputeLocalToWorld());
}

TEST(CameraKeyFrame, BlendingCamerasMovesPositionAndLens) {
    AnimationTestEntities entities;
    const CTavrinID camera = entities.NewEntity();
    CTavrinKeyFrameManager manager;
    CameraPtr from = NewCamera(camera);
    CameraPtr to(new CTavrinKeyFrameDataTransformCamera(
        camera, CTavrinBasicCamera(CTavrin3DVertex(10, 0, 0), CTavrin3DVertex(10, 0, -5), CTavrin3DVertex(0, 1, 0))));
    from->SetBlendsCameras(true);
    to->SetBlendsCameras(true);
    to->SetFieldOfView(60);
    to->SetAllFrames(10);
    manager.AddKeyFrameData(from, true);
    manager.AddKeyFrameData(to, true);
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(camera, 5);
    auto& between = dynamic_cast<CTavrinKeyFrameDataTransformCamera&>(*at);
    EXPECT_NEAR(PositionOf(between.Matrix()).X(), 5, 1e-9);
    EXPECT_NEAR(between.FieldOfView(), 45, 1e-12);
    EXPECT_NEAR(between.DistanceToTarget(), 5, 1e-9);
}

TEST(CameraKeyFrame, CamerasWithoutBlendFollowTheirTransform) {
    AnimationTestEntities entities;
    const CTavrinID transform = entities.NewTransform();
    CTavrinKeyFrameManager manager;
    CameraPtr from = NewCamera(transform);
    CameraPtr to = NewCamera(transform);
    to->Transform(Translation(0, 8, 0), true);
    to->SetAllFrames(4);
    manager.AddKeyFrameData(from, true);
    manager.AddKeyFrameData(to, true);
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(transform, 1);
    auto& between = dynamic_cast<CTavrinKeyFrameDataTransformCamera&>(*at);
    EXPECT_NEAR(PositionOf(between.Matrix()).Y(), 2, 1e-9);
    // Without a transform entity there is nothing to blend in.
    CTavrinKeyFrameManager loose;
    loose.AddKeyFrameData(NewCamera(), true);
    CameraPtr later = NewCamera();
    later->SetAllFrames(4);
    loose.AddKeyFrameData(later, true);
    EXPECT_FALSE(loose.KeyFrameDataAt(CTavrinID(), 1));
}

TEST(CameraKeyFrame, FromACameraNodeMeasuresTheTargetInLocalSpace) {
    AnimationTestEntities entities;
    CTavrinTransformNode* rig = CTavrinTransformNode::Create(entities.Document());
    rig->SetLocalMatrix(CTavrinMatrix::CreateScalling(2, 2, 2));
    CTavrinCamera* node = CTavrinCamera::Create(entities.Document());
    node->SetParent(rig);
    node->SetLocalMatrix(Translation(0, 0, 5)); // at (0, 0, 10) in the world
    node->LoadBasicCamera(
        CTavrinBasicCamera(CTavrin3DVertex(0, 0, 10), CTavrin3DVertex(0, 0, 0), CTavrin3DVertex(0, 1, 0)));
    node->SetFOV(50);
    node->SetDOF(true, 7, 2);

    CameraPtr camera(new CTavrinKeyFrameDataTransformCamera(node->LocalTransform()->ID(), node));
    EXPECT_NEAR(camera->DistanceToTarget(), 5, 1e-12); // 10 in the world, halved by the rig's scale
    ExpectMatrixNear(camera->Matrix(), Translation(0, 0, 5), 0.0);
    EXPECT_EQ(camera->FieldOfView(), 50.0);
    EXPECT_TRUE(camera->DepthOfFieldEnabled());
    EXPECT_EQ(camera->DepthOfFieldDistance(), 7.0);

    CameraPtr withoutNode(new CTavrinKeyFrameDataTransformCamera(CTavrinID(), static_cast<const CTavrinCamera*>(nullptr)));
    EXPECT_EQ(withoutNode->DistanceToTarget(), 1.0);
    EXPECT_EQ(withoutNode->FieldOfView(), 30.0);
}

TEST(CameraKeyFrame, TracksOfFilesBefore10014MoveToTheCamerasTransform) {
    AnimationTestEntities entities;
    CTavrinCamera* node = CTavrinCamera::Create(entities.Document());
    const CTavrinID previous = entities.NewEntity();
    TestWriter writer(10013);
    RecordWriter out(writer.archive());
    out.UInt(1).ID(node->ID()).UInt(1).Bool(true).UInt(3).UInt(KEYFRAME_TRANSFORM);
    out.ID(node->ID()).ID(node->ID()).Int(3).Int(3).Int(3).Int(0).Int(2); // legacy value, serial 2
    out.Matrix(Translation(0, 4, 0)).Vertex(CTavrin3DVertex());
    out.UInt(1).ID(previous).ID(node->ID());                           // previous -> camera
    out.Int(0).Int(0).Int(3);
    out.UInt(1).ID(node->ID()).UInt(2);                                 // the camera's counter
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(ReadBack(writer, read));

    ASSERT_NE(node->LocalTransform(), nullptr); // made for the move
    const CTavrinID transform = node->LocalTransform()->ID();
    EXPECT_EQ(read.FindTrack(node->ID()), nullptr);
    ASSERT_NE(read.FindTrack(transform), nullptr);
    const CTavrinKeyFrameData& key = *read.FindTrack(transform)->at(3);
    EXPECT_EQ(key.EntityID(), transform);
    EXPECT_EQ(key.SerialNumber(), 2);
    EXPECT_EQ(read.ResolveEntityID(previous), transform);
    EXPECT_EQ(read.SerialCounter(transform), 2);
    EXPECT_EQ(read.SerialCounter(node->ID()), 0);
}
