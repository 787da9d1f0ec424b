#include "usdcore/tf/hash.h"
#include "usdcore/tf/pathUtils.h"
#include "usdcore/tf/token.h"

#include <gtest/gtest.h>

#include <unistd.h>

PXR_NAMESPACE_USING_DIRECTIVE

TEST(PathUtils, NormPathFoldsDotsAndSlashes)
{
    EXPECT_EQ(TfNormPath("a//b/./c/"), "a/b/c");
    EXPECT_EQ(TfNormPath("a/b/../../c"), "c");
    EXPECT_EQ(TfNormPath("../a/../../b"), "../../b");
    EXPECT_EQ(TfNormPath("/../a/.."), "/");
    EXPECT_EQ(TfNormPath("a/.."), ".");
    EXPECT_EQ(TfNormPath(""), ".");
}

TEST(PathUtils, AbsPathAndExtension)
{
    char cwd[4096];
    ASSERT_NE(::getcwd(cwd, sizeof cwd), nullptr);
    EXPECT_EQ(TfAbsPath("x/../y.usda"), TfNormPath(std::string(cwd) + "/y.usda"));
    EXPECT_EQ(TfAbsPath("/a/./b"), "/a/b");
    EXPECT_EQ(TfGetExtension("dir.v2/scene.USDZ"), "USDZ");
    EXPECT_EQ(TfGetExtension("dir.v2/Makefile"), "");
}

TEST(Hash, UsesHashValueOrStdHash)
{
    EXPECT_EQ(TfHash()(TfToken("t")), TfToken("t").Hash());
    EXPECT_EQ(TfHash()(std::string("s")), std::hash<std::string>()("s"));
    EXPECT_NE(TfHash::Combine(1, 2), TfHash::Combine(2, 1));
}
