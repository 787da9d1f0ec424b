// Copies, snapshots, restoring from a copy, linked GUIDs, the transform's
// named member, and applying key frames to the scene.

#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "AnimationTestEntities.h"
#include "MatrixExpectations.h"
#include "host/CTavrinGeometry.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

using TransformPtr = CTavrinPtr<CTavrinKeyFrameDataTransform>;

TransformPtr NewTransform(const CTavrinID& entity, const CTavrinMatrix& m, int start, int end) {
    TransformPtr key(CTavrinKeyFrameDataTransform::Create(entity, m));
    key->SetEndFrame(end, false);
    key->SetStartFrame(start, false);
    return key;
}

} // namespace

TEST(KeyFrameCopies, FullCopyKeepsEverything) {
    AnimationTestEntities entities;
    const CTavrinID node = entities.NewEntity();
    TransformPtr key = NewTransform(node, Translation(1, 2, 3), 2, 9);
    key->SetPivot(CTavrin3DVertex(4, 5, 6));
    key->SetSerialNumber(5);
    key->SetEaseInMode(3);
    key->SetWorkingFrame(6);
    key->IncrementReferenceCount(); // a second holder: the copy must still start at 0
    CTavrinKeyFrameDataPtr copy(key->CreateCopy(false));
    key->DecrementReferenceCount();
    EXPECT_EQ(copy->ReferenceCount(), 1);
    auto& copied = dynamic_cast<CTavrinKeyFrameDataTransform&>(*copy);
    EXPECT_EQ(copied.StartFrame(), 2);
    EXPECT_EQ(copied.EndFrame(), 9);
    EXPECT_EQ(copied.WorkingFrame(), 6);
    EXPECT_EQ(copied.SerialNumber(), 5);
    EXPECT_EQ(copied.EaseInMode(), 3);
    EXPECT_EQ(copied.Pivot().Y(), 5.0);
    EXPECT_EQ(copied.EntityID(), node);
    ExpectMatrixNear(copied.Matrix(), Translation(1, 2, 3), 0.0);
}

TEST(KeyFrameCopies, SnapshotIsASingleFrameAtTheWorkingFrame) {
    AnimationTestEntities entities;
    const CTavrinID node = entities.NewEntity();
    const CTavrinID original = entities.NewEntity();
    TransformPtr key = NewTransform(node, Translation(1, 2, 3), 2, 9);
    key->SetOriginalEntityID(original);
    key->SetSerialNumber(5);
    key->SetWorkingFrame(6);
    CTavrinKeyFrameDataPtr snapshot(key->CreateCopy(true));
    EXPECT_EQ(snapshot->StartFrame(), 6);
    EXPECT_EQ(snapshot->EndFrame(), 6);
    EXPECT_EQ(snapshot->ConstantSpeedStartFrame(), 6);
    EXPECT_EQ(snapshot->ConstantSpeedEndFrame(), 6);
    EXPECT_EQ(snapshot->SerialNumber(), 0);
    EXPECT_EQ(snapshot->EntityID(), node);
    EXPECT_EQ(snapshot->OriginalEntityID(), original);
    EXPECT_EQ(snapshot->Type(), KEYFRAME_TRANSFORM);
}

TEST(KeyFrameCopies, VisibilityAndMorphCopiesKeepTheirKind) {
    CTavrinKeyFrameDataPtr hide(new CTavrinKeyFrameDataHideShow(CTavrinID(), true));
    hide->SetEndFrame(8, false);
    hide->SetStartFrame(2, false);
    hide->SetWorkingFrame(5);
    CTavrinKeyFrameDataPtr snapshot(hide->CreateCopy(true));
    EXPECT_TRUE(dynamic_cast<CTavrinKeyFrameDataHideShow&>(*snapshot).Hide());
    EXPECT_EQ(snapshot->StartFrame(), 5);
    EXPECT_EQ(snapshot->Type(), KEYFRAME_HIDE_SHOW);

    CTavrinKeyFrameDataPtr morph(new CTavrinKeyFrameDataMorph(CTavrinID(), CTavrinID(), 0.3));
    CTavrinKeyFrameDataPtr copy(morph->CreateCopy(false));
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataMorph&>(*copy).Weight(), 0.3);
    EXPECT_EQ(copy->Type(), KEYFRAME_MORPH);
}

TEST(KeyFrameCopies, RestoreFromCopyTakesMatrixAndSpan) {
    TransformPtr key = NewTransform(CTavrinID(), Translation(1, 0, 0), 2, 9);
    TransformPtr saved(static_cast<CTavrinKeyFrameDataTransform*>(key->MakeCopy()));
    key->Transform(Translation(0, 5, 0), true);
    key->SetStartFrame(4, false);
    key->SetEndFrame(12, false);
    EXPECT_TRUE(key->RestoreFromCopy(saved.get()));
    ExpectMatrixNear(key->Matrix(), Translation(1, 0, 0), 0.0);
    EXPECT_EQ(key->StartFrame(), 2);
    EXPECT_EQ(key->EndFrame(), 9);
    CTavrinKeyFrameDataPtr other(new CTavrinKeyFrameDataHideShow(CTavrinID(), true));
    EXPECT_FALSE(key->RestoreFromCopy(other.get()));
}

