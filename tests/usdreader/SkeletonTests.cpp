// Skeletons and skin weights: joints made from the bound skeleton, their
// names, matrices and parents, skeletons met twice, and the weights written
// into each mesh's rig table.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/usdreader/ImportSupport.h"

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;

namespace {

std::string Translate(double x, double y, double z)
{
    return "( (1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (" + std::to_string(x) + ", " + std::to_string(y) + ", " +
           std::to_string(z) + ", 1) )";
}

// A skeleton "Skel" of the given joints under SkelRoot "Rig", every joint
// bound and at rest at the origin.
std::string Skeleton(const std::string& name, const std::vector<std::string>& joints)
{
    std::string jointList;
    std::string matrices;
    for (const std::string& joint : joints) {
        jointList += (jointList.empty() ? "\"" : ", \"") + joint + "\"";
        matrices += (matrices.empty() ? "" : ", ") + Translate(0, 0, 0);
    }
    return "    def Skeleton \"" + name + "\" {\n        uniform token[] joints = [" + jointList +
           "]\n        uniform matrix4d[] bindTransforms = [" + matrices +
           "]\n        uniform matrix4d[] restTransforms = [" + matrices + "]\n    }\n";
}

// A triangle mesh bound to skeletonPath, with the given skin attributes.
std::string SkinnedMesh(const std::string& name, const std::string& skeletonPath, const std::string& skin)
{
    return "    def Mesh \"" + name + R"(" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
        rel skel:skeleton = <)" +
           skeletonPath + ">\n" + skin + "    }\n";
}

// [[vertex, joint name, weight], ...] of the named mesh's rig table.
std::vector<std::tuple<int, std::string, double>> Rig(const CTavrinJson& document, const std::string& mesh)
{
    std::vector<std::tuple<int, std::string, double>> entries;
    const CTavrinJson& nodes = document.at("nodes");
    const CTavrinJson node = NodeNamed(document, mesh);
    for (const CTavrinJson& entry : node.at("geometry").at("rig")) {
        const std::string joint = nodes.at(entry.at(1).get<std::size_t>()).at("name");
        entries.emplace_back(entry.at(0).get<int>(), joint, entry.at(2).get<double>());
    }
    return entries;
}

using RigEntry = std::tuple<int, std::string, double>;

TEST(ReadSkeleton, JointsAreNamedByTheirLastElementAndParentedAlongTheTopology)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def SkelRoot "Rig" {
    def Skeleton "Skel" {
        uniform token[] joints = ["Hips", "Hips/Spine", "Hips/Spine/Chest", "", ""]
        uniform matrix4d[] bindTransforms = [)" + Translate(0, 0, 1) + ", " + Translate(0, 0, 2) + ", " +
                                                             Translate(0, 0, 3) + ", " + Translate(0, 0, 4) +
                                                             ", " + Translate(0, 0, 5) + R"(]
        uniform matrix4d[] restTransforms = [)" + Translate(1, 0, 0) + ", " + Translate(2, 0, 0) + ", " +
                                                             Translate(3, 0, 0) + ", " + Translate(4, 0, 0) +
                                                             ", " + Translate(5, 0, 0) + R"(]
    }
)" + SkinnedMesh("Body", "/Rig/Skel", "") + "}\n"));

    const CTavrinJson& document = result.json;
    const CTavrinJson rig = NodeNamed(document, "Rig");
    const CTavrinJson hips = NodeNamed(document, "Hips");
    const CTavrinJson spine = NodeNamed(document, "Spine");
    const CTavrinJson chest = NodeNamed(document, "Chest");
    ASSERT_FALSE(hips.is_null());
    ASSERT_FALSE(spine.is_null());
    ASSERT_FALSE(chest.is_null());
    EXPECT_EQ(hips.at("type"), "SkeletonJoint");
    EXPECT_EQ(hips.at("parent"), rig.at("id"));
    EXPECT_EQ(spine.at("parent"), hips.at("id"));
    EXPECT_EQ(chest.at("parent"), spine.at("id"));

    // Unnamed joints are counted across the import; as roots of the
    // topology they hang under the skeleton's parent.
    EXPECT_EQ(NodeNamed(document, "Joint_0").at("parent"), rig.at("id"));
    EXPECT_EQ(NodeNamed(document, "Joint_1").at("parent"), rig.at("id"));

    // Inverse bind of a translation by 3 up, and the rest pose as authored.
    EXPECT_THAT(TranslationOf(chest.at("invBindMatrix")), ElementsAre(0, 0, -3));
    EXPECT_THAT(TranslationOf(chest.at("localMatrix")), ElementsAre(3, 0, 0));
}

