// Which skeleton and animation a mesh is bound to: its own relationships
// when it authors them, otherwise what UsdSkel inherits down namespace, and
// the joint key frames that binding gives.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/usdreader/ImportSupport.h"

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Pointwise;

namespace {

const std::string kIdentity = "( (1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (0, 0, 0, 1) )";

// Where each layout authors its relationships; an empty string authors none.
struct Layout {
    const char* name;
    std::string root;
    std::string skeleton;
    std::string mesh;
};

// SkelRoot "Rig" holding Skeleton "Skel" (joints Hips, Hips/Spine) with its
// animation "Anim" sampled at frames 1 and 2, and Mesh "Body"; every prim
// has SkelBindingAPI applied unless api is false.
std::string BoundRig(const Layout& layout, bool api = true)
{
    const std::string applied = api ? " (\n    prepend apiSchemas = [\"SkelBindingAPI\"]\n)" : "";
    return ZUpScene("def SkelRoot \"Rig\"" + applied + " {\n" + layout.root + "\n    def Skeleton \"Skel\"" +
                    applied + R"( {
        uniform token[] joints = ["Hips", "Hips/Spine"]
        uniform matrix4d[] bindTransforms = [)" +
                    kIdentity + ", " + kIdentity + R"(]
        uniform matrix4d[] restTransforms = [)" +
                    kIdentity + ", " + kIdentity + "]\n" + layout.skeleton + R"(
        def SkelAnimation "Anim" {
            uniform token[] joints = ["Hips", "Hips/Spine"]
            float3[] translations.timeSamples = { 1: [(0, 0, 1), (0, 0, 2)], 2: [(0, 0, 3), (0, 0, 4)] }
            quatf[] rotations = [(1, 0, 0, 0), (1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1), (1, 1, 1)]
        }
    }
    def Mesh "Body")" + applied +
                    R"( {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
)" + layout.mesh + "\n    }\n}\n");
}

const std::string kSkeletonRel = "rel skel:skeleton = </Rig/Skel>";
const std::string kAnimationRel = "rel skel:animationSource = </Rig/Skel/Anim>";

TEST(SkeletonBinding, EveryLayoutExportersWriteAnimatesTheJoints)
{
    const Layout layouts[] = {
        {"mesh-bound", "", "", kSkeletonRel + "\n" + kAnimationRel},
        {"skeleton-bound animation", "", kAnimationRel, kSkeletonRel},
        {"SkelRoot-bound", kSkeletonRel + "\n" + kAnimationRel, "", ""},
        {"SkelRoot skeleton, skeleton animation", kSkeletonRel, kAnimationRel, ""},
        {"animation on the root, skeleton on the mesh", kAnimationRel, "", kSkeletonRel},
    };
    for (const Layout& layout : layouts) {
        const ImportResult result = ImportText(BoundRig(layout));
        ASSERT_FALSE(NodeNamed(result.json, "Hips").is_null()) << layout.name;
        const std::vector<KeyFrame> hips = KeyFramesOf(result.json, "Hips");
        const std::vector<KeyFrame> spine = KeyFramesOf(result.json, "Spine");
        ASSERT_THAT(StartsOf(hips), ElementsAre(1, 2)) << layout.name;
        ASSERT_THAT(StartsOf(spine), ElementsAre(1, 2)) << layout.name;
        EXPECT_THAT(hips[1].Translation(), ElementsAre(0, 0, 3)) << layout.name;
        EXPECT_THAT(spine[0].Translation(), ElementsAre(0, 0, 2)) << layout.name;
    }
}

