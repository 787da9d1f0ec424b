// What a sequence gives out: its JSON form in the imported document, and the
// message that inserts it into the scene.

#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransform.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "TavrinAnimation/src/TavrinSequenceJson.h"
#include "TavrinAnimation/src/TavrinSequenceMessage.h"
#include "AnimationTestEntities.h"
#include "MatrixExpectations.h"

#include <gtest/gtest.h>

#include <map>

using namespace Tavrin;

namespace {

class SequenceOutput : public ::testing::Test {
protected:
    void SetUp() override {
        CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer());
        CTavrinMessageManager::Instance()->ClearDistributedMessages();
        sequence = CTavrinSequence::Create();
        CTavrinSequenceContainer::GetInstance()->AddSequence(sequence);
        sequence->SetName(CTavrinString("robot_Animation"));
    }
    void TearDown() override {
        CTavrinSequenceContainer::SetInstance(nullptr);
        CTavrinMessageManager::Instance()->ClearDistributedMessages();
    }

    void AddKey(const CTavrinID& entity, int frame, const CTavrinMatrix& matrix) {
        CTavrinKeyFrameDataPtr key(CTavrinKeyFrameDataTransform::Create(entity, matrix));
        key->SetAllFrames(frame);
        sequence->AddKeyFrameData(key, true);
    }

    AnimationTestEntities entities;
    CTavrinSequence* sequence = nullptr;
};

} // namespace

TEST_F(SequenceOutput, JsonListsTransformTracksByNodeIdAndKeysByStart) {
    CTavrinAnimationCollapsingGroup* group = CTavrinSequenceContainer::GetInstance()->CreateGroup();
    group->SetCaption(CTavrinString("robot"));
    sequence->SetGroup(group);
    // Made in this order, so the entity IDs sort the other way round from
    // the node ids given below.
    const CTavrinID arm = entities.NewTransform();
    const CTavrinID leg = entities.NewTransform();
    const CTavrinID unlisted = entities.NewTransform();
    AddKey(arm, 10, Translation(1, 2, 3));
    AddKey(arm, 0, CTavrinMatrix());
    AddKey(leg, 4, CTavrinMatrix::CreateScalling(0.5, 1, 1));
    AddKey(unlisted, 1, CTavrinMatrix());
    CTavrinKeyFrameDataPtr hidden(new CTavrinKeyFrameDataHideShow(leg, true));
    hidden->SetAllFrames(7);
    sequence->AddKeyFrameData(hidden, true);

    const std::map<CTavrinID, int> nodeIds{{arm, 5}, {leg, 2}};
    const nlohmann::ordered_json json = SequenceToJson(*sequence, [&](const CTavrinID& id) -> std::optional<int> {
        const auto found = nodeIds.find(id);
        return found == nodeIds.end() ? std::nullopt : std::optional<int>(found->second);
    });

    const nlohmann::ordered_json expected = nlohmann::ordered_json::parse(R"({
      "name": "robot_Animation",
      "groupCaption": "robot",
      "tracks": [
        { "node": 2, "keyframes": [
            { "start": 4, "end": 4, "serial": 1,
              "matrix": [0.5, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1] } ] },
        { "node": 5, "keyframes": [
            { "start": 0, "end": 0, "serial": 2,
              "matrix": [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1] },
            { "start": 10, "end": 10, "serial": 1,
              "matrix": [1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1] } ] }
      ]
    })");
    EXPECT_EQ(json, expected) << json.dump(2);
    EXPECT_EQ(json.dump().find("\"name\""), 1u); // keys in contract order
}

TEST_F(SequenceOutput, JsonGroupCaptionIsNullWithoutAGroup) {
    CTavrinAnimationCollapsingGroup* group = CTavrinSequenceContainer::GetInstance()->CreateGroup();
    sequence->SetGroup(group);
    const CTavrinSequencePtr held(sequence); // outlives the container that registered it
    CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer()); // the group is gone
    const nlohmann::ordered_json json = SequenceToJson(*held, [](const CTavrinID&) { return std::nullopt; });
    EXPECT_TRUE(json["groupCaption"].is_null());
    EXPECT_TRUE(json["tracks"].empty());
}

