#include <gtest/gtest.h>

#include <filesystem>

#include "../utilities/ScopedEnvironment.h"
#include "ScratchFolder.h"
#include "TestZip.h"
#include "host/CTavrinUUID.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

using namespace Tavrin;

namespace {

// The shared public folder and the temporary folder both point into the
// test's scratch folder: home/Public and temp/.
struct TemporaryFiles : ::testing::Test {
    ScopedEnvironment environment;
    ScratchFolder scratch;
    CTavrinUSDReaderHandler handler;

    void SetUp() override
    {
        ASSERT_FALSE(scratch.path.empty());
        std::filesystem::create_directories(scratch / "home/Public");
        environment.Set("HOME", scratch / "home");
        environment.Set("XDG_CONFIG_HOME", scratch / "config");
        environment.Set("TAVRIN_TEMP_DIR", scratch / "temp/");
    }
};

} // namespace

// Where a copy is needed, its name is fixed but its extension is the
// source's: that is what tells USD how to read it.
TEST_F(TemporaryFiles, NonAsciiSourceIsCopiedToTheFixedNameWithItsOwnExtension)
{
    const std::string source = scratch / "mod\xC3\xA8les/arbre \xE6\x9C\xA8.usda";
    WriteFile(source, "#usda 1.0\n");
    EXPECT_EQ(handler.MakeTemporaryCopy(Text(source)), scratch / "home/Public/TempUSDZ.usda");
    EXPECT_EQ(ReadFile(scratch / "home/Public/TempUSDZ.usda"), "#usda 1.0\n");

    const std::string other = scratch / "\xC3\xA9t\xC3\xA9.usdc";
    WriteFile(other, "PXR-USDC");
    EXPECT_EQ(handler.MakeTemporaryCopy(Text(other)), scratch / "home/Public/TempUSDZ.usdc");
    EXPECT_EQ(ReadFile(scratch / "home/Public/TempUSDZ.usdc"), "PXR-USDC");
}

TEST_F(TemporaryFiles, PackageUnpacksIntoAFreshUuidFolderUnderTheTemporaryFolder)
{
    ASSERT_TRUE(WriteTestZip(scratch / "scene.usdz", {{"scene.usdc", "PXR-USDC", false}, {"textures/wood.png", "wood"}}));
    handler.UnpackToTemporaryFolder(Text(scratch / "scene.usdz"));
    const CTavrinString first = handler.unpackFolder;

    const std::string prefix = scratch / "temp/";
    const std::string folder = first.toStdString();
    ASSERT_EQ(folder.compare(0, prefix.size(), prefix), 0) << folder;
    ASSERT_EQ(folder.back(), '/');
    const std::string name = folder.substr(prefix.size(), folder.size() - prefix.size() - 1);
    EXPECT_TRUE(CTavrinUUID(Text(name)).IsValid()) << name;
    EXPECT_EQ(ReadFile(folder + "scene.usdc"), "PXR-USDC");
    EXPECT_EQ(ReadFile(folder + "textures/wood.png"), "wood");

    handler.UnpackToTemporaryFolder(Text(scratch / "scene.usdz"));
    EXPECT_NE(handler.unpackFolder, first);
    EXPECT_EQ(ReadFile(handler.unpackFolder.toStdString() + "textures/wood.png"), "wood");
}

TEST_F(TemporaryFiles, PlainLayerStoresTheFolderNameButMakesNoFolder)
{
    WriteFile(scratch / "scene.usda", "#usda 1.0\n");
    handler.UnpackToTemporaryFolder(Text(scratch / "scene.usda"));
    EXPECT_EQ(handler.unpackFolder.toStdString().rfind(scratch / "temp/", 0), 0u);
    EXPECT_EQ(handler.unpackFolder.LastCh(), L'/');
    EXPECT_FALSE(std::filesystem::exists(handler.unpackFolder.toStdString()));
}

TEST_F(TemporaryFiles, TemporaryFolderWithoutFinalSeparatorIsUsedAsGiven)
{
    environment.Set("TAVRIN_TEMP_DIR", scratch / "tmp");
    handler.UnpackToTemporaryFolder(Text(scratch / "missing.usdz"));
    const std::string folder = handler.unpackFolder.toStdString();
    ASSERT_EQ(folder.rfind(scratch / "tmp", 0), 0u);
    EXPECT_TRUE(CTavrinUUID(Text(folder.substr(scratch.path.size() + 4, 36))).IsValid()) << folder;
}
