// GfRange3d: an axis-aligned box, empty until something is added.

#include "usdcore/gf/range3d.h"
#include "usdcore/gf/range3f.h"

#include <gtest/gtest.h>

#include <sstream>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(Range3d, DefaultIsEmptyAndGrowsByUnion)
{
    GfRange3d range;
    EXPECT_TRUE(range.IsEmpty());
    EXPECT_FALSE(range.Contains(GfVec3d(0, 0, 0)));
    range.UnionWith(GfVec3d(1, 2, 3));
    EXPECT_FALSE(range.IsEmpty());
    EXPECT_EQ(range.GetMin(), GfVec3d(1, 2, 3));
    EXPECT_EQ(range.GetMax(), GfVec3d(1, 2, 3));
    range.UnionWith(GfVec3d(-1, 5, 0));
    EXPECT_EQ(range.GetMin(), GfVec3d(-1, 2, 0));
    EXPECT_EQ(range.GetMax(), GfVec3d(1, 5, 3));
    EXPECT_EQ(range.GetSize(), GfVec3d(2, 3, 3));
    EXPECT_EQ(range.GetMidpoint(), GfVec3d(0, 3.5, 1.5));
    range.SetEmpty();
    EXPECT_TRUE(range.IsEmpty());
}

TEST(Range3d, ContainmentIsInclusive)
{
    const GfRange3d box(GfVec3d(0, 0, 0), GfVec3d(2, 2, 2));
    EXPECT_TRUE(box.Contains(GfVec3d(2, 0, 1)));
    EXPECT_FALSE(box.Contains(GfVec3d(2.5, 0, 1)));
    EXPECT_TRUE(box.Contains(GfRange3d(GfVec3d(1, 1, 1), GfVec3d(2, 2, 2))));
    EXPECT_FALSE(box.Contains(GfRange3d(GfVec3d(1, 1, 1), GfVec3d(3, 2, 2))));
    EXPECT_TRUE(box.Contains(GfRange3d()));
}

TEST(Range3d, UnionAndIntersection)
{
    const GfRange3d a(GfVec3d(0, 0, 0), GfVec3d(2, 2, 2));
    const GfRange3d b(GfVec3d(1, -1, 1), GfVec3d(3, 1, 4));
    EXPECT_EQ(GfRange3d::GetUnion(a, b), GfRange3d(GfVec3d(0, -1, 0), GfVec3d(3, 2, 4)));
    EXPECT_EQ(GfRange3d::GetIntersection(a, b), GfRange3d(GfVec3d(1, 0, 1), GfVec3d(2, 1, 2)));
    // Disjoint boxes intersect in an empty range.
    EXPECT_TRUE(GfRange3d::GetIntersection(a, GfRange3d(GfVec3d(5, 5, 5), GfVec3d(6, 6, 6))).IsEmpty());
    // The empty range adds nothing to a union.
    EXPECT_EQ(GfRange3d::GetUnion(a, GfRange3d()), a);
}

TEST(Range3d, CornersAndDistance)
{
    const GfRange3d box(GfVec3d(0, 0, 0), GfVec3d(1, 2, 3));
    EXPECT_EQ(box.GetCorner(0), GfVec3d(0, 0, 0));
    EXPECT_EQ(box.GetCorner(1), GfVec3d(1, 0, 0));
    EXPECT_EQ(box.GetCorner(6), GfVec3d(0, 2, 3));
    EXPECT_EQ(box.GetCorner(7), GfVec3d(1, 2, 3));
    // (4, 2, -4) is 3 beyond x and 4 below z: 9 + 16.
    EXPECT_EQ(box.GetDistanceSquared(GfVec3d(4, 2, -4)), 25.0);
    EXPECT_EQ(box.GetDistanceSquared(GfVec3d(0.5, 1, 1)), 0.0);
}

TEST(Range3f, SameBehaviourInSinglePrecision)
{
    GfRange3f range;
    range.UnionWith(GfVec3f(1, 1, 1)).UnionWith(GfVec3f(0, 2, 0));
    EXPECT_EQ(range, GfRange3f(GfVec3f(0, 1, 0), GfVec3f(1, 2, 1)));
    std::ostringstream out;
    out << range;
    EXPECT_EQ(out.str(), "[(0, 1, 0)...(1, 2, 1)]");
}
