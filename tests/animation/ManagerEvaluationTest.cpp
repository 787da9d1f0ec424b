// Evaluating a track at a frame: on a key frame, in a gap between two key
// frames (transform, morph and visibility), and before or after the track.

#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Tavrin;

namespace {

class ManagerEvaluation : public ::testing::Test {
protected:
    CTavrinKeyFrameDataTransform* AddTransform(const CTavrinID& entity, int start, int end, const CTavrinMatrix& m) {
        CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(entity, m));
        key->SetEndFrame(end, false);
        key->SetStartFrame(start, false);
        manager.AddKeyFrameData(key, true);
        return static_cast<CTavrinKeyFrameDataTransform*>(key.get());
    }

    static CTavrinMatrix MatrixOf(const CTavrinKeyFrameDataPtr& key) {
        return dynamic_cast<CTavrinKeyFrameDataTransform&>(*key).Matrix();
    }

    AnimationTestEntities entities;
    CTavrinID node = entities.NewTransform();
    CTavrinKeyFrameManager manager;
};

} // namespace

TEST_F(ManagerEvaluation, EntityWithoutTrackGivesNothing) {
    EXPECT_FALSE(manager.KeyFrameDataAt(node, 3));
}

TEST_F(ManagerEvaluation, FrameOnAKeyGivesASingleFrameSnapshot) {
    AddTransform(node, 5, 12, Translation(1, 2, 3));
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 8);
    ASSERT_TRUE(at);
    EXPECT_EQ(at->Type(), KEYFRAME_TRANSFORM);
    EXPECT_EQ(at->StartFrame(), 8);
    EXPECT_EQ(at->EndFrame(), 8);
    EXPECT_EQ(at->WorkingFrame(), 8);
    EXPECT_EQ(at->EntityID(), node);
    ExpectMatrixNear(MatrixOf(at), Translation(1, 2, 3), 0.0);
}

TEST_F(ManagerEvaluation, BeforeTheTrackGivesACopyOfTheFirstKey) {
    CTavrinKeyFrameDataTransform* firstKey = AddTransform(node, 5, 8, Translation(1, 0, 0));
    AddTransform(node, 20, 20, Translation(2, 0, 0));
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 2);
    ASSERT_TRUE(at);
    EXPECT_NE(at.get(), firstKey);
    EXPECT_EQ(at->StartFrame(), 5);
    EXPECT_EQ(at->EndFrame(), 8);
    EXPECT_EQ(at->WorkingFrame(), 5);
    EXPECT_EQ(at->SerialNumber(), firstKey->SerialNumber());
    ExpectMatrixNear(MatrixOf(at), Translation(1, 0, 0), 0.0);
}

TEST_F(ManagerEvaluation, AfterTheTrackGivesACopyOfTheLastKey) {
    AddTransform(node, 5, 8, Translation(1, 0, 0));
    AddTransform(node, 20, 24, Translation(2, 0, 0));
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 30);
    ASSERT_TRUE(at);
    EXPECT_EQ(at->StartFrame(), 20);
    EXPECT_EQ(at->EndFrame(), 24);
    EXPECT_EQ(at->WorkingFrame(), 24);
    ExpectMatrixNear(MatrixOf(at), Translation(2, 0, 0), 0.0);
}

TEST_F(ManagerEvaluation, GapBetweenSingleFrameKeysIsLinear) {
    AddTransform(node, 5, 5, Translation(0, 0, 0));
    AddTransform(node, 10, 10, Translation(10, -5, 0));
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 7); // t = 2/5
    ASSERT_TRUE(at);
    ExpectMatrixNear(MatrixOf(at), Translation(4, -2, 0));
}

TEST_F(ManagerEvaluation, GapRunsFromTheEndOfOneKeyToTheStartOfTheNext) {
    AddTransform(node, 2, 5, Translation(0, 0, 0));
    AddTransform(node, 10, 12, Translation(0, 0, 10));
    ExpectMatrixNear(MatrixOf(manager.KeyFrameDataAt(node, 6)), Translation(0, 0, 2));
}

TEST_F(ManagerEvaluation, EaseModesOfTheTwoKeysShapeTheGap) {
    CTavrinKeyFrameDataTransform* from = AddTransform(node, 5, 5, Translation(0, 0, 0));
    CTavrinKeyFrameDataTransform* to = AddTransform(node, 15, 15, Translation(10, 0, 0));
    from->SetEaseOutMode(1);
    to->SetEaseInMode(2);
    ExpectMatrixNear(MatrixOf(manager.KeyFrameDataAt(node, 6)), Translation(0.4, 0, 0));  // 0.04
    ExpectMatrixNear(MatrixOf(manager.KeyFrameDataAt(node, 14)), Translation(9.6, 0, 0)); // 0.96
}

