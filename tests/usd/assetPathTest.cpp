// Asset-valued attributes come out resolved against the layer whose opinion
// gave the value, wherever composition found that layer.

#include "usdTestUtils.h"

#include "../usdz/zipWriter.h"
#include "usdcore/sdf/assetPath.h"
#include "usdcore/vt/array.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace usdtest;

namespace {

namespace fs = std::filesystem;

// A scene folder of its own per test: scene/root.usda, with a sublayer and
// a reference in other folders, and a package beside it.
class AssetPathResolution : public ::testing::Test
{
protected:
    void SetUp() override
    {
        char pattern[] = "/tmp/tavrin-asset-paths-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        folder = pattern;
        Write("scene/root.usda", R"(#usda 1.0
(
    subLayers = [@../looks/strong.usda@]
)
def "Near" {
    asset beside = @./textures/wood.png@
    asset searchStyle = @textures/wood.png@
    asset missing = @./textures/none.png@
    asset absolute = @)" + folder + R"(/elsewhere/abs.png@
    asset sampled.timeSamples = { 1: @./textures/wood.png@, 2: @./textures/none.png@ }
    asset[] several = [@./textures/wood.png@, @./textures/none.png@, @../looks/maps/rough.png@]
    asset inPackage = @pack.usdz[textures/wood.png]@
}
def "Referenced" (references = @../library/model.usda@</Model>) {}
def "Packaged" (references = @pack.usdz@) {}
)");
        Write("looks/strong.usda", R"(#usda 1.0
over "Near" {
    asset fromSublayer = @./maps/rough.png@
}
)");
        Write("library/model.usda", R"(#usda 1.0
def "Model" {
    asset fromReference = @./maps/rough.png@
}
)");
        Write("scene/textures/wood.png", "wood");
        Write("looks/maps/rough.png", "rough");
        Write("library/maps/rough.png", "rough");
        Write("elsewhere/abs.png", "abs");
        Write("scene/pack.usdz",
              usdztest::ZipBuilder::Build({{"inner/root.usda", R"(#usda 1.0
(
    defaultPrim = "Inner"
)
def "Inner" {
    asset besideInPackage = @./tex/t.png@
    asset escaping = @../../textures/wood.png@
}
)"},
                                           {"inner/tex/t.png", "t"},
                                           {"textures/wood.png", "wood"}}));
        stage = UsdStage::Open(folder + "/scene/root.usda");
        ASSERT_TRUE(stage);
    }
    void TearDown() override
    {
        stage = UsdStageRefPtr();
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    void Write(const std::string& name, const std::string& bytes)
    {
        const fs::path path = fs::path(folder) / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
    SdfAssetPath Get(const std::string& prim, const std::string& name, UsdTimeCode time = UsdTimeCode::Default())
    {
        SdfAssetPath value;
        EXPECT_TRUE(Attribute(stage, prim, name).Get(&value, time)) << prim << "." << name;
        return value;
    }

    std::string folder;
    UsdStageRefPtr stage;
};

} // namespace

TEST_F(AssetPathResolution, PathsResolveAgainstTheLayerThatAuthoredThem)
{
    const struct {
        const char* prim;
        const char* name;
        const char* authored;
        std::string resolved; // relative to the test's folder, empty when found nowhere
    } cases[] = {
        {"/Near", "beside", "./textures/wood.png", "/scene/textures/wood.png"},
        {"/Near", "searchStyle", "textures/wood.png", "/scene/textures/wood.png"},
        {"/Near", "missing", "./textures/none.png", ""},
        {"/Near", "absolute", nullptr, "/elsewhere/abs.png"},
        {"/Near", "fromSublayer", "./maps/rough.png", "/looks/maps/rough.png"},
        {"/Referenced", "fromReference", "./maps/rough.png", "/library/maps/rough.png"},
        {"/Near", "inPackage", "pack.usdz[textures/wood.png]", "/scene/pack.usdz[textures/wood.png]"},
        {"/Packaged", "besideInPackage", "./tex/t.png", "/scene/pack.usdz[inner/tex/t.png]"},
        // Anchoring never leaves a package, and the package has no such entry.
        {"/Packaged", "escaping", "../../textures/wood.png", ""},
    };
    for (const auto& c : cases) {
        const SdfAssetPath value = Get(c.prim, c.name);
        if (c.authored) {
            EXPECT_EQ(value.GetAssetPath(), c.authored) << c.name;
        }
        EXPECT_EQ(value.GetResolvedPath(), c.resolved.empty() ? "" : folder + c.resolved) << c.name;
    }
}

TEST_F(AssetPathResolution, SamplesAndArraysAreResolvedElementByElement)
{
    EXPECT_EQ(Get("/Near", "sampled", 1.0).GetResolvedPath(), folder + "/scene/textures/wood.png");
    EXPECT_EQ(Get("/Near", "sampled", 2.0).GetResolvedPath(), "");

    VtArray<SdfAssetPath> several;
    ASSERT_TRUE(Attribute(stage, "/Near", "several").Get(&several));
    ASSERT_EQ(several.size(), 3u);
    EXPECT_EQ(several[0].GetResolvedPath(), folder + "/scene/textures/wood.png");
    EXPECT_EQ(several[1].GetResolvedPath(), "");
    EXPECT_EQ(several[1].GetAssetPath(), "./textures/none.png");
    EXPECT_EQ(several[2].GetResolvedPath(), folder + "/looks/maps/rough.png");
}

TEST_F(AssetPathResolution, LookingForMissingAssetsPostsNothing)
{
    TfDiagnosticCapture capture;
    Get("/Near", "missing");
    Get("/Packaged", "escaping");
    EXPECT_TRUE(capture.GetDiagnostics().empty());
}
