#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ScopedEnvironment.h"
#include "utilities/TavrinPlatform.h"

using namespace Tavrin;

namespace {
struct PublicFolder : ::testing::Test {
    ScopedEnvironment environment;
    std::string home;

    void SetUp() override
    {
        ASSERT_FALSE(environment.scratch.empty());
        home = environment.scratch + "/home";
        std::filesystem::create_directories(home);
        environment.Set("HOME", home);
        const std::string config = environment.scratch + "/config";
        std::filesystem::create_directories(config);
        environment.Set("XDG_CONFIG_HOME", config);
        std::ofstream(config + "/user-dirs.dirs") << "# written by xdg-user-dirs-update\n"
                                                  << "XDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                                                  << "XDG_PUBLICSHARE_DIR=\"$HOME/Shared\"\n";
        environment.Set("TAVRIN_TEMP_DIR", environment.scratch + "/temp/");
    }
};
} // namespace

TEST_F(PublicFolder, XdgPublicShareFolderComesFirst)
{
    std::filesystem::create_directories(home + "/Shared");
    std::filesystem::create_directories(home + "/Public");
    EXPECT_EQ(GetPublicFolder(), CTavrinString(home + "/Shared"));
}

TEST_F(PublicFolder, HomePublicWhenTheXdgFolderIsMissing)
{
    std::filesystem::create_directories(home + "/Public");
    EXPECT_EQ(GetPublicFolder(), CTavrinString(home + "/Public"));
}

TEST_F(PublicFolder, TemporaryFolderWithoutItsFinalSeparatorAsLastResort)
{
    EXPECT_EQ(GetPublicFolder(), CTavrinString(environment.scratch + "/temp"));
}

TEST(Environment, DefinedEmptyAndMissingVariables)
{
    ScopedEnvironment environment;
    environment.Set("TAVRIN_TEST_VALUE", "");
    environment.Unset("TAVRIN_TEST_MISSING");
    CTavrinString value("unchanged");
    EXPECT_TRUE(ReadEnvironmentVariable("TAVRIN_TEST_VALUE", value));
    EXPECT_TRUE(value.IsEmpty());
    CTavrinString missing("unchanged");
    EXPECT_FALSE(ReadEnvironmentVariable("TAVRIN_TEST_MISSING", missing));
    EXPECT_EQ(missing, CTavrinString("unchanged"));
}
