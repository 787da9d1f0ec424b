#include "usdcore/vt/types.h"

#include <gtest/gtest.h>

#include <memory>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(VtArray, CopiesShareUntilWritten)
{
    VtIntArray original = {1, 2, 3};
    const VtIntArray copy = original;
    EXPECT_TRUE(copy.IsIdentical(original));
    EXPECT_EQ(copy.cdata(), original.cdata());

    original[1] = 20; // detaches the writer
    EXPECT_FALSE(copy.IsIdentical(original));
    EXPECT_EQ(copy, (VtIntArray{1, 2, 3}));
    EXPECT_EQ(original, (VtIntArray{1, 20, 3}));
}

TEST(VtArray, DataDetachesAndCdataDoesNot)
{
    VtFloatArray a(4, 1.5f);
    VtFloatArray b = a;
    const float* shared = a.cdata();
    EXPECT_EQ(b.cdata(), shared);
    float* own = b.data();
    EXPECT_NE(own, shared);
    own[0] = -1.0f;
    EXPECT_EQ(a[0], 1.5f);
    // A unique array keeps its storage when written.
    EXPECT_EQ(b.data(), own);
}

TEST(VtArray, GrowingASharedArrayLeavesTheOtherAlone)
{
    VtTokenArray a = {TfToken("x")};
    VtTokenArray b = a;
    b.push_back(TfToken("y"));
    b.resize(4);
    EXPECT_EQ(a.size(), 1u);
    ASSERT_EQ(b.size(), 4u);
    EXPECT_EQ(b[1], TfToken("y"));
    EXPECT_TRUE(b[3].IsEmpty());
    VtTokenArray c = b;
    c.clear();
    EXPECT_TRUE(c.empty());
    EXPECT_EQ(b.size(), 4u);
}

TEST(VtArray, ResizeWithFillWritesRawStorageOnce)
{
    VtVec3fArray points;
    int calls = 0;
    points.resize(3, [&calls](GfVec3f* first, GfVec3f* last) {
        ++calls;
        for (float i = 0; first != last; ++first, ++i) new (first) GfVec3f(i, 2 * i, 3 * i);
    });
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(points[2], GfVec3f(2, 4, 6));
    points.resize(1, [](GfVec3f*, GfVec3f*) { ADD_FAILURE() << "shrinking fills nothing"; });
    EXPECT_EQ(points.size(), 1u);
}

TEST(VtArray, PushBackOfOwnElementSurvivesReallocation)
{
    VtStringArray names = {"a"};
    for (int i = 0; i < 20; ++i) names.push_back(names.front());
    EXPECT_EQ(names.size(), 21u);
    EXPECT_EQ(names.back(), "a");
}

TEST(VtArray, ElementsAreDestroyedExactlyOnce)
{
    auto tracker = std::make_shared<int>(0);
    {
        VtArray<std::shared_ptr<int>> a(3, tracker);
        VtArray<std::shared_ptr<int>> b = a;
        EXPECT_EQ(tracker.use_count(), 4);
        b.pop_back(); // b detaches: copies 3, drops 1
        EXPECT_EQ(tracker.use_count(), 6);
        a.assign(1, tracker);
        EXPECT_EQ(tracker.use_count(), 4);
    }
    EXPECT_EQ(tracker.use_count(), 1);
}

TEST(VtArray, AlignsWideElements)
{
    VtMatrix4dArray m(2, GfMatrix4d(1));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(m.cdata()) % alignof(GfMatrix4d), 0u);
    EXPECT_EQ(m[1][3][3], 1.0);
}

TEST(VtArray, ReserveAndEquality)
{
    VtDoubleArray a;
    a.reserve(100);
    EXPECT_GE(a.capacity(), 100u);
    EXPECT_TRUE(a.empty());
    a.assign({1.0, 2.0});
    EXPECT_EQ(a, (VtDoubleArray{1.0, 2.0}));
    EXPECT_NE(a, (VtDoubleArray{1.0}));
    EXPECT_NE(a, (VtDoubleArray{1.0, 3.0}));
    EXPECT_EQ(VtDoubleArray(), VtDoubleArray(0));
}
