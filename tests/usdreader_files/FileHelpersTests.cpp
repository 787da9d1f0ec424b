#include <gtest/gtest.h>

#include <filesystem>

#include "ScratchFolder.h"
#include "usdreader/TavrinFileHelpers.h"

using namespace Tavrin;

TEST(CopyFileReplacing, CopiesIntoFoldersItMakes)
{
    ScratchFolder scratch;
    WriteFile(scratch / "source.png", "image");
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "source.png"), Text(scratch / "a/b/copy.png"), true));
    EXPECT_EQ(ReadFile(scratch / "a/b/copy.png"), "image");
    EXPECT_EQ(ReadFile(scratch / "source.png"), "image");
}

TEST(CopyFileReplacing, BackslashesInTheDestinationAreSeparators)
{
    ScratchFolder scratch;
    WriteFile(scratch / "source.png", "image");
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "source.png"), Text(scratch / "a\\copy.png"), true));
    EXPECT_EQ(ReadFile(scratch / "a/copy.png"), "image");
}

TEST(CopyFileReplacing, OntoItselfSucceedsAndLeavesTheFileAlone)
{
    ScratchFolder scratch;
    WriteFile(scratch / "same.png", "keep");
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "same.png"), Text(scratch / "same.png"), true));
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "same.png"), Text(scratch / "./x/../same.png"), true));
    EXPECT_EQ(ReadFile(scratch / "same.png"), "keep");
}

TEST(CopyFileReplacing, OntoALinkToTheSourceKeepsTheSource)
{
    ScratchFolder scratch;
    WriteFile(scratch / "source.png", "keep");
    std::filesystem::create_symlink(scratch / "source.png", scratch / "link.png");
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "source.png"), Text(scratch / "link.png"), true));
    EXPECT_EQ(ReadFile(scratch / "source.png"), "keep");
}

TEST(CopyFileReplacing, ExistingDestinationKeptWithoutReplaceAndReplacedWithIt)
{
    ScratchFolder scratch;
    WriteFile(scratch / "new.png", "new");
    WriteFile(scratch / "old.png", "old");
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "new.png"), Text(scratch / "old.png"), false));
    EXPECT_EQ(ReadFile(scratch / "old.png"), "old");
    EXPECT_TRUE(CopyFileReplacing(Text(scratch / "new.png"), Text(scratch / "old.png"), true));
    EXPECT_EQ(ReadFile(scratch / "old.png"), "new");
}

TEST(CopyFileReplacing, MissingSourceFailsAndMakesNothing)
{
    ScratchFolder scratch;
    WriteFile(scratch / "existing.png", "old");
    EXPECT_FALSE(CopyFileReplacing(Text(scratch / "missing.png"), Text(scratch / "existing.png"), true));
    EXPECT_EQ(ReadFile(scratch / "existing.png"), "old");
    EXPECT_FALSE(CopyFileReplacing(Text(scratch / "missing.png"), Text(scratch / "sub/x.png"), true));
    EXPECT_FALSE(std::filesystem::exists(scratch / "sub"));
}

TEST(CopyFileReplacing, AFolderAsSourceCopiesNothing)
{
    ScratchFolder scratch;
    std::filesystem::create_directories(scratch / "folder");
    EXPECT_FALSE(CopyFileReplacing(Text(scratch / "folder"), Text(scratch / "copy"), true));
    EXPECT_FALSE(std::filesystem::exists(scratch / "copy"));
}

TEST(FileExists, OnlyForFiles)
{
    ScratchFolder scratch;
    WriteFile(scratch / "file.txt", "x");
    std::filesystem::create_directories(scratch / "folder");
    EXPECT_TRUE(FileExists(Text(scratch / "file.txt")));
    EXPECT_FALSE(FileExists(Text(scratch / "folder")));
    EXPECT_FALSE(FileExists(Text(scratch / "missing.txt")));
    EXPECT_FALSE(FileExists(CTavrinString()));
}

TEST(MakeFolder, MakesMissingParentsAndReturnsTheAbsolutePathWithASeparator)
{
    ScratchFolder scratch;
    EXPECT_EQ(MakeFolder(Text(scratch / "a/b/c")), Text(scratch / "a/b/c/"));
    EXPECT_TRUE(std::filesystem::is_directory(scratch / "a/b/c"));
    EXPECT_EQ(MakeFolder(Text(scratch / "a/b/c/")), Text(scratch / "a/b/c/"));
}

TEST(MakeFolder, EmptyWhenTheFolderCannotExist)
{
    ScratchFolder scratch;
    WriteFile(scratch / "file", "x");
    EXPECT_EQ(MakeFolder(Text(scratch / "file/sub")), CTavrinString());
    EXPECT_EQ(MakeFolder(Text(scratch / "file")), CTavrinString());
    EXPECT_EQ(MakeFolder(CTavrinString()), CTavrinString());
}

TEST(NormalizePath, CollapsesDoubledSeparatorsOfEitherKind)
{
    EXPECT_EQ(NormalizePath(Text("/no/such//folder\\\\x.png"), false), Text("/no/such/folder/x.png"));
    EXPECT_EQ(NormalizePath(Text("a///b"), false), Text("a/b"));
}

TEST(NormalizePath, MakesTheFolderPartWhenAsked)
{
    ScratchFolder scratch;
    EXPECT_EQ(NormalizePath(Text(scratch / "made//here/x.png"), true), Text(scratch / "made/here/x.png"));
    EXPECT_TRUE(std::filesystem::is_directory(scratch / "made/here"));
    EXPECT_FALSE(std::filesystem::exists(scratch / "made/here/x.png"));
    NormalizePath(Text(scratch / "not/made.png"), false);
    EXPECT_FALSE(std::filesystem::exists(scratch / "not"));
}

TEST(RemoveFile, RemovesFilesOnly)
{
    ScratchFolder scratch;
    WriteFile(scratch / "gone.txt", "x");
    std::filesystem::create_directories(scratch / "folder");
    EXPECT_TRUE(RemoveFile(Text(scratch / "/gone.txt")));
    EXPECT_FALSE(std::filesystem::exists(scratch / "gone.txt"));
    EXPECT_FALSE(RemoveFile(Text(scratch / "gone.txt")));
    EXPECT_FALSE(RemoveFile(Text(scratch / "folder")));
    EXPECT_TRUE(std::filesystem::is_directory(scratch / "folder"));
    EXPECT_FALSE(RemoveFile(CTavrinString()));
}
