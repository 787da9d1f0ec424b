// Prims to nodes: which prims make which nodes, their names, parents and
// local matrices, and the prims that are passed over.

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"
#include "tests/usdreader/ImportSupport.h"

PXR_NAMESPACE_USING_DIRECTIVE

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;

namespace {

std::vector<double> Translation(const CTavrinJson& node)
{
    return TranslationOf(node.at("localMatrix"));
}

TEST(ReadPrimNodes, TransformsMakeTransformNodesUnderTheirParents)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def Xform "World" {
    double3 xformOp:translate = (1, 2, 3)
    uniform token[] xformOpOrder = ["xformOp:translate"]
    def Xform "Arm" {
        double3 xformOp:translate = (4, 5, 6)
        uniform token[] xformOpOrder = ["xformOp:translate"]
    }
}
)"));
    const CTavrinJson world = NodeNamed(result.json, "World");
    const CTavrinJson arm = NodeNamed(result.json, "Arm");
    EXPECT_EQ(world.at("type"), "TransformNode");
    EXPECT_TRUE(world.at("parent").is_null());
    EXPECT_EQ(arm.at("parent"), world.at("id"));
    EXPECT_THAT(Translation(world), ElementsAre(1, 2, 3));
    EXPECT_THAT(Translation(arm), ElementsAre(4, 5, 6));
}

TEST(ReadPrimNodes, OnlyNodesWithoutAParentNodeGetTheRootCorrection)
{
    // Y-up in centimetres: the root correction scales by 0.01.
    const ImportResult result = ImportText(R"(#usda 1.0
(
    upAxis = "Y"
)
def Xform "World" {
    def Xform "Child" {
        double3 xformOp:translate = (0, 0, 7)
        uniform token[] xformOpOrder = ["xformOp:translate"]
    }
}
def Scope "Group" {
    def Xform "Loose" {
        double3 xformOp:translate = (0, 0, 7)
        uniform token[] xformOpOrder = ["xformOp:translate"]
    }
}
)");
    EXPECT_THAT(Translation(NodeNamed(result.json, "Child")), ElementsAre(0, 0, 7));
    // Under a scope only: a root node, so (0, 0, 7) cm along Z (Y-up) is
    // 0.07 m along -Y (Z-up).
    const std::vector<double> loose = Translation(NodeNamed(result.json, "Loose"));
    EXPECT_NEAR(loose[0], 0.0, 1e-15);
    // The quarter turn's constant falls short of pi/2, so Z keeps a trace.
    EXPECT_NEAR(loose[1], -0.07 * std::sin(1.57079632675), 1e-16);
    EXPECT_NEAR(loose[2], 0.07 * std::cos(1.57079632675), 1e-20);
    const CTavrinJson world = NodeNamed(result.json, "World");
    EXPECT_NEAR(world.at("localMatrix").at(0).get<double>(), 0.01, 1e-15);
}

TEST(ReadPrimNodes, AScopeMakesNoNodeAndLendsItsPathToItsParentsNode)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def Xform "A" {
    def Scope "S" {
        double3 xformOp:translate = (9, 9, 9)
        uniform token[] xformOpOrder = ["xformOp:translate"]
        def Xform "B" {}
    }
}
def Scope "Geo" { def Xform "Arm" {} }
)"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("A", "B", "Arm"));
    EXPECT_EQ(NodeNamed(result.json, "B").at("parent"), NodeNamed(result.json, "A").at("id"));
    EXPECT_TRUE(NodeNamed(result.json, "Arm").at("parent").is_null());
    // A scope under no node is not entered; one under a node stands for it.
    const auto& nodesByPath = result.handler->nodesByPath;
    EXPECT_EQ(nodesByPath.count(SdfPath("/Geo")), 0u);
    EXPECT_EQ(nodesByPath.at(SdfPath("/A/S")), nodesByPath.at(SdfPath("/A")));
}

TEST(ReadPrimNodes, ASkeletonRootMakesAJointAndItsSkeletonNothing)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def SkelRoot "Character" {
    def Skeleton "Skeleton" {}
}
)"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Character"));
    EXPECT_EQ(NodeNamed(result.json, "Character").at("type"), "SkeletonJoint");
}

TEST(ReadPrimNodes, OtherPrimTypesMakeNoNodes)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def Xform "World" {
    def Camera "Camera" {}
    def Points "Dots" {}
    def Material "Paint" { def Shader "Surface" {} }
    def "Untyped" { def Xform "Inside" {} }
}
)"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("World", "Inside"));
    EXPECT_EQ(NodeNamed(result.json, "Inside").at("parent"), NodeNamed(result.json, "World").at("id"));
}

TEST(ReadPrimNodes, NamesAreKeptAsTheyAreEvenWhenRepeated)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def Xform "Left" { def Xform "Hand" {} }
def Xform "Right" { def Xform "Hand" {} }
)"));
    EXPECT_THAT(NodeNames(result.json), ElementsAre("Left", "Hand", "Right", "Hand"));
}

TEST(ReadPrimNodes, ATransformAuthoredOnlyAsTimeSamplesTakesItsPoseAtTimeZero)
{
    const ImportResult result = ImportText(ZUpScene(R"(
def Xform "Moving" {
    double3 xformOp:translate.timeSamples = { -10: (0, 0, 0), 10: (20, 0, 0) }
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)"));
    EXPECT_THAT(Translation(NodeNamed(result.json, "Moving")), ElementsAre(10, 0, 0));
}

TEST(ReadPrimNodes, ATransformWithoutOpsHasTheIdentity)
{
    const ImportResult result = ImportText(ZUpScene("def Xform \"Still\" {}\n"));
    EXPECT_EQ(NodeNamed(result.json, "Still").at("localMatrix"),
              CTavrinJson::parse("[1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,1]"));
}

TEST(ReadPrimJointNames, APrimNamedLikeAConvertedJointIsPassedOver)
{
    const auto scene = OpenScene(ZUpScene(R"(
def Xform "Hip" { def Xform "Leg" {} }
def Xform "Other" {}
)"));
    CTavrinUSDReaderHandler& handler = scene->handler;
    CTavrinSkeletonJoint* joint = CTavrinSkeletonJoint::Create(scene->document.get());
    handler.nodesByPath[SdfPath("Hip")] = joint;

    handler.ReadPrim(handler.stage->GetPrimAtPath(SdfPath("/Hip")), nullptr);
    EXPECT_EQ(handler.nodesByPath.count(SdfPath("/Hip")), 0u);
    EXPECT_EQ(scene->document->SceneNodes().size(), 1u);

    handler.ReadPrim(handler.stage->GetPrimAtPath(SdfPath("/Other")), nullptr);
    ASSERT_EQ(scene->document->SceneNodes().size(), 2u);
    EXPECT_EQ(scene->document->SceneNodes()[1]->Name(), CTavrinString("Other"));
    EXPECT_EQ(handler.nodesByPath.at(SdfPath("Hip")), joint);
}

} // namespace
