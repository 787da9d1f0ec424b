#include <gtest/gtest.h>

#include "ScratchFolder.h"
#include "usdreader/TavrinContainedPath.h"

using namespace Tavrin;

TEST(ContainedPath, RelativeNamesKeepTheirComponents)
{
    const CTavrinContainedPath plain = ResolveContainedPath(Text("textures/wood.png"));
    EXPECT_TRUE(plain.contained);
    EXPECT_TRUE(plain.namesFile);
    EXPECT_EQ(plain.path, Text("textures/wood.png"));

    const CTavrinContainedPath mixed = ResolveContainedPath(Text("a\\b//./c.png"));
    EXPECT_TRUE(mixed.contained);
    EXPECT_EQ(mixed.path, Text("a/b/c.png"));
}

TEST(ContainedPath, DotDotThatStaysInsideIsResolved)
{
    const CTavrinContainedPath inside = ResolveContainedPath(Text("a/b/../../c.png"));
    EXPECT_TRUE(inside.contained);
    EXPECT_TRUE(inside.namesFile);
    EXPECT_EQ(inside.path, Text("c.png"));
}

TEST(ContainedPath, ClimbingAboveTheStartIsRefused)
{
    for (const char* name : {"..", "../x", "a/../../x", "a\\..\\..\\x", "./../x", "a/b/../../../x"})
        EXPECT_FALSE(ResolveContainedPath(Text(name)).contained) << name;
}

TEST(ContainedPath, AbsolutePathsAndDrivesAreRefused)
{
    for (const char* name : {"/etc/passwd", "\\x.png", "\\\\server\\share\\x.png", "C:\\x.png", "c:x.png"})
        EXPECT_FALSE(ResolveContainedPath(Text(name)).contained) << name;
}

TEST(ContainedPath, FolderNamesAreNotFileNames)
{
    for (const char* name : {"dir/", "dir\\", "a/.", "a/b/..", ".", ""}) {
        const CTavrinContainedPath folder = ResolveContainedPath(Text(name));
        EXPECT_TRUE(folder.contained) << name;
        EXPECT_FALSE(folder.namesFile) << name;
    }
    EXPECT_EQ(ResolveContainedPath(Text("dir/")).path, Text("dir"));
    EXPECT_EQ(ResolveContainedPath(Text("a/b/..")).path, Text("a"));
    EXPECT_TRUE(ResolveContainedPath(Text("")).path.IsEmpty());
}
