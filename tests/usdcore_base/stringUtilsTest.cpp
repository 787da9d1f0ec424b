#include "usdcore/tf/stringUtils.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(StringUtils, PrintfGrowsPastAnyFixedBuffer)
{
    EXPECT_EQ(TfStringPrintf("%s-%03d", "frame", 7), "frame-007");
    const std::string big(5000, 'x');
    EXPECT_EQ(TfStringPrintf("<%s>", big.c_str()).size(), 5002u);
    EXPECT_EQ(TfStringPrintf("%s", ""), "");
}

TEST(StringUtils, SplitKeepsEmptyPiecesBetweenSeparators)
{
    EXPECT_EQ(TfStringSplit("a::b", ":"), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(TfStringSplit("primvars:st", ":"), (std::vector<std::string>{"primvars", "st"}));
    EXPECT_TRUE(TfStringSplit("", ":").empty());
    EXPECT_EQ(TfStringJoin({"a", "b", "c"}, ", "), "a, b, c");
}

TEST(StringUtils, PrefixSuffixTrimLower)
{
    EXPECT_TRUE(TfStringStartsWith("xformOp:rotateXYZ", "xformOp:"));
    EXPECT_FALSE(TfStringStartsWith("xf", "xformOp:"));
    EXPECT_TRUE(TfStringEndsWith("scene.usdz", ".usdz"));
    EXPECT_FALSE(TfStringEndsWith("z", ".usdz"));
    EXPECT_EQ(TfStringTrim("  \tname \n"), "name");
    EXPECT_EQ(TfStringTrim("   "), "");
    EXPECT_EQ(TfStringToLower("Scene.USDA"), "scene.usda");
}

TEST(StringUtils, PathPieces)
{
    EXPECT_EQ(TfStringGetSuffix("dir/a.b.usdc"), "usdc");
    EXPECT_EQ(TfStringGetSuffix("noext"), "");
    EXPECT_EQ(TfStringGetSuffix(".hidden"), "");
    EXPECT_EQ(TfGetPathName("dir/sub/file.usda"), "dir/sub/");
    EXPECT_EQ(TfGetPathName("file.usda"), "");
    EXPECT_EQ(TfGetBaseName("dir/sub/file.usda"), "file.usda");
}
