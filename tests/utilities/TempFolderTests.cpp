#include <gtest/gtest.h>

#include <filesystem>

#include "ScopedEnvironment.h"
#include "utilities/TavrinTempFolder.h"

using namespace Tavrin;

TEST(TempFolder, WithoutTheVariableItIsTheSystemFolderWithAFinalSeparator)
{
    ScopedEnvironment environment;
    ASSERT_FALSE(environment.scratch.empty());
    environment.Unset("TAVRIN_TEMP_DIR");
    const std::string system = environment.scratch + "/not/yet";
    environment.Set("TMPDIR", system);

    EXPECT_EQ(GetTempFolder(), CTavrinString(system + "/"));
    // A missing folder is made, parents included.
    EXPECT_TRUE(std::filesystem::is_directory(system));
}

TEST(TempFolder, TheVariableIsReturnedUnchanged)
{
    ScopedEnvironment environment;
    const std::string configured = environment.scratch + "/elsewhere";
    environment.Set("TAVRIN_TEMP_DIR", configured);
    EXPECT_EQ(GetTempFolder(), CTavrinString(configured));
    // Nothing is created for a configured folder.
    EXPECT_FALSE(std::filesystem::exists(configured));
}

TEST(TempFolder, AnEmptyVariableGivesAnEmptyFolder)
{
    ScopedEnvironment environment;
    environment.Set("TAVRIN_TEMP_DIR", "");
    EXPECT_TRUE(GetTempFolder().IsEmpty());
}

TEST(TempFolder, TheVariableIsReadAsUtf8)
{
    ScopedEnvironment environment;
    environment.Set("TAVRIN_TEMP_DIR", "/tmp/H\xc3\xa4user");
    EXPECT_EQ(GetTempFolder(), CTavrinString(L"/tmp/H\u00e4user"));
}
