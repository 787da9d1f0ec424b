#include "usdcore/sdf/usdz/package.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <fstream>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

std::string CorpusPath(const std::string& relative)
{
    return std::string(TAVRIN_CORPUS_DIR) + "/" + relative;
}

#define SKIP_WITHOUT(path)                                                    \
    if (!std::ifstream(path)) GTEST_SKIP() << "corpus file absent: " << path

} // namespace

TEST(CorpusUsdz, FirstFileNotUsdIsNotAUsdPackage)
{
    const std::string path = CorpusPath(
        "PixarAnimationStudios_OpenUSD/pxr/usd/usd/testenv/testUsdUsdzFileFormat/first_file_not_usd.usdz");
    SKIP_WITHOUT(path);
    TfDiagnosticCapture capture;
    EXPECT_FALSE(SdfUsdzPackage::Open(path));
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE, "first file 'b.png' is not a USD layer"));
}

TEST(CorpusUsdz, CrateRootAndTextures)
{
    const std::string path = CorpusPath("usd-wg_assets/test_assets/USDZ/AnimatedCube/AnimatedCube.usdz");
    SKIP_WITHOUT(path);
    auto package = SdfUsdzPackage::Open(path);
    ASSERT_TRUE(package);
    EXPECT_EQ(package->GetRootLayerPath(), "AnimatedCube.imported.usdc");
    std::string_view bytes;
    ASSERT_TRUE(package->GetEntryBytes(package->GetRootLayerPath(), &bytes));
    EXPECT_EQ(bytes.substr(0, 8), "PXR-USDC");
    EXPECT_EQ(bytes.size(), 4118u); // as listed by `unzip -l`
    ASSERT_TRUE(package->GetEntryBytes("0/AnimatedCube_MetallicRoughness.png", &bytes));
    EXPECT_EQ(bytes.size(), 319u);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
}

TEST(CorpusUsdz, NestedPackagesFromUsdUtils)
{
    const std::string path = CorpusPath(
        "PixarAnimationStudios_OpenUSD/pxr/usd/usdUtils/testenv/testUsdUtilsCreateNewUsdzPackage/"
        "nestedUsdz/combined.usdz");
    SKIP_WITHOUT(path);
    auto package = SdfUsdzPackage::Open(path);
    ASSERT_TRUE(package);
    EXPECT_EQ(package->GetRootLayerPath(), "combined.usdz_FILES/combined.usda");
    auto inner = SdfUsdzPackage::Open(
        ArJoinPackageRelativePath(path, "combined.usdz_FILES/simpleMaterial.usdz"));
    ASSERT_TRUE(inner);
    EXPECT_FALSE(inner->GetRootLayerPath().empty());
}

TEST(CorpusUsdz, EveryCorpusPackageOpens)
{
    const char* packages[] = {
        "usd-wg_assets/test_assets/USDZ/AnimatedTriangle/AnimatedTriangle.usdz",
        "usd-wg_assets/test_assets/USDZ/InterpolationTest/InterpolationTest.usdz",
        "usd-wg_assets/test_assets/USDZ/RiggedSimple/RiggedSimple.usdz",
        "usd-wg_assets/test_assets/RoughnessTest/RoughnessTest.usdz",
        "lighttransport_tinyusdz/models/texture-cat-plane.usdz",
        "lighttransport_tinyusdz/models/cube.usdz",
        "PixarAnimationStudios_OpenUSD/pxr/usd/bin/usdchecker/testenv/testUsdChecker/clean/clean_arkit.usdz",
    };
    for (const char* relative : packages) {
        const std::string path = CorpusPath(relative);
        if (!std::ifstream(path)) continue;
        auto package = SdfUsdzPackage::Open(path);
        ASSERT_TRUE(package) << relative;
        std::string_view bytes;
        ASSERT_TRUE(package->GetEntryBytes(package->GetRootLayerPath(), &bytes)) << relative;
        EXPECT_EQ(bytes.substr(0, 8), "PXR-USDC") << relative;
    }
}
