#include "usdcore/sdf/usdz/packageUtils.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE

using Split = std::pair<std::string, std::string>;

TEST(PackageRelativePath, Recognition)
{
    EXPECT_TRUE(ArIsPackageRelativePath("a.usdz[b.usda]"));
    EXPECT_TRUE(ArIsPackageRelativePath("/dir/a.usdz[sub/b.usdz[c.usda]]"));
    EXPECT_FALSE(ArIsPackageRelativePath("a.usdz"));
    EXPECT_FALSE(ArIsPackageRelativePath("a.usdz]"));
    EXPECT_FALSE(ArIsPackageRelativePath(""));
    EXPECT_FALSE(ArIsPackageRelativePath("a.usdz\\[b]")); // the '[' is escaped
}

TEST(PackageRelativePath, JoinNests)
{
    EXPECT_EQ(ArJoinPackageRelativePath(std::vector<std::string>{"a.pack", "b.pack"}), "a.pack[b.pack]");
    EXPECT_EQ(ArJoinPackageRelativePath(std::vector<std::string>{"a.pack", "b.pack", "c.pack"}), "a.pack[b.pack[c.pack]]");
    EXPECT_EQ(ArJoinPackageRelativePath(std::vector<std::string>{"a.pack[b.pack]", "c.pack"}), "a.pack[b.pack[c.pack]]");
    EXPECT_EQ(ArJoinPackageRelativePath("a.usdz", "b.usdz[c.usda]"), "a.usdz[b.usdz[c.usda]]");
    EXPECT_EQ(ArJoinPackageRelativePath(Split("", "b.usda")), "b.usda");
    EXPECT_EQ(ArJoinPackageRelativePath(std::vector<std::string>{"", "a.usdz", "", "b.usda"}), "a.usdz[b.usda]");
    EXPECT_EQ(ArJoinPackageRelativePath(std::vector<std::string>{}), "");
}

TEST(PackageRelativePath, SplitOuterAndInner)
{
    EXPECT_EQ(ArSplitPackageRelativePathOuter("a.pack[b.pack]"), Split("a.pack", "b.pack"));
    EXPECT_EQ(ArSplitPackageRelativePathOuter("a.pack[b.pack[c.pack]]"), Split("a.pack", "b.pack[c.pack]"));
    EXPECT_EQ(ArSplitPackageRelativePathInner("a.pack[b.pack]"), Split("a.pack", "b.pack"));
    EXPECT_EQ(ArSplitPackageRelativePathInner("a.pack[b.pack[c.pack]]"), Split("a.pack[b.pack]", "c.pack"));
    EXPECT_EQ(ArSplitPackageRelativePathOuter("plain.usda"), Split("plain.usda", ""));
    EXPECT_EQ(ArSplitPackageRelativePathInner("plain.usda"), Split("plain.usda", ""));
    EXPECT_EQ(ArSplitPackageRelativePathInner("]]"), Split("]]", ""));
    EXPECT_EQ(ArSplitPackageRelativePathOuter("x]"), Split("x]", ""));
}

TEST(PackageRelativePath, BracketsInNamesAreEscapedAndRestored)
{
    const std::string joined = ArJoinPackageRelativePath("a.usdz", "odd[1].png");
    EXPECT_EQ(joined, "a.usdz[odd\\[1\\].png]");
    EXPECT_TRUE(ArIsPackageRelativePath(joined));
    EXPECT_EQ(ArSplitPackageRelativePathOuter(joined), Split("a.usdz", "odd[1].png"));
    EXPECT_EQ(ArSplitPackageRelativePathInner(joined), Split("a.usdz", "odd[1].png"));

    // Only the package part of a nested path is escaped on the way in.
    const std::string nested = ArJoinPackageRelativePath("a.usdz", "b[2].usdz[c.usda]");
    EXPECT_EQ(nested, "a.usdz[b\\[2\\].usdz[c.usda]]");
    EXPECT_EQ(ArSplitPackageRelativePathOuter(nested), Split("a.usdz", "b[2].usdz[c.usda]"));
    EXPECT_EQ(ArSplitPackageRelativePathInner(nested), Split("a.usdz[b\\[2\\].usdz]", "c.usda"));
}

TEST(PackageRelativePath, JoinThenSplitRoundTrips)
{
    const std::vector<std::string> parts = {"/dir/outer.usdz", "mid/inner.usdz", "deep/layer.usdc"};
    const std::string joined = ArJoinPackageRelativePath(parts);
    EXPECT_EQ(joined, "/dir/outer.usdz[mid/inner.usdz[deep/layer.usdc]]");
    const Split inner = ArSplitPackageRelativePathInner(joined);
    EXPECT_EQ(inner.second, parts[2]);
    EXPECT_EQ(ArSplitPackageRelativePathInner(inner.first), Split(parts[0], parts[1]));
}

TEST(AnchorAssetPath, RelativeToTheAuthoringLayer)
{
    EXPECT_EQ(SdfAnchorAssetPath("/show/shot/layer.usda", "./geo/a.usdc"), "/show/shot/geo/a.usdc");
    EXPECT_EQ(SdfAnchorAssetPath("/show/shot/layer.usda", "../lib/b.usda"), "/show/lib/b.usda");
    EXPECT_EQ(SdfAnchorAssetPath("/show/shot/layer.usda", "/abs//c.usda"), "/abs/c.usda");
    EXPECT_EQ(SdfAnchorAssetPath("layer.usda", "./c.usda"), "c.usda");
    EXPECT_EQ(SdfAnchorAssetPath("dir/layer.usda", ""), "");
}

TEST(AnchorAssetPath, InsideAPackageStaysInsideIt)
{
    EXPECT_EQ(SdfAnchorAssetPath("/p/scene.usdz[sub/layer.usda]", "./tex/t.png"),
              "/p/scene.usdz[sub/tex/t.png]");
    EXPECT_EQ(SdfAnchorAssetPath("/p/scene.usdz[sub/layer.usda]", "../root.png"),
              "/p/scene.usdz[root.png]");
    EXPECT_EQ(SdfAnchorAssetPath("/p/a.usdz[b.usdz[c/d.usda]]", "e.png"), "/p/a.usdz[b.usdz[c/e.png]]");
}

TEST(AnchorAssetPath, PackageRelativeAssetsAnchorTheirPackage)
{
    EXPECT_EQ(SdfAnchorAssetPath("/p/layer.usda", "./other.usdz[inner/x.usda]"),
              "/p/other.usdz[inner/x.usda]");
    EXPECT_EQ(SdfAnchorAssetPath("/p/s.usdz[layer.usda]", "./n.usdz[x.usda]"), "/p/s.usdz[n.usdz[x.usda]]");
}