TEST(ReadSkeleton, ASkeletonBoundTwiceIsConvertedOnce)
{
    ScratchFolder scratch;
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + Skeleton("Skel", {"Hips", "Hips/Spine"}) +
                       SkinnedMesh("A", "/Rig/Skel", "") + SkinnedMesh("B", "/Rig/Skel", "") + "}\n"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Rig", "A", "Hips", "Spine", "B"));
}

TEST(ReadSkeleton, ASecondSkeletonWhoseFirstJointIsKnownIsNotConverted)
{
    ScratchFolder scratch;
    const std::string skin = R"(        int[] primvars:skel:jointIndices = [1, 1, 1] (elementSize = 1 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [1, 1, 1] (elementSize = 1 interpolation = "vertex")
)";
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + Skeleton("First", {"Root", "Root/Arm"}) +
                       Skeleton("Second", {"Root", "Root/Leg"}) + SkinnedMesh("A", "/Rig/First", skin) +
                       SkinnedMesh("B", "/Rig/Second", skin) + "}\n"));
    EXPECT_TRUE(NodeNamed(result.json, "Leg").is_null());
    // B's joint index 1 still means the first skeleton's joint.
    EXPECT_THAT(Rig(result.json, "B"), ElementsAre(RigEntry{0, "Arm", 1}, RigEntry{1, "Arm", 1}, RigEntry{2, "Arm", 1}));
}

TEST(ReadSkeleton, TwoTargetsAreConvertedInOrderAndTheLastOneServesTheWeights)
{
    const ImportResult result = ImportText(ZUpScene("def SkelRoot \"Rig\" {\n" +
                                                          Skeleton("First", {"Hips", "Hips/Arm"}) +
                                                          Skeleton("Second", {"Pelvis"}) + R"(
    def Mesh "Body" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
        int[] faceVertexCounts = [3]
        int[] faceVertexIndices = [0, 1, 2]
        rel skel:skeleton = [</Rig/First>, </Rig/Second>]
        int[] primvars:skel:jointIndices = [0, 1, 0] (elementSize = 1 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [1, 1, 1] (elementSize = 1 interpolation = "vertex")
    }
}
)"));
    // Index 0 was overwritten by the second skeleton; index 1 it lacks.
    EXPECT_THAT(Rig(result.json, "Body"),
                ElementsAre(RigEntry{0, "Pelvis", 1}, RigEntry{1, "Arm", 1}, RigEntry{2, "Pelvis", 1}));
}

// Joints are known by their last name: a second "Hand" is taken for the
// first, which ends the conversion there, unparented, and the animation of
// either hand moves the one joint of that name.
TEST(ReadSkeleton, JointsWhoseNamesEndAlikeAreOneJoint)
{
    const ImportResult result = ImportText(ZUpScene(
        "def SkelRoot \"Rig\" {\n" + Skeleton("Skel", {"Left", "Left/Hand", "Right", "Right/Hand"}) +
        SkinnedMesh("Body", "/Rig/Skel", R"(        rel skel:animationSource = </Rig/Anim>
)") + R"(    def SkelAnimation "Anim" {
        uniform token[] joints = ["Left/Hand", "Right/Hand"]
        float3[] translations.timeSamples = { 1: [(1, 0, 0), (2, 0, 0)] }
        quatf[] rotations = [(1, 0, 0, 0), (1, 0, 0, 0)]
        half3[] scales = [(1, 1, 1), (1, 1, 1)]
    }
}
)"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Rig", "Body", "Left", "Hand", "Right"));
    EXPECT_TRUE(NodeNamed(result.json, "Hand").at("parent").is_null());
    const std::vector<KeyFrame> hand = KeyFramesOf(result.json, "Hand");
    ASSERT_EQ(hand.size(), 1u);
    EXPECT_THAT(hand[0].Translation(), ElementsAre(2, 0, 0));
}

TEST(ReadSkeleton, ASkeletonWithoutAMatrixForEveryJointMakesNoJoints)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def SkelRoot "Rig" {
    def Skeleton "Skel" {
        uniform token[] joints = ["Hips", "Hips/Spine"]
        uniform matrix4d[] bindTransforms = [)" + Translate(0, 0, 0) + R"(]
        uniform matrix4d[] restTransforms = [)" + Translate(0, 0, 0) + ", " + Translate(0, 0, 0) + R"(]
    }
)" + SkinnedMesh("Body", "/Rig/Skel", "") + "}\n"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Rig", "Body"));
}