TEST(SkeletonBinding, WhatUsdSkelDoesNotInheritBindsNothing)
{
    struct Case {
        const char* name;
        std::string scene;
        bool joints;
    };
    const Case cases[] = {
        // Bindings are inherited only from prims that apply SkelBindingAPI.
        {"no API applied", BoundRig({"", kSkeletonRel + "\n" + kAnimationRel, "", ""}, false), false},
        // The mesh's own relationship, even an empty one, is all it is bound to.
        {"empty binding on the mesh", BoundRig({"", kSkeletonRel + "\n" + kAnimationRel, "", "rel skel:skeleton = None"}),
         false},
        // A skeleton whose animation nobody binds keeps its rest pose.
        {"no animation bound", BoundRig({"", kSkeletonRel, "", ""}), true},
        // The mesh's own animation relationship wins over the skeleton's.
        {"empty animation on the mesh", BoundRig({"", "", kAnimationRel, kSkeletonRel + "\nrel skel:animationSource = None"}),
         true},
    };
    for (const Case& c : cases) {
        const ImportResult result = ImportText(c.scene);
        EXPECT_EQ(!NodeNamed(result.json, "Hips").is_null(), c.joints) << c.name;
        EXPECT_TRUE(result.json.at("sequence").is_null()) << c.name;
    }
}

TEST(SkeletonBinding, TwoMeshesSharingAnAnimationKeyEachFrameOnceAndPayOnce)
{
    const std::string scene = BoundRig({"", kSkeletonRel + "\n" + kAnimationRel, "", ""});
    const std::string second = R"(    def Mesh "Arm" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
    }
}
)";
    const std::string twoMeshes = scene.substr(0, scene.rfind('}')) + second;
    const ImportResult result = ImportText(twoMeshes);
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Rig", "Body", "Hips", "Spine", "Arm"));
    EXPECT_THAT(StartsOf(KeyFramesOf(result.json, "Hips")), ElementsAre(1, 2));
    EXPECT_THAT(StartsOf(KeyFramesOf(result.json, "Spine")), ElementsAre(1, 2));
    // Converted once per mesh, charged once: two joints at two frames.
    EXPECT_EQ(result.handler->keyFrameBudget, (std::int64_t{1} << 20) - 4);
}

// Six meshes bound to one animation convert it six times; only the first
// grows the sequence, so a transform animation after them still fits.
TEST(SkeletonBinding, AnAnimationConvertedPerMeshLeavesBudgetForLaterAnimations)
{
    std::string scene = BoundRig({"", kSkeletonRel + "\n" + kAnimationRel, "", ""});
    std::string meshes;
    for (int i = 0; i < 5; ++i) {
        meshes += "    def Mesh \"Extra" + std::to_string(i) + R"(" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
    }
)";
    }
    scene = scene.substr(0, scene.rfind('}')) + meshes + R"(}
def Xform "Later" {
    double3 xformOp:translate.timeSamples = { 1: (1, 0, 0), 2: (2, 0, 0) }
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)";
    ScratchFolder scratch;
    // Two joints at two frames, then the later prim's two samples.
    const ImportResult result =
        ImportFile(scratch.Write("scene.usda", scene), scratch.Path().string(), true,
                   [](CTavrinUSDReaderHandler& handler) { handler.keyFrameBudget = 6; });
    EXPECT_THAT(StartsOf(KeyFramesOf(result.json, "Hips")), ElementsAre(1, 2));
    EXPECT_THAT(StartsOf(KeyFramesOf(result.json, "Later")), ElementsAre(1, 2));
    EXPECT_EQ(result.handler->keyFrameBudget, 0);
}

