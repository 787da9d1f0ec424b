#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "ScratchFolder.h"
#include "TestZip.h"
#include "usdcore/tf/diagnostic.h"
#include "usdreader/CTavrinUnzipper.h"

using namespace Tavrin;
PXR_NAMESPACE_USING_DIRECTIVE

namespace {

// The archive sits in the scratch folder and is unpacked two levels down,
// so that an entry climbing out would show up as a file elsewhere in it.
struct Unzip : ::testing::Test {
    ScratchFolder scratch;
    std::string archive;
    std::string unpack;

    void SetUp() override
    {
        ASSERT_FALSE(scratch.path.empty());
        archive = scratch / "package.usdz";
        unpack = scratch / "deep/unpack";
    }
    bool Extract() { return CTavrinUnzipper().ExtractAll(Text(archive), Text(unpack)); }
    bool ExtractBytes(const std::string& bytes)
    {
        WriteFile(archive, bytes);
        return Extract();
    }
    // Everything in the scratch folder outside the archive itself, relative
    // to the unpack folder.
    std::set<std::string> Written() const
    {
        std::set<std::string> written;
        for (const std::string& file : scratch.Files()) {
            if (file == "package.usdz")
                continue;
            written.insert(file.rfind("deep/unpack/", 0) == 0 ? file.substr(12) : "OUTSIDE:" + file);
        }
        return written;
    }
};

} // namespace

TEST_F(Unzip, PackageEntriesLandUnderTheFolderWithTheirSubfolders)
{
    const std::string texture = NoisyBytes(100000);
    ASSERT_TRUE(WriteTestZip(archive, {{"scene.usdc", "PXR-USDC", false}, {"textures/wood.png", texture}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"scene.usdc", "textures/wood.png"}));
    EXPECT_EQ(ReadFile(unpack + "/scene.usdc"), "PXR-USDC");
    EXPECT_EQ(ReadFile(unpack + "/textures/wood.png"), texture);
}

TEST_F(Unzip, FolderGivenWithBackslashesAndAFinalSeparator)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"a.txt", "a"}}));
    EXPECT_TRUE(CTavrinUnzipper().ExtractAll(Text(archive), Text(scratch.path + "\\deep\\unpack\\")));
    EXPECT_EQ(Written(), (std::set<std::string>{"a.txt"}));
}

TEST_F(Unzip, DrivePrefixAndLeadingBackslashAreDropped)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"C:\\evil\\x.png", "x"}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"evil/x.png"}));
}

TEST_F(Unzip, NamesLeavingTheFolderAreSkipped)
{
    const std::string absolute = scratch / "absolute.txt";
    ASSERT_TRUE(WriteTestZip(archive, {{"../up.txt", "x"},
                                       {"a/../../up2.txt", "x"},
                                       {"..\\up3.txt", "x"},
                                       {"a\\..\\..\\..\\up4.txt", "x"},
                                       {"C:..\\up5.txt", "x"},
                                       {absolute, "x"},
                                       {"\\\\server\\share\\x.txt", "x"},
                                       {"kept/../inside.txt", "inside"},
                                       {"good.txt", "good"}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"good.txt", "inside.txt"}));
    EXPECT_EQ(ReadFile(unpack + "/inside.txt"), "inside");
}

TEST_F(Unzip, BackslashesInNamesSeparateFolders)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"textures\\stone.png", "s"}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"textures/stone.png"}));
}

TEST_F(Unzip, FolderEntriesMakeFoldersAndEmptyNamesNothing)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"empty/", ""}, {"", "nameless"}, {"./", ""}, {"full/in.txt", "in"}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"full/in.txt"}));
    EXPECT_TRUE(std::filesystem::is_directory(unpack + "/empty"));
}

TEST_F(Unzip, LaterDuplicateOverwritesAndAFileBlockingAFolderIsSkipped)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"same.txt", "first, longer"},
                                       {"same.txt", "second"},
                                       {"blocker", "file"},
                                       {"blocker/under.txt", "x"},
                                       {"after.txt", "after"}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"same.txt", "blocker", "after.txt"}));
    EXPECT_EQ(ReadFile(unpack + "/same.txt"), "second");
}

TEST_F(Unzip, Utf8NamesWithAndWithoutTheFlag)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"bois_\xC3\xA9.png", "f", true, 0x800}, {"ch\xC3\xAAne.png", "n"}}));
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"bois_\xC3\xA9.png", "ch\xC3\xAAne.png"}));
}

TEST_F(Unzip, NotAnArchiveExtractsNothingAndMakesNoFolder)
{
    EXPECT_FALSE(ExtractBytes("#usda 1.0\n(\n    upAxis = \"Y\"\n)\n"));
    EXPECT_FALSE(std::filesystem::exists(unpack));
    EXPECT_FALSE(ExtractBytes(""));
    EXPECT_FALSE(std::filesystem::exists(unpack));
    EXPECT_FALSE(CTavrinUnzipper().ExtractAll(Text(scratch / "missing.usdz"), Text(unpack)));
    EXPECT_FALSE(std::filesystem::exists(unpack));
}

TEST_F(Unzip, EmptyArchiveExtractsNothingAndMakesNoFolder)
{
    ASSERT_TRUE(WriteTestZip(archive, {}));
    Extract();
    EXPECT_TRUE(Written().empty());
    EXPECT_FALSE(std::filesystem::exists(unpack));
}