TEST(ReadSkinWeights, WeightsAreWrittenAsAuthoredWithoutZeros)
{
    ScratchFolder scratch;
    // Point 0 has two half weights and two zeros, point 1 two unnormalised
    // weights, point 2 a weight for a joint the skeleton lacks.
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + Skeleton("Skel", {"A", "A/B", "A/B/C"}) +
                       SkinnedMesh("Body", "/Rig/Skel", R"(
        int[] primvars:skel:jointIndices = [2, 1, 0, 0,  0, 1, 0, 0,  7, 2, 0, 0] (elementSize = 4 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [0.5, 0.5, 0, -0,  0.2, 0.2, 0, 0,  0.3, 0.7, 0, 0] (elementSize = 4 interpolation = "vertex")
)") + "}\n"));
    EXPECT_THAT(Rig(result.json, "Body"),
                ElementsAre(RigEntry{0, "B", 0.5}, RigEntry{0, "C", 0.5}, RigEntry{1, "A", 0.2f},
                            RigEntry{1, "B", 0.2f}, RigEntry{2, "C", 0.7f}));
}

TEST(ReadSkinWeights, AMeshWithoutWeightsHasNoRigTableAndKeepsItsTransform)
{
    ScratchFolder scratch;
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + Skeleton("Skel", {"A"}) + SkinnedMesh("Body", "/Rig/Skel", R"(
        double3 xformOp:translate = (5, 0, 0)
        uniform token[] xformOpOrder = ["xformOp:translate"]
        int[] primvars:skel:jointIndices = [0, 0, 0] (elementSize = 1 interpolation = "vertex")
        matrix4d primvars:skel:geomBindTransform = )" + Translate(0, 10, 0) + "\n") +
                       "}\n"));
    const CTavrinJson body = NodeNamed(result.json, "Body");
    EXPECT_TRUE(body.at("geometry").at("rig").is_null());
    EXPECT_THAT(TranslationOf(body.at("localMatrix")), ElementsAre(5, 0, 0));
}

