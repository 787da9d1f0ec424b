// Joint hierarchies from joint paths: parent indices, roots, validation.

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdSkel/topology.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace usdcore;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

std::vector<int> ParentsOf(const std::vector<std::string>& jointPaths)
{
    VtTokenArray joints;
    for (const std::string& path : jointPaths) joints.push_back(TfToken(path));
    const UsdSkelTopology topology(joints);
    return std::vector<int>(topology.GetParentIndices().begin(), topology.GetParentIndices().end());
}

} // namespace

TEST(SkelTopologyParents, EachJointHangsFromItsParentPath)
{
    EXPECT_THAT(ParentsOf({"Hips", "Hips/Spine", "Hips/Spine/Head", "Hips/LeftLeg", "Hips/LeftLeg/LeftFoot"}),
                ElementsAre(-1, 0, 1, 0, 3));
}

TEST(SkelTopologyParents, SeveralRoots)
{
    EXPECT_THAT(ParentsOf({"Body", "Prop", "Prop/Handle", "Body/Arm"}), ElementsAre(-1, -1, 1, 0));
}

TEST(SkelTopologyParents, MissingIntermediateJointFallsBackToNearestListedAncestor)
{
    // "a/b" is not a joint, so "a/b/c" hangs from "a"; "x/y" has no listed
    // ancestor at all.
    EXPECT_THAT(ParentsOf({"a", "a/b/c", "x/y"}), ElementsAre(-1, 0, -1));
}

TEST(SkelTopologyParents, AbsoluteJointPaths)
{
    EXPECT_THAT(ParentsOf({"/Root", "/Root/Arm", "/Root/Arm/Hand"}), ElementsAre(-1, 0, 1));
}

TEST(SkelTopologyParents, ChildListedBeforeItsParentStillFindsIt)
{
    EXPECT_THAT(ParentsOf({"Hips/Spine", "Hips"}), ElementsAre(1, -1));
}

TEST(SkelTopologyParents, RepeatedPathStandsForItsLastOccurrence)
{
    EXPECT_THAT(ParentsOf({"A", "A", "A/B"}), ElementsAre(-1, -1, 1));
}

TEST(SkelTopologyParents, EmptyAndRelativeRootTokensAreRoots)
{
    TfDiagnosticCapture capture;
    EXPECT_THAT(ParentsOf({"", ".", "..", "../A", "A"}), ElementsAre(-1, -1, -1, -1, -1));
}

TEST(SkelTopologyParents, IllFormedPathIsARootWithAWarning)
{
    TfDiagnosticCapture capture;
    EXPECT_THAT(ParentsOf({"Hips", "Hips/Left Arm"}), ElementsAre(-1, -1));
    EXPECT_FALSE(capture.GetDiagnostics().empty());
}

TEST(SkelTopologyParents, NoJoints)
{
    const UsdSkelTopology topology{VtTokenArray()};
    EXPECT_EQ(topology.GetNumJoints(), 0u);
    EXPECT_TRUE(topology.Validate());
}

TEST(SkelTopologyAccess, ParentAndRootOfEachJoint)
{
    const UsdSkelTopology topology(VtTokenArray{TfToken("Hips"), TfToken("Hips/Spine")});
    EXPECT_EQ(topology.GetNumJoints(), 2u);
    EXPECT_EQ(topology.size(), 2u);
    EXPECT_EQ(topology.GetParent(0), -1);
    EXPECT_EQ(topology.GetParent(1), 0);
    EXPECT_TRUE(topology.IsRoot(0));
    EXPECT_FALSE(topology.IsRoot(1));
}

TEST(SkelTopologyAccess, IndexPastTheJointsIsACodingErrorAndReadsAsRoot)
{
    const UsdSkelTopology topology(VtIntArray{-1, 0});
    TfDiagnosticCapture capture;
    EXPECT_EQ(topology.GetParent(2), -1);
    EXPECT_EQ(capture.GetDiagnostics().size(), 1u);
}

TEST(SkelTopologyAccess, SamePathsGiveEqualTopologies)
{
    const UsdSkelTopology fromTokens(VtTokenArray{TfToken("A"), TfToken("A/B")});
    const UsdSkelTopology fromPaths(SdfPathVector{SdfPath("A"), SdfPath("A/B")});
    EXPECT_EQ(fromTokens, fromPaths);
    EXPECT_EQ(fromTokens, UsdSkelTopology(VtIntArray{-1, 0}));
    EXPECT_NE(fromTokens, UsdSkelTopology(VtIntArray{-1, -1}));
}

TEST(SkelTopologyValidate, ParentsBeforeChildrenIsValid)
{
    std::string reason;
    EXPECT_TRUE(UsdSkelTopology(VtIntArray{-1, 0, 1, 0, -1}).Validate(&reason));
    EXPECT_TRUE(reason.empty());
}

TEST(SkelTopologyValidate, ParentAfterChildIsReported)
{
    std::string reason;
    const UsdSkelTopology topology(VtTokenArray{TfToken("Hips/Spine"), TfToken("Hips")});
    EXPECT_FALSE(topology.Validate(&reason));
    EXPECT_THAT(reason, HasSubstr("Joint 0 has mis-ordered parent 1"));
}

TEST(SkelTopologyValidate, JointThatIsItsOwnParentIsReported)
{
    std::string reason;
    EXPECT_FALSE(UsdSkelTopology(VtIntArray{-1, 1}).Validate(&reason));
    EXPECT_THAT(reason, HasSubstr("Joint 1 has itself as its parent"));
    EXPECT_FALSE(UsdSkelTopology(VtIntArray{-1, 1}).Validate());
}
