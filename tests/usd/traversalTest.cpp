// Which prims a traversal visits, and in which order.

#include "usdTestUtils.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

namespace {

class TraversalTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }
    UsdStageRefPtr stage = OpenStage("traversal.usda");
};

} // namespace

TEST_F(TraversalTest, DepthFirstParentsFirstSkippingWhatTheDefaultPredicateExcludes)
{
    // B is inactive, C only an over, D a class: none of them nor their
    // children. E is an instance: visited, not entered. F is instanceable
    // without arcs of its own, so no instance, and entered.
    EXPECT_THAT(PrimPaths(stage->Traverse()),
                ElementsAre("/A", "/A/A1", "/A/A1/A1a", "/A/A2", "/E", "/F", "/F/F1", "/Proto",
                            "/Proto/Inner"));
}

TEST_F(TraversalTest, TraverseAllVisitsEveryComposedPrim)
{
    EXPECT_THAT(PrimPaths(stage->TraverseAll()),
                ElementsAre("/A", "/A/A1", "/A/A1/A1a", "/A/A2", "/B", "/C", "/C/C1", "/D", "/D/D1", "/E",
                            "/F", "/F/F1", "/Proto", "/Proto/Inner"));
}

TEST_F(TraversalTest, ChildrenUseTheSamePredicates)
{
    const UsdPrim root = stage->GetPseudoRoot();
    EXPECT_THAT(PrimPaths(root.GetChildren()), ElementsAre("/A", "/E", "/F", "/Proto"));
    EXPECT_THAT(PrimPaths(root.GetAllChildren()), ElementsAre("/A", "/B", "/C", "/D", "/E", "/F", "/Proto"));
    EXPECT_THAT(PrimPaths(root.GetFilteredChildren(UsdPrimIsAbstract)), ElementsAre("/D"));
    EXPECT_THAT(PrimPaths(root.GetFilteredChildren(!UsdPrimIsActive)), ElementsAre("/B"));
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/E")).GetChildren().empty());
}

TEST_F(TraversalTest, PrimFlags)
{
    const UsdPrim inactive = stage->GetPrimAtPath(SdfPath("/B"));
    EXPECT_FALSE(inactive.IsActive());
    EXPECT_TRUE(inactive.IsDefined());

    const UsdPrim overOnly = stage->GetPrimAtPath(SdfPath("/C"));
    EXPECT_FALSE(overOnly.IsDefined());
    EXPECT_FALSE(overOnly.HasDefiningSpecifier());
    // Defined needs every ancestor defined too.
    const UsdPrim underOver = stage->GetPrimAtPath(SdfPath("/C/C1"));
    EXPECT_TRUE(underOver.HasDefiningSpecifier());
    EXPECT_FALSE(underOver.IsDefined());

    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/D")).IsAbstract());
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/D/D1")).IsAbstract());

    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/E")).IsInstance());
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/E/LocalChild")));
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/F")).IsInstance());
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/F")).IsInstanceable());
}

// Below an instance are its prototype's prims at the instance's place:
// visited only when asked for, and then every walk that starts among them
// stays among them. What the stage's own layer authors below the instance
// is no part of it.
TEST_F(TraversalTest, InstanceProxiesOnlyWhenAskedFor)
{
    EXPECT_THAT(PrimPaths(stage->Traverse(UsdTraverseInstanceProxies())),
                ElementsAre("/A", "/A/A1", "/A/A1/A1a", "/A/A2", "/E", "/E/Inner", "/F", "/F/F1", "/Proto",
                            "/Proto/Inner"));
    EXPECT_THAT(PrimPaths(stage->TraverseAll()), ::testing::Not(::testing::Contains("/E/Inner")));
    const UsdPrim proxy = stage->GetPrimAtPath(SdfPath("/E/Inner"));
    ASSERT_TRUE(proxy);
    EXPECT_TRUE(proxy.IsInstanceProxy());
    EXPECT_FALSE(proxy.IsInstance());
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/E")).IsInstanceProxy());
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/Proto/Inner")).IsInstanceProxy());
    EXPECT_THAT(PrimPaths(stage->GetPrimAtPath(SdfPath("/E")).GetFilteredChildren(UsdTraverseInstanceProxies())),
                ElementsAre("/E/Inner"));
    EXPECT_THAT(PrimPaths(UsdPrimRange(proxy)), ElementsAre("/E/Inner"));
}

TEST_F(TraversalTest, PrunedChildrenAreSkipped)
{
    std::vector<std::string> visited;
    UsdPrimRange range = stage->Traverse();
    for (auto it = range.begin(); it != range.end(); ++it) {
        visited.push_back((*it).GetPath().GetString());
        if ((*it).GetPath() == SdfPath("/A/A1")) it.PruneChildren();
    }
    EXPECT_THAT(visited, ElementsAre("/A", "/A/A1", "/A/A2", "/E", "/F", "/F/F1", "/Proto", "/Proto/Inner"));
}

TEST_F(TraversalTest, RangeFromOnePrim)
{
    EXPECT_THAT(PrimPaths(UsdPrimRange(stage->GetPrimAtPath(SdfPath("/A")))),
                ElementsAre("/A", "/A/A1", "/A/A1/A1a", "/A/A2"));
    EXPECT_TRUE(UsdPrimRange(stage->GetPrimAtPath(SdfPath("/B"))).empty());
}
