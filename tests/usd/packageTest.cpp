// A stage opened from a .usdz package: arcs inside the package resolve
// relative to the packaged layer that wrote them.

#include "usdTestUtils.h"

#include "../usdz/zipWriter.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

using namespace usdtest;
using ::testing::ElementsAre;

namespace {

std::string WritePackage(const std::string& fileName)
{
    const std::string rootLayer = R"(#usda 1.0
(
    defaultPrim = "Root"
)
def "Root" (
    references = @./sub/part.usda@</Part>
)
{
}
)";
    const std::string part = R"(#usda 1.0
def "Part" (
    references = @./leaf.usda@</Leaf>
)
{
    double v = 8
}
)";
    const std::string leaf = R"(#usda 1.0
def "Leaf"
{
    double w = 9
}
)";
    const std::string bytes = usdztest::ZipBuilder::Build(
        {{"root.usda", rootLayer}, {"sub/part.usda", part}, {"sub/leaf.usda", leaf}});
    const std::string path = (std::filesystem::temp_directory_path() / fileName).string();
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

} // namespace

TEST(Package, ArcsResolveInsideThePackage)
{
    const std::string path = WritePackage("tavrin_usd_stage_test.usdz");
    {
        const UsdStageRefPtr stage = UsdStage::Open(path);
        ASSERT_TRUE(stage);
        EXPECT_THAT(PrimPaths(stage->Traverse()), ElementsAre("/Root"));
        EXPECT_EQ(DoubleAt(stage, "/Root", "v"), 8.0);
        EXPECT_EQ(DoubleAt(stage, "/Root", "w"), 9.0);
    }
    std::filesystem::remove(path);
}