TEST(ReadSkinWeights, TheBindTransformReplacesTheMeshTransformWithoutRootCorrection)
{
    // Y-up in centimetres: a root node would be turned and scaled.
    const ImportResult result = ImportText("#usda 1.0\n(\n    upAxis = \"Y\"\n)\n" + Skeleton("Skel", {"A"}) +
                                                        SkinnedMesh("Body", "/Skel", R"(
        double3 xformOp:translate = (5, 0, 0)
        uniform token[] xformOpOrder = ["xformOp:translate"]
        int[] primvars:skel:jointIndices = [0, 0, 0] (elementSize = 1 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [1, 1, 1] (elementSize = 1 interpolation = "vertex")
        matrix4d primvars:skel:geomBindTransform = )" + Translate(0, 10, 0) + "\n"));
    const CTavrinJson body = NodeNamed(result.json, "Body");
    EXPECT_THAT(body.at("localMatrix"),
                ElementsAre(1, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_EQ(Rig(result.json, "Body").size(), 3u);
}

TEST(ReadSkinWeights, SampledInfluencesAreReadAtTheirFirstSample)
{
    ScratchFolder scratch;
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + Skeleton("Skel", {"A", "B"}) + SkinnedMesh("Body", "/Rig/Skel", R"(
        int[] primvars:skel:jointIndices (elementSize = 1 interpolation = "vertex")
        int[] primvars:skel:jointIndices.timeSamples = { 8: [0, 0, 0], 3: [1, 1, 0] }
        float[] primvars:skel:jointWeights (elementSize = 1 interpolation = "vertex")
        float[] primvars:skel:jointWeights.timeSamples = { 3: [0.25, 0.5, 1], 8: [1, 1, 1] }
)") + "}\n"));
    EXPECT_THAT(Rig(result.json, "Body"),
                ElementsAre(RigEntry{0, "B", 0.25}, RigEntry{1, "B", 0.5}, RigEntry{2, "A", 1}));
}

TEST(ReadSkinWeights, ElementSizeAndInterpolationShapeTheRows)
{
    ScratchFolder scratch;
    const std::string skeleton = Skeleton("Skel", {"A", "B"});
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + skeleton +
                       // No influences per point: an empty table is still attached.
                       SkinnedMesh("None", "/Rig/Skel", R"(
        int[] primvars:skel:jointIndices = [0, 1, 0] (elementSize = 0 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [1, 1, 1] (elementSize = 0 interpolation = "vertex")
)") +
                       // One row for the whole mesh binds every point rigidly.
                       SkinnedMesh("Rigid", "/Rig/Skel", R"(
        int[] primvars:skel:jointIndices = [1, 0] (elementSize = 2 interpolation = "constant")
        float[] primvars:skel:jointWeights = [0.75, 0.25] (elementSize = 2 interpolation = "constant")
)") +
                       // A row per point is read per point, also where the
                       // interpolation is left at its fallback, constant.
                       SkinnedMesh("Unstated", "/Rig/Skel", R"(
        int[] primvars:skel:jointIndices = [0, 1, 1]
        float[] primvars:skel:jointWeights = [1, 1, 0.5]
)") +
                       // Arrays one point short leave the last point without weights.
                       SkinnedMesh("Short", "/Rig/Skel", R"(
        int[] primvars:skel:jointIndices = [1, 0, 0, 0] (elementSize = 2 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [0.5, 0.5, 1, 0] (elementSize = 2 interpolation = "vertex")
)") + "}\n"));
    EXPECT_TRUE(Rig(result.json, "None").empty());
    EXPECT_FALSE(NodeNamed(result.json, "None").at("geometry").at("rig").is_null());
    EXPECT_THAT(Rig(result.json, "Rigid"),
                ElementsAre(RigEntry{0, "A", 0.25}, RigEntry{0, "B", 0.75}, RigEntry{1, "A", 0.25},
                            RigEntry{1, "B", 0.75}, RigEntry{2, "A", 0.25}, RigEntry{2, "B", 0.75}));
    EXPECT_THAT(Rig(result.json, "Unstated"),
                ElementsAre(RigEntry{0, "A", 1}, RigEntry{1, "B", 1}, RigEntry{2, "B", 0.5}));
    EXPECT_THAT(Rig(result.json, "Short"),
                ElementsAre(RigEntry{0, "A", 0.5}, RigEntry{0, "B", 0.5}, RigEntry{1, "A", 1}));
}

TEST(ReadSkinWeights, SplitVerticesCarryTheWeightsOfTheirSource)
{
    ScratchFolder scratch;
    // Two triangles share points 1 and 2 with other coordinates on each
    // side, so the second triangle's corners at 1 and 2 are copies (4, 5).
    const ImportResult result = ImportText(
        scratch, ZUpScene("def SkelRoot \"Rig\" {\n" + Skeleton("Skel", {"A", "B"}) + R"(
    def Mesh "Body" {
        point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0), (1, 1, 0)]
        int[] faceVertexCounts = [3, 3]
        int[] faceVertexIndices = [0, 1, 2, 2, 1, 3]
        texCoord2f[] primvars:st = [(0, 0), (1, 0), (0, 1), (0.5, 0.5), (0.6, 0.6), (1, 1)] (interpolation = "faceVarying")
        rel skel:skeleton = </Rig/Skel>
        int[] primvars:skel:jointIndices = [0, 1, 0, 1] (elementSize = 1 interpolation = "vertex")
        float[] primvars:skel:jointWeights = [1, 0.5, 0, 1] (elementSize = 1 interpolation = "vertex")
    }
}
)"));
    const CTavrinJson geometry = NodeNamed(result.json, "Body").at("geometry");
    ASSERT_EQ(geometry.at("vertices").size(), 6u);
    // Point 2 has no weight, so neither has its copy.
    EXPECT_THAT(Rig(result.json, "Body"),
                ElementsAre(RigEntry{0, "A", 1}, RigEntry{1, "B", 0.5}, RigEntry{3, "B", 1}, RigEntry{5, "B", 0.5}));
}

TEST(ReadSkeleton, TheCorpusArmKeepsItsJointsAndWeights)
{
    const std::string arm = std::string(TAVRIN_CORPUS_DIR) + "/PixarAnimationStudios_OpenUSD/pxr/usd/usdSkel/doxygen/skinnedArm.usda";
    if (!std::ifstream(arm))
        GTEST_SKIP() << "no corpus file " << arm;
    ScratchFolder scratch;
    const ImportResult result = ImportFile(arm, scratch.Path().string());
    const CTavrinJson& document = result.json;
    EXPECT_EQ(NodeNamed(document, "Shoulder").at("parent"), NodeNamed(document, "Model").at("id"));
    EXPECT_EQ(NodeNamed(document, "Hand").at("parent"), NodeNamed(document, "Elbow").at("id"));
    EXPECT_THAT(TranslationOf(NodeNamed(document, "Hand").at("invBindMatrix")), ElementsAre(0, 0, -4));
    EXPECT_THAT(TranslationOf(NodeNamed(document, "Hand").at("localMatrix")), ElementsAre(0, 0, 2));
    // The identity bind transform replaced the Y-up, centimetre correction.
    EXPECT_THAT(NodeNamed(document, "Arm").at("localMatrix"),
                ElementsAre(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    const auto rig = Rig(document, "Arm");
    ASSERT_EQ(rig.size(), 12u);
    EXPECT_EQ(rig[0], (RigEntry{0, "Hand", 1}));
    EXPECT_EQ(rig[4], (RigEntry{4, "Shoulder", 1}));
    EXPECT_EQ(rig[11], (RigEntry{11, "Elbow", 1}));
    // Its animation, bound on the skeleton, turns the elbow alone.
    EXPECT_THAT(StartsOf(KeyFramesOf(document, "Elbow")), ElementsAre(1, 10));
    EXPECT_TRUE(KeyFramesOf(document, "Hand").empty());
}

} // namespace