TEST_F(ManagerEvaluation, PivotOfTheLaterNumberedKeyIsUsed) {
    CTavrinKeyFrameDataTransform* from = AddTransform(node, 0, 0, CTavrinMatrix());
    const CTavrinMatrix toPivot = Translation(1, 0, 0);
    CTavrinKeyFrameDataTransform* to =
        AddTransform(node, 2, 2, toPivot * CTavrinMatrix::DefineByRotation(3.14159265358979323846 / 2, 0, 0, 1) *
                                     toPivot.Inverse());
    to->SetPivot(CTavrin3DVertex(1, 0, 0));
    from->SetPivot(CTavrin3DVertex(-7, 0, 0));
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 1);
    const double half = std::sqrt(0.5);
    EXPECT_NEAR(MatrixOf(at).M(0, 3), 1 - half, 1e-9);
    EXPECT_NEAR(MatrixOf(at).M(1, 3), -half, 1e-9);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataTransform&>(*at).Pivot().X(), 1.0);
}

TEST_F(ManagerEvaluation, GapOfAnEntityThatIsNoTransformGivesNothing) {
    const CTavrinID nothing;
    AddTransform(nothing, 0, 0, CTavrinMatrix());
    AddTransform(nothing, 4, 4, Translation(4, 0, 0));
    EXPECT_FALSE(manager.KeyFrameDataAt(nothing, 2));
    EXPECT_TRUE(manager.KeyFrameDataAt(nothing, 4)); // on a key no blending is needed
}

TEST_F(ManagerEvaluation, MorphWeightsBlendLinearly) {
    const CTavrinID object = entities.NewEntity();
    CTavrinKeyFrameDataPtr from(new CTavrinKeyFrameDataMorph(node, object, 0.2));
    from->SetAllFrames(5);
    CTavrinKeyFrameDataPtr to(new CTavrinKeyFrameDataMorph(node, entities.NewEntity(), 0.7));
    to->SetAllFrames(10);
    manager.AddKeyFrameData(from, true);
    manager.AddKeyFrameData(to, true);
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 7);
    auto& morph = dynamic_cast<CTavrinKeyFrameDataMorph&>(*at);
    EXPECT_NEAR(morph.Weight(), 0.4, 1e-12);
    EXPECT_EQ(morph.MorphedObjectID(), object);
}

TEST_F(ManagerEvaluation, VisibilityStepsWithoutBlending) {
    CTavrinKeyFrameDataPtr hide(new CTavrinKeyFrameDataHideShow(node, true));
    hide->SetAllFrames(5);
    CTavrinKeyFrameDataPtr show(new CTavrinKeyFrameDataHideShow(node, false));
    show->SetAllFrames(10);
    manager.AddKeyFrameData(hide, true);
    manager.AddKeyFrameData(show, true);
    const CTavrinKeyFrameDataPtr at = manager.KeyFrameDataAt(node, 9);
    EXPECT_TRUE(dynamic_cast<CTavrinKeyFrameDataHideShow&>(*at).Hide());
    EXPECT_EQ(at->StartFrame(), 5);
}

TEST_F(ManagerEvaluation, KeysOfDifferentKindsDoNotBlend) {
    AddTransform(node, 0, 0, CTavrinMatrix());
    CTavrinKeyFrameDataPtr morph(new CTavrinKeyFrameDataMorph(node, CTavrinID(), 1.0));
    morph->SetAllFrames(4);
    manager.AddKeyFrameData(morph, true);
    EXPECT_FALSE(manager.KeyFrameDataAt(node, 2));
}

TEST_F(ManagerEvaluation, BakedTrackOfTenThousandFrames) {
    // Baked in reverse so that every insert lands at the front of the track.
    for (int frame = 9999; frame >= 0; --frame)
        AddTransform(node, frame, frame, Translation(frame, 0, 0));
    EXPECT_EQ(manager.FindTrack(node)->size(), 10000u);
    for (int frame = 0; frame < 10000; frame += 7)
        EXPECT_EQ(MatrixOf(manager.KeyFrameDataAt(node, frame)).M(0, 3), frame);
    EXPECT_EQ(manager.SerialCounter(node), 10000);
}