TEST_F(Unzip, HugeDeclaredSizesStopAtTheRealData)
{
    const std::string data = NoisyBytes(40000);
    ASSERT_TRUE(WriteTestZip(archive, {{"big.bin", data}}));
    std::string bytes = ReadFile(archive);
    // Uncompressed size: local header +22, central header +24.
    for (size_t at : FindRecords(bytes, LocalHeaderSignature))
        PutU32(bytes, at + 22, 0xFFFFFFF0u);
    for (size_t at : FindRecords(bytes, CentralHeaderSignature))
        PutU32(bytes, at + 24, 0xFFFFFFF0u);
    ExtractBytes(bytes);
    EXPECT_EQ(Written(), (std::set<std::string>{"big.bin"}));
    EXPECT_EQ(ReadFile(unpack + "/big.bin"), data);
}

TEST_F(Unzip, HugeDeclaredStoredSizeReadsNoFurtherThanTheArchive)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"stored.bin", "0123456789", false}}));
    std::string bytes = ReadFile(archive);
    // Compressed size: local header +18, central header +20.
    for (size_t at : FindRecords(bytes, LocalHeaderSignature))
        PutU32(bytes, at + 18, 0xFFFFFFF0u);
    for (size_t at : FindRecords(bytes, CentralHeaderSignature))
        PutU32(bytes, at + 20, 0xFFFFFFF0u);
    ExtractBytes(bytes);
    for (const std::string& file : Written())
        EXPECT_LE(std::filesystem::file_size(unpack + "/" + file), bytes.size()) << file;
}

// Small limits, so that each bound shows on entries of a few kilobytes.
CTavrinUnpackLimits SmallLimits(std::uint64_t totalBytes, std::uint64_t entryCount)
{
    CTavrinUnpackLimits limits;
    limits.totalBytes = totalBytes;
    limits.entryCount = entryCount;
    limits.expansionRatio = 10;
    limits.smallEntryBytes = 1000;
    return limits;
}

TEST_F(Unzip, EachBoundSkipsWhatPassesItAndKeepsTheRest)
{
    struct Case {
        const char* name;
        std::vector<TestZipEntry> entries;
        CTavrinUnpackLimits limits;
        std::set<std::string> written;
        const char* warning;
    };
    const std::string noisy = NoisyBytes(6000);
    const Case cases[] = {
        // Zeros deflate a thousandfold: that entry goes, its neighbours stay.
        {"expansion", {{"scene.usda", "#usda 1.0\n"}, {"zeros.bin", std::string(100000, '\0')}, {"wood.png", noisy}},
         SmallLimits(1 << 20, 100), {"scene.usda", "wood.png"}, "expands more than 10 times"},
        // Small entries are never held to the ratio.
        {"small entry", {{"spaces.usda", std::string(900, ' ')}}, SmallLimits(1 << 20, 100), {"spaces.usda"}, nullptr},
        // The entry that would pass the total goes, and everything after it.
        {"total", {{"a.bin", noisy, false}, {"b.bin", noisy, false}, {"c.bin", "c", false}}, SmallLimits(10000, 100),
         {"a.bin"}, "more than 10000 bytes in all"},
        {"entry count", {{"a.txt", "a"}, {"b.txt", "b"}, {"c.txt", "c"}}, SmallLimits(1 << 20, 2), {"a.txt", "b.txt"},
         "more than 2 entries"},
    };
    for (const Case& c : cases) {
        std::filesystem::remove_all(scratch.path);
        std::filesystem::create_directories(scratch.path);
        ASSERT_TRUE(WriteTestZip(archive, c.entries)) << c.name;
        TfDiagnosticCapture capture;
        EXPECT_TRUE(CTavrinUnzipper().ExtractAll(Text(archive), Text(unpack), c.limits)) << c.name;
        EXPECT_EQ(Written(), c.written) << c.name;
        if (c.warning)
            EXPECT_TRUE(capture.Contains(c.warning)) << c.name;
        else
            EXPECT_TRUE(capture.GetDiagnostics().empty()) << c.name;
    }
}

// A package of a few kilobytes holding 64 MiB of zeros: the default limits
// stop the entry after a few megabytes and remove what it wrote.
TEST_F(Unzip, ADeflatedBombWritesLittleAndLeavesNothing)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"scene.usda", "#usda 1.0\n"}, {"bomb.bin", std::string(64 << 20, '\0')}}));
    ASSERT_LT(std::filesystem::file_size(archive), 1u << 20);
    TfDiagnosticCapture capture;
    EXPECT_TRUE(Extract());
    EXPECT_EQ(Written(), (std::set<std::string>{"scene.usda"}));
    EXPECT_TRUE(capture.Contains("bomb.bin"));
}

// Every truncation and every flipped byte of a small package: whatever
// minizip makes of it, nothing lands outside the folder and nothing crashes.
TEST_F(Unzip, TruncatedAndCorruptArchivesStayInsideTheFolder)
{
    ASSERT_TRUE(WriteTestZip(archive, {{"a/b.txt", "hello hello hello"}, {"c.bin", "stored", false}}));
    const std::string original = ReadFile(archive);
    for (size_t length = 0; length < original.size(); ++length) {
        ExtractBytes(original.substr(0, length));
        for (const std::string& file : Written())
            ASSERT_EQ(file.find("OUTSIDE:"), std::string::npos) << "truncated at " << length;
    }
    for (size_t at = 0; at < original.size(); ++at) {
        std::string flipped = original;
        flipped[at] = char(flipped[at] ^ 0xFF);
        ExtractBytes(flipped);
        for (const std::string& file : Written())
            ASSERT_EQ(file.find("OUTSIDE:"), std::string::npos) << "flipped at " << at;
    }
}
