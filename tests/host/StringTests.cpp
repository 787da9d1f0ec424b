#include <gtest/gtest.h>

#include "host/CTavrinString.h"

using namespace Tavrin;

namespace {
// Expected paths are written with "/" and turned into the system separator.
CTavrinString SystemPath(std::wstring text)
{
    for (wchar_t& c : text)
        if (c == L'/')
            c = CTavrinString::SystemSeparator;
    return CTavrinString(text);
}
} // namespace

TEST(StringPaths, RemovePathThenRemoveExtLeavesTheBaseName)
{
    CTavrinString windows(L"C:\\models\\robot.usda");
    windows.RemovePath();
    EXPECT_EQ(windows, CTavrinString(L"robot.usda"));
    windows.RemoveExt();
    EXPECT_EQ(windows, CTavrinString(L"robot"));

    CTavrinString posix("/home/u/models/robot.usda");
    posix.RemovePath();
    posix.RemoveExt();
    EXPECT_EQ(posix, CTavrinString("robot"));
}

TEST(StringPaths, RemovePathKeepsTheLastJointOfAJointPath)
{
    CTavrinString joint("Hips/Spine/Chest");
    joint.RemovePath();
    EXPECT_EQ(joint, CTavrinString("Chest"));
}

TEST(StringPaths, RemoveExtIgnoresDotsInFolderNames)
{
    CTavrinString path("scenes.v2/robot");
    path.RemoveExt();
    EXPECT_EQ(path, CTavrinString("scenes.v2/robot"));
    CTavrinString archive("a.tar.gz");
    archive.RemoveExt();
    EXPECT_EQ(archive, CTavrinString("a.tar"));
}

TEST(StringPaths, BothSlashesBecomeTheSystemSeparator)
{
    CTavrinString forward("textures/wood.png");
    forward.ReplaceSlashWithSystemSlash();
    EXPECT_EQ(forward, SystemPath(L"textures/wood.png"));

    CTavrinString mixed(L"a\\b/c");
    mixed.ReplaceSlashWithSystemSlash();
    EXPECT_EQ(mixed, SystemPath(L"a/b/c"));
}

TEST(StringPaths, PathExtensionAndFolders)
{
    EXPECT_EQ(CTavrinString("a/b/c.txt").Path(L'/'), CTavrinString("a/b"));
    EXPECT_EQ(CTavrinString("c.txt").Path(L'/'), CTavrinString());
    EXPECT_EQ(CTavrinString("a.tar.gz").Extension(), CTavrinString("gz"));
    EXPECT_EQ(CTavrinString("dir.d/file").Extension(), CTavrinString());

    CTavrinString folder("/tmp");
    folder.CD("unpack");
    EXPECT_EQ(folder, SystemPath(L"/tmp/unpack/"));

    CTavrinString file(L"C:\\old\\wood.png");
    file.SetPath("/new");
    EXPECT_EQ(file, SystemPath(L"/new/wood.png"));
}

TEST(StringText, UnicodeDetectionAndUtf8)
{
    EXPECT_FALSE(CTavrinString(L"C:\\models\\tree.usda").HasUnicode());
    const CTavrinString accented(L"C:\\mod\u00e8les\\tree.usda");
    EXPECT_TRUE(accented.HasUnicode());
    EXPECT_EQ(CTavrinString(L"H\u00fcfte").toStdString(), "H\xc3\xbc" "fte");
    // Narrow text is read as UTF-8: "ü" is one character.
    EXPECT_EQ(CTavrinString("H\xc3\xbc" "fte").Length(), 5);
    EXPECT_EQ(CTavrinString(L"\U0001F600").toStdString(), "\xf0\x9f\x98\x80");
}

TEST(StringText, InvalidUtf8BecomesReplacementCharacters)
{
    // A lone continuation byte, then a lead byte cut off at the end.
    const CTavrinString broken("a\x80" "b\xe2\x82");
    EXPECT_EQ(broken, CTavrinString(L"a\uFFFDb\uFFFD\uFFFD"));
}

TEST(StringText, ConstructionConcatenationAndComparison)
{
    EXPECT_EQ(CTavrinString(-42), CTavrinString("-42"));
    CTavrinString name = CTavrinString("robot") + CTavrinString("_Animation");
    EXPECT_EQ(name, CTavrinString("robot_Animation"));
    name += L"!";
    EXPECT_EQ(name + L'?', CTavrinString("robot_Animation!?"));
    EXPECT_TRUE(CTavrinString("a") < CTavrinString("b"));
    EXPECT_NE(CTavrinString("a"), CTavrinString("A"));
    EXPECT_TRUE(CTavrinString().IsEmpty());
}

TEST(StringText, SearchAndEdit)
{
    CTavrinString text("  Hello World  ");
    text.Trim();
    EXPECT_EQ(text, CTavrinString("Hello World"));
    EXPECT_EQ(text.Find("World"), 6);
    EXPECT_EQ(text.Find("world"), -1);
    EXPECT_TRUE(text.Contains("lo W"));
    text.ToLower();
    EXPECT_EQ(text, CTavrinString("hello world"));
    text.Replace("o", "00");
    EXPECT_EQ(text, CTavrinString("hell00 w00rld"));
    text.ReplaceCh(L'0', L'o');
    EXPECT_EQ(text.FirstCh(), L'h');
    EXPECT_EQ(text.LastCh(), L'd');
    EXPECT_EQ(text[4], L'o');

    CTavrinString before("key=value=x");
    before.TruncateAfter(L'=');
    EXPECT_EQ(before, CTavrinString("key"));
    CTavrinString after("key=value=x");
    after.TruncateBefore(L'=');
    EXPECT_EQ(after, CTavrinString("x"));
}
