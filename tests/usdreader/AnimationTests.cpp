// Animation: skeletal key frames on joints matched by name, transform key
// frames from samples with the frame-by-frame baking, and the one sequence
// an import makes.

#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"
#include "tests/usdreader/ImportSupport.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;

namespace {

// A skeleton of joints Hips and Hips/Spine under SkelRoot "Rig", a mesh bound
// to it and to the animation whose body is given.
std::string AnimatedRig(const std::string& animation)
{
    const std::string identity = "( (1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 0, 0, 1) )";
    return ZUpScene(R"(
def SkelRoot "Rig" {
    def Skeleton "Skel" {
        uniform token[] joints = ["Hips", "Hips/Spine"]
        uniform matrix4d[] bindTransforms = [)" + identity + ", " + identity + R"(]
        uniform matrix4d[] restTransforms = [)" + identity + ", " + identity + R"(]
        def SkelAnimation "Anim" {
)" + animation + R"(
        }
    }
    def Mesh "Body" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
        rel skel:skeleton = </Rig/Skel>
        rel skel:animationSource = </Rig/Skel/Anim>
    }
}
)");
}

TEST(ReadSkeletalAnimation, EverySampledFrameKeysEachJointOfTheSameName)
{
    // Listed in another order than the skeleton, with a joint it lacks.
    const ImportResult result = ImportText(AnimatedRig(R"(
            uniform token[] joints = ["Hips/Spine", "Nobody", "Hips"]
            float3[] translations = [(0, 0, 1), (0, 0, 9), (0, 0, 2)]
            quatf[] rotations.timeSamples = { 0: [(1, 0, 0, 0), (1, 0, 0, 0), (1, 0, 0, 0)],
                                              1: [(1, 0, 0, 0), (1, 0, 0, 0), (1, 0, 0, 0)],
                                              2: [(1, 0, 0, 0), (1, 0, 0, 0), (1, 0, 0, 0)] }
            half3[] scales = [(1, 1, 1), (1, 1, 1), (1, 1, 1)]
)"));
    const std::vector<KeyFrame> hips = KeyFramesOf(result.json, "Hips");
    const std::vector<KeyFrame> spine = KeyFramesOf(result.json, "Spine");
    EXPECT_THAT(StartsOf(hips), ElementsAre(0, 1, 2));
    EXPECT_THAT(StartsOf(spine), ElementsAre(0, 1, 2));
    EXPECT_EQ(result.json.at("sequence").at("tracks").size(), 2u);
    for (const KeyFrame& key : hips)
        EXPECT_THAT(key.Translation(), ElementsAre(0, 0, 2));
    for (const KeyFrame& key : spine)
        EXPECT_THAT(key.Translation(), ElementsAre(0, 0, 1));
    // Stamped with the frame; frame 0's serial number is the manager's own.
    EXPECT_EQ(hips[2].end, 2);
    EXPECT_EQ(hips[2].serial, 2);
    EXPECT_EQ(hips[0].serial, 1);
}

TEST(ReadSkeletalAnimation, FramesAreTheUnionOfSamplesCutToWholeFramesAndPosedThere)
{
    const ImportResult result = ImportText(AnimatedRig(R"(
            uniform token[] joints = ["Hips"]
            float3[] translations.timeSamples = { 0: [(0, 0, 0)], 2.5: [(0, 5, 0)], 12.5: [(10, 5, 0)] }
            quatf[] rotations.timeSamples = { 5: [(1, 0, 0, 0)] }
            half3[] scales = [(1, 1, 1)]
)"));
    const std::vector<KeyFrame> hips = KeyFramesOf(result.json, "Hips");
    ASSERT_THAT(StartsOf(hips), ElementsAre(0, 2, 5, 12));
    // Frame 2 comes from the sample at 2.5 but is posed at time 2.
    EXPECT_THAT(hips[1].Translation(), ElementsAre(0, 4, 0));
    EXPECT_THAT(hips[2].Translation(), ElementsAre(2.5, 5, 0));
    EXPECT_TRUE(KeyFramesOf(result.json, "Spine").empty());
}

TEST(ReadSkeletalAnimation, JointsBeyondThePosesGetNoKeyFrames)
{
    const ImportResult result = ImportText(AnimatedRig(R"(
            uniform token[] joints = ["Hips", "Hips/Spine"]
            float3[] translations.timeSamples = { 1: [(0, 0, 3)] }
            quatf[] rotations = [(1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1)]
)"));
    EXPECT_THAT(StartsOf(KeyFramesOf(result.json, "Hips")), ElementsAre(1));
    EXPECT_TRUE(KeyFramesOf(result.json, "Spine").empty());
}

TEST(ReadSkeletalAnimation, NoSamplesOrNoSkeletonMakeNoSequence)
{
    ScratchFolder scratch;
    const ImportResult unsampled = ImportText(scratch, AnimatedRig(R"(
            uniform token[] joints = ["Hips"]
            float3[] translations = [(0, 0, 3)]
            quatf[] rotations = [(1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1)]
)"));
    EXPECT_TRUE(unsampled.json.at("sequence").is_null());

    std::string unbound = AnimatedRig(R"(
            uniform token[] joints = ["Hips"]
            float3[] translations.timeSamples = { 1: [(0, 0, 3)] }
            quatf[] rotations = [(1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1)]
)");
    unbound.replace(unbound.find("rel skel:skeleton"), 17, "rel skel:unused");
    const ImportResult result = ImportText(scratch, unbound, "unbound.usda");
    EXPECT_TRUE(result.json.at("sequence").is_null());
    EXPECT_TRUE(NodeNamed(result.json, "Hips").is_null());
}

TEST(ReadSkeletalAnimation, JointKeyFramesCarryNoRootCorrection)
{
    // Y-up in centimetres: the SkelRoot's own matrix is corrected, the
    // joints' poses stay as the animation gives them.
    std::string scene = AnimatedRig(R"(
            uniform token[] joints = ["Hips"]
            float3[] translations.timeSamples = { 1: [(1, 2, 3)] }
            quatf[] rotations = [(1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1)]
)");
    const std::string zUp = "upAxis = \"Z\"\n    metersPerUnit = 1";
    scene.replace(scene.find(zUp), zUp.size(), "upAxis = \"Y\"\n    metersPerUnit = 0.01");
    const ImportResult result = ImportText(scene);
    EXPECT_NE(NodeNamed(result.json, "Rig").at("localMatrix"),
              CTavrinJson({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
    const std::vector<KeyFrame> hips = KeyFramesOf(result.json, "Hips");
    ASSERT_EQ(hips.size(), 1u);
    EXPECT_EQ(hips[0].matrix, (std::vector<double>{1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1}));
}

TEST(ReadSkeletalAnimation, AFrameWhosePoseCannotBeComputedRepeatsThePreviousPose)
{
    // At frame 2 the translations list two joints for one: no pose.
    const ImportResult result = ImportText(AnimatedRig(R"(
            uniform token[] joints = ["Hips"]
            float3[] translations.timeSamples = { 1: [(0, 0, 1)], 2: [(0, 0, 2), (0, 0, 9)], 3: [(0, 0, 3)] }
            quatf[] rotations = [(1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1)]
)"));
    const std::vector<KeyFrame> hips = KeyFramesOf(result.json, "Hips");
    ASSERT_THAT(StartsOf(hips), ElementsAre(1, 2, 3));
    EXPECT_THAT(hips[1].Translation(), ElementsAre(0, 0, 1));
    EXPECT_THAT(hips[2].Translation(), ElementsAre(0, 0, 3));
}

// An Xform "Box" translated along x by the given samples.
std::string MovingBox(const std::string& samples)
{
    return ZUpScene(R"(
def Xform "Box" {
    double3 xformOp:translate.timeSamples = { )" +
                 samples + R"( }
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)");
}

TEST(ReadTransformAnimation, SamplesOnEveryFrameAreNotBaked)
{
    std::string samples;
    for (int frame = 1; frame <= 24; ++frame)
        samples += std::to_string(frame) + ": (" + std::to_string(frame) + ", 0, 0), ";
    const std::vector<KeyFrame> box = KeyFramesOf(ImportText(MovingBox(samples)).json, "Box");
    ASSERT_EQ(box.size(), 24u);
    EXPECT_EQ(box.front().start, 1);
    EXPECT_EQ(box.back().start, 24);
    EXPECT_THAT(box[9].Translation(), ElementsAre(10, 0, 0));
}

TEST(ReadTransformAnimation, EveryWholeFrameUpToTheLastSampleIsBaked)
{
    const std::vector<KeyFrame> box =
        KeyFramesOf(ImportText(MovingBox("0: (0, 0, 0), 10: (10, 0, 0), 20: (0, 0, 0)")).json, "Box");
    ASSERT_EQ(box.size(), 21u);
    for (int frame = 0; frame <= 20; ++frame) {
        const KeyFrame& key = box[static_cast<std::size_t>(frame)];
        EXPECT_EQ(key.start, frame);
        EXPECT_EQ(key.end, frame);
        EXPECT_THAT(key.Translation(), ElementsAre(frame <= 10 ? frame : 20 - frame, 0, 0)) << "frame " << frame;
    }
    // The baked frame 0 replaced the sample's key frame, whose number the
    // manager had drawn: it draws again. Frame 20 keeps the sample's.
    EXPECT_EQ(box[0].serial, 2);
    EXPECT_EQ(box[5].serial, 5);
    EXPECT_EQ(box[20].serial, 20);
}

TEST(ReadTransformAnimation, SampleTimesAreCutTowardZero)
{
    ScratchFolder scratch;
    const std::vector<KeyFrame> halves =
        KeyFramesOf(ImportText(scratch, MovingBox("0.5: (0, 0, 0), 10.5: (10, 0, 0)")).json, "Box");
    EXPECT_THAT(StartsOf(halves), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10));

    const std::vector<KeyFrame> negative =
        KeyFramesOf(ImportText(scratch, MovingBox("-5: (0, 0, 0), 0: (10, 0, 0)"), "negative.usda").json, "Box");
    // Key frames start at frame 0 at the earliest: the sample at -5 lands
    // there and the one at 0 displaces it. Nothing is baked.
    ASSERT_THAT(StartsOf(negative), ElementsAre(0));
    EXPECT_THAT(negative[0].Translation(), ElementsAre(10, 0, 0));
}

TEST(ReadTransformAnimation, OnlyRootNodesKeyTheRootCorrection)
{
    // Y-up in centimetres; two samples, the last at 1, bake frame 0 only.
    const ImportResult result = ImportText(R"(#usda 1.0
(
    upAxis = "Y"
)
def Xform "Top" {
    double3 xformOp:translate.timeSamples = { 0: (1, 2, 3), 1: (1, 2, 3) }
    uniform token[] xformOpOrder = ["xformOp:translate"]
    def Xform "Child" {
        double3 xformOp:translate.timeSamples = { 0: (1, 2, 3), 1: (1, 2, 3) }
        uniform token[] xformOpOrder = ["xformOp:translate"]
    }
}
)");
    for (const char* name : {"Top", "Child"}) {
        const std::vector<KeyFrame> keys = KeyFramesOf(result.json, name);
        ASSERT_EQ(keys.size(), 2u) << name;
        EXPECT_EQ(CTavrinJson(keys[0].matrix), NodeNamed(result.json, name).at("localMatrix")) << name;
        EXPECT_EQ(keys[1].matrix, keys[0].matrix) << name;
    }
    EXPECT_THAT(KeyFramesOf(result.json, "Child")[0].Translation(), ElementsAre(1, 2, 3));
    EXPECT_NE(KeyFramesOf(result.json, "Top")[0].Translation(), KeyFramesOf(result.json, "Child")[0].Translation());
}

TEST(ReadTransformAnimation, OneSequenceNamedAfterTheFile)
{
    ScratchFolder scratch;
    const ImportResult result = ImportText(scratch, ZUpScene(R"(
def Xform "A" {
    double3 xformOp:translate.timeSamples = { 1: (1, 0, 0), 2: (2, 0, 0) }
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
def Xform "B" {
    double3 xformOp:translate.timeSamples = { 1: (1, 0, 0), 2: (2, 0, 0) }
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)"),
                                           "robot.usda");
    const CTavrinJson& sequence = result.json.at("sequence");
    EXPECT_EQ(sequence.at("name"), "robot_Animation");
    EXPECT_EQ(sequence.at("groupCaption"), "robot");
    EXPECT_EQ(sequence.at("tracks").size(), 2u);

    const ImportResult still = ImportText(scratch, ZUpScene("def Xform \"A\" {}\n"), "still.usda");
    EXPECT_TRUE(still.json.at("sequence").is_null());
}

// Every key frame an import adds spends one from its budget, unless it
// displaces one; once it is spent, nothing more is added.
TEST(ReadTransformAnimation, KeyFramesStopAtTheImportsBudget)
{
    const auto scene = OpenScene(MovingBox("0: (0, 0, 0), 1e12: (1, 0, 0)"));
    const UsdGeomXformable box(scene->handler.stage->GetPrimAtPath(SdfPath("/Box")));
    std::vector<CTavrinTransformNode*> nodes;
    for (int i = 0; i < 2; ++i) {
        nodes.push_back(CTavrinTransformNode::Create(scene->document.get()));
        nodes.back()->SetLocalMatrix(CTavrinMatrix());
    }
    // Two samples (the far one clamped to the last frame), then baked
    // frames: frame 0 replaces the first sample for free, 1 to 5 spend the
    // rest.
    scene->handler.keyFrameBudget = 7;
    scene->handler.ReadTransformAnimation(box, nodes[0], nullptr);
    // The second node's first sample finds the budget spent.
    scene->handler.ReadTransformAnimation(box, nodes[1], nullptr);

    const CTavrinKeyFrameManager::Track* track =
        scene->handler.sequence->FindTrack(nodes[0]->LocalTransform()->ID());
    ASSERT_NE(track, nullptr);
    std::vector<int> starts;
    for (const auto& [start, data] : *track)
        starts.push_back(start);
    EXPECT_THAT(starts, ElementsAre(0, 1, 2, 3, 4, 5, INT_MAX));
    EXPECT_EQ(scene->handler.sequence->FindTrack(nodes[1]->LocalTransform()->ID()), nullptr);
    EXPECT_EQ(scene->handler.keyFrameBudget, 0);
}

} // namespace