TEST(SkeletonBinding, TwoSkeletonsEachDriveTheirOwnJoints)
{
    const auto rig = [](const std::string& name, const std::string& joint, double z) {
        const std::string z1 = std::to_string(z);
        return "def SkelRoot \"" + name + R"(" (
    prepend apiSchemas = ["SkelBindingAPI"]
) {
    rel skel:skeleton = </)" + name + R"(/Skel>
    def Skeleton "Skel" (
        prepend apiSchemas = ["SkelBindingAPI"]
    ) {
        uniform token[] joints = [")" + joint + R"("]
        uniform matrix4d[] bindTransforms = [)" + kIdentity + R"(]
        uniform matrix4d[] restTransforms = [)" + kIdentity + R"(]
        rel skel:animationSource = </)" + name + R"(/Skel/Anim>
        def SkelAnimation "Anim" {
            uniform token[] joints = [")" + joint + R"("]
            float3[] translations.timeSamples = { 3: [(0, 0, )" + z1 + R"()] }
            quatf[] rotations = [(1, 0, 0, 0)]
            half3[] scales = [(1, 1, 1)]
        }
    }
    def Mesh "Body" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
    }
}
)";
    };
    const ImportResult result = ImportText(ZUpScene(rig("Left", "Hand", 1) + rig("Right", "Foot", 2)));
    const std::vector<KeyFrame> hand = KeyFramesOf(result.json, "Hand");
    const std::vector<KeyFrame> foot = KeyFramesOf(result.json, "Foot");
    ASSERT_THAT(StartsOf(hand), ElementsAre(3));
    ASSERT_THAT(StartsOf(foot), ElementsAre(3));
    EXPECT_THAT(hand[0].Translation(), ElementsAre(0, 0, 1));
    EXPECT_THAT(foot[0].Translation(), ElementsAre(0, 0, 2));
}

// The joint-local transform UsdSkel composes, scale then rotation then
// translation for row vectors: a scale of 2, a quarter turn about z and a
// move to (1, 2, 3), as a host matrix (column vectors, row by row).
TEST(SkeletonBinding, KeyFramesAreTheJointLocalTransformsOfUsdSkel)
{
    std::string scene = BoundRig({"", kSkeletonRel + "\n" + kAnimationRel, "", ""});
    const auto replace = [&scene](const std::string& from, const std::string& to) {
        scene.replace(scene.find(from), from.size(), to);
    };
    replace("{ 1: [(0, 0, 1), (0, 0, 2)], 2: [(0, 0, 3), (0, 0, 4)] }", "{ 4: [(1, 2, 3), (0, 0, 0)] }");
    replace("rotations = [(1, 0, 0, 0)", "rotations = [(0.70710678, 0, 0, 0.70710678)");
    replace("scales = [(1, 1, 1)", "scales = [(2, 2, 2)");
    const ImportResult result = ImportText(scene);
    const std::vector<KeyFrame> hips = KeyFramesOf(result.json, "Hips");
    ASSERT_THAT(StartsOf(hips), ElementsAre(4));
    const std::vector<double> expected = {0, -2, 0, 1, 2, 0, 0, 2, 0, 0, 2, 3, 0, 0, 0, 1};
    EXPECT_THAT(hips[0].matrix, Pointwise(DoubleNear(1e-6), expected));
}

// The corpus's characters bind their animation on the skeleton or the
// SkelRoot; each must come in with joints and key frames.
TEST(SkeletonBinding, CorpusCharactersImportTheirAnimation)
{
    const char* files[] = {
        "PixarAnimationStudios_OpenUSD/pxr/usd/usdSkel/doxygen/skinnedArm.usda",
        "PixarAnimationStudios_OpenUSD/pxr/usd/usdSkel/testenv/testUsdSkelBakeSkinning/lbs.usda",
        "PixarAnimationStudios_OpenUSD/pxr/usd/usdSkel/testenv/testUsdSkelBakeSkinning/dqs.usda",
        "usd-wg_assets/test_assets/USDZ/RiggedSimple/RiggedSimple.usdz",
    };
    for (const char* file : files) {
        const std::string path = std::string(TAVRIN_CORPUS_DIR) + "/" + file;
        if (!std::ifstream(path))
            GTEST_SKIP() << "no corpus file " << path;
        ScratchFolder scratch;
        const ImportResult result = ImportFile(path, scratch.Path().string());
        ASSERT_TRUE(result.document) << file;
        bool joints = false;
        for (const CTavrinJson& node : result.json.at("nodes"))
            joints |= node.at("type") == "SkeletonJoint";
        EXPECT_TRUE(joints) << file;
        ASSERT_FALSE(result.json.at("sequence").is_null()) << file;
        EXPECT_FALSE(result.json.at("sequence").at("tracks").empty()) << file;
    }
}

} // namespace