TEST(KeyFrameCopies, TransformPremultipliesOrPostmultiplies) {
    TransformPtr key = NewTransform(CTavrinID(), CTavrinMatrix::CreateScalling(2, 2, 2), 0, 0);
    key->Transform(Translation(1, 0, 0), true); // moved after scaling
    EXPECT_EQ(key->Matrix().M(0, 3), 1.0);
    key->Transform(Translation(1, 0, 0), false); // moved before scaling: twice as far
    EXPECT_EQ(key->Matrix().M(0, 3), 3.0);
}

TEST(KeyFrameCopies, LinkedGuidsClearOnlyAsAPair) {
    TransformPtr key = NewTransform(CTavrinID(), CTavrinMatrix(), 0, 0);
    CTavrinUUID first, second;
    first.Generate();
    key->SetLinkedGuids(first, second);
    EXPECT_FALSE(key->HasLinkedGuids());
    key->ClearLinkedGuids();
    EXPECT_TRUE(key->LinkedGuid().IsValid()); // only one was valid: kept
    second.Generate();
    key->SetLinkedGuids(first, second);
    EXPECT_TRUE(key->HasLinkedGuids());
    key->ClearLinkedGuids();
    EXPECT_FALSE(key->LinkedGuid().IsValid());
    EXPECT_FALSE(key->SecondLinkedGuid().IsValid());
}

TEST(KeyFrameCopies, WorkingFrameMemberMovesTheWholeKey) {
    TransformPtr key = NewTransform(CTavrinID(), CTavrinMatrix(), 2, 9);
    ASSERT_EQ(key->DataMembersCount(), 1);
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    EXPECT_NE(key->DataMember(0, type, name), nullptr);
    EXPECT_EQ(name, CTavrinString("Working Frame"));
    EXPECT_EQ(type, DATA_MEMBER_INT);
    EXPECT_TRUE(key->DataMemberValueChanged(12, 0));
    EXPECT_EQ(key->StartFrame(), 12);
    EXPECT_EQ(key->EndFrame(), 12);
    EXPECT_EQ(key->WorkingFrame(), 12);
    EXPECT_FALSE(key->DataMemberValueChanged(1.0, 0)); // wrong type
}

TEST(KeyFrameApply, TransformLoadsItsMatrixIntoTheTransform) {
    AnimationTestEntities entities;
    CTavrinTransform* transform = entities.NewTransformEntity();
    TransformPtr key = NewTransform(transform->ID(), Translation(7, 8, 9), 0, 0);
    key->Apply();
    ExpectMatrixNear(transform->Matrix(), Translation(7, 8, 9), 0.0);
}

TEST(KeyFrameApply, EntityOfTheWrongKindIsLeftAlone) {
    AnimationTestEntities entities;
    TransformPtr key = NewTransform(entities.NewEntity(), Translation(7, 8, 9), 0, 0);
    key->Apply();
    TransformPtr gone = NewTransform(CTavrinID(), Translation(7, 8, 9), 0, 0);
    gone->Apply();
    SUCCEED();
}

TEST(KeyFrameApply, HidingReachesTheWholeSubtreeAndShowingUndoesIt) {
    AnimationTestEntities entities;
    CTavrinTransformNode* root = CTavrinTransformNode::Create(entities.Document());
    CTavrinTransformNode* arm = CTavrinTransformNode::Create(entities.Document());
    CTavrinTransformNode* hand = CTavrinTransformNode::Create(entities.Document());
    CTavrinTransformNode* other = CTavrinTransformNode::Create(entities.Document());
    arm->SetParent(root);
    hand->SetParent(arm);
    other->SetParent(root);

    CTavrinKeyFrameDataPtr hide(new CTavrinKeyFrameDataHideShow(arm->ID(), true));
    hide->Apply();
    EXPECT_TRUE(arm->IsHidden());
    EXPECT_TRUE(hand->IsHidden());
    EXPECT_FALSE(root->IsHidden());
    EXPECT_FALSE(other->IsHidden());

    CTavrinKeyFrameDataPtr show(new CTavrinKeyFrameDataHideShow(arm->ID(), false));
    show->Apply();
    EXPECT_FALSE(arm->IsHidden());
    EXPECT_FALSE(hand->IsHidden());
}

TEST(KeyFrameApply, MorphSetsTheTargetWeightOnTheObject) {
    AnimationTestEntities entities;
    CTavrin3DObject* face = CTavrin3DObject::Create(entities.Document());
    CTavrinGeometry* smile = CTavrinGeometry::Create(entities.Document());
    CTavrinGeometry* notATarget = CTavrinGeometry::Create(entities.Document());
    face->MorphingTable()->AddMorphGeometry(smile);

    CTavrinKeyFrameDataPtr(new CTavrinKeyFrameDataMorph(smile->ID(), face->ID(), 0.75))->Apply();
    EXPECT_EQ(face->MorphingTable()->GetMorphWeight(smile), 0.75);
    CTavrinKeyFrameDataPtr(new CTavrinKeyFrameDataMorph(notATarget->ID(), face->ID(), 0.5))->Apply();
    EXPECT_EQ(face->MorphingTable()->GetMorphWeight(notATarget), 0.0);
    // An object without morph geometries is left alone.
    CTavrin3DObject* plain = CTavrin3DObject::Create(entities.Document());
    CTavrinKeyFrameDataPtr(new CTavrinKeyFrameDataMorph(smile->ID(), plain->ID(), 0.1))->Apply();
    EXPECT_EQ(face->MorphingTable()->GetMorphWeight(smile), 0.75);
}