TEST_F(SequenceOutput, InsertingZeroTimesSendsNothing) {
    AddKey(entities.NewTransform(), 0, CTavrinMatrix());
    sequence->InsertIntoScene(0.0, true);
    sequence->InsertIntoScene(1e-10, true);
    EXPECT_TRUE(CTavrinMessageManager::Instance()->DistributedMessages().empty());
}

TEST_F(SequenceOutput, InsertMessageCarriesKeysRootsAndOptions) {
    CTavrinSkeletonJoint* hips = CTavrinSkeletonJoint::Create(entities.Document());
    CTavrinSkeletonJoint* spine = CTavrinSkeletonJoint::Create(entities.Document());
    CTavrinSkeletonJoint* head = CTavrinSkeletonJoint::Create(entities.Document());
    spine->SetParent(hips);
    head->SetParent(spine);
    for (CTavrinSceneNode* joint : {static_cast<CTavrinSceneNode*>(hips), static_cast<CTavrinSceneNode*>(spine),
                                    static_cast<CTavrinSceneNode*>(head)})
        joint->SetLocalMatrix(CTavrinMatrix());
    CTavrinTransformNode* box = CTavrinTransformNode::Create(entities.Document());
    box->SetLocalMatrix(CTavrinMatrix());
    AddKey(spine->LocalTransform()->ID(), 0, CTavrinMatrix());
    AddKey(spine->LocalTransform()->ID(), 5, CTavrinMatrix());
    AddKey(head->LocalTransform()->ID(), 5, CTavrinMatrix());
    AddKey(box->LocalTransform()->ID(), 5, CTavrinMatrix());

    sequence->InsertIntoScene(2.0, true);

    const auto& sent = CTavrinMessageManager::Instance()->DistributedMessages();
    ASSERT_EQ(sent.size(), 1u);
    const CTavrinMessage& message = sent[0].first;
    EXPECT_EQ(message.Type(), CTavrinString("eMessageType_INSERT_SEQUENCE_KEY_FRAMES_DATA"));
    EXPECT_EQ(sent[0].second, CTavrinString("file: TavrinAnimation/src/TavrinSequence, line #76"));
    const auto* keys = message.NamedValue<std::vector<CTavrinKeyFrameDataPtr>>(CTavrinString("keyframesDataToBeCopied"));
    ASSERT_NE(keys, nullptr);
    EXPECT_EQ(keys->size(), 4u);
    const auto* roots = message.NamedValue<std::vector<CTavrinSkeletonJoint*>>(CTavrinString("sequenceRootJoints"));
    ASSERT_NE(roots, nullptr);
    EXPECT_EQ(*roots, (std::vector<CTavrinSkeletonJoint*>{hips}));
    EXPECT_EQ(*message.NamedValue<CTavrinString>(CTavrinString("caption")), CTavrinString("robot_Animation"));
    EXPECT_EQ(*message.NamedValue<double>(CTavrinString("numberOfTimesToRepeat")), 2.0);
    EXPECT_TRUE(*message.NamedValue<bool>(CTavrinString("blendSequences")));
}

TEST_F(SequenceOutput, DocumentJsonNamesTheNodeWhoseTransformIsAnimated) {
    CTavrinTransformNode* world = CTavrinTransformNode::Create(entities.Document());
    CTavrinTransformNode* arm = CTavrinTransformNode::Create(entities.Document());
    arm->SetParent(world);
    world->SetLocalMatrix(CTavrinMatrix());
    arm->SetLocalMatrix(Translation(0, 1, 0));
    AddKey(arm->LocalTransform()->ID(), 3, Translation(0, 2, 0));

    const CTavrinJson json = DocumentToJson(*entities.Document(), SequenceJsonWriter(sequence));
    ASSERT_EQ(json["sequence"]["tracks"].size(), 1u);
    EXPECT_EQ(json["sequence"]["tracks"][0]["node"], 1); // world is node 0
    EXPECT_EQ(json["sequence"]["tracks"][0]["keyframes"][0]["matrix"][7], 2.0);
    EXPECT_EQ(json["sequence"]["name"], "robot_Animation");

    EXPECT_TRUE(DocumentToJson(*entities.Document(), SequenceJsonWriter(nullptr))["sequence"].is_null());
}
