#include "testFiles.h"
#include "zipWriter.h"

#include "usdcore/sdf/usdz/package.h"
#include "usdcore/sdf/usdz/packageUtils.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <cstdio>

PXR_NAMESPACE_USING_DIRECTIVE
using usdztest::ZipBuilder;

namespace {

class NestedPackage : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const std::string inner =
            ZipBuilder::Build({{"inner.usda", "#usda 1.0\n(inner)\n"}, {"tex.png", "pixels"}});
        const std::string outer = ZipBuilder::Build({{"outer.usda", "#usda 1.0\n(outer)\n"},
                                                     {"sub/inner.usdz", inner},
                                                     {"notes.txt", "hello"}});
        path = usdztest::WriteTempFile(
            ::testing::UnitTest::GetInstance()->current_test_info()->name() + std::string(".usdz"),
            outer);
    }
    void TearDown() override { std::remove(path.c_str()); }

    std::string path;
};

} // namespace

TEST_F(NestedPackage, OpensFromAFile)
{
    auto package = SdfUsdzPackage::Open(path);
    ASSERT_TRUE(package);
    EXPECT_EQ(package->GetIdentifier(), path);
    EXPECT_EQ(package->GetRootLayerPath(), "outer.usda");
    // Opening again while it is alive shares the index.
    EXPECT_EQ(SdfUsdzPackage::Open(path), package);
}

TEST_F(NestedPackage, InnerPackageOpensFromItsParentsBytes)
{
    const std::string innerPath = ArJoinPackageRelativePath(path, "sub/inner.usdz");
    auto inner = SdfUsdzPackage::Open(innerPath);
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->GetIdentifier(), innerPath);
    EXPECT_EQ(inner->GetRootLayerPath(), "inner.usda");
}

TEST_F(NestedPackage, ReadsAssetsAtAnyDepth)
{
    std::shared_ptr<const SdfUsdzPackage> package;
    std::string_view bytes;
    ASSERT_TRUE(SdfUsdzReadPackagedAsset(path + "[notes.txt]", &package, &bytes));
    EXPECT_EQ(bytes, "hello");
    ASSERT_TRUE(SdfUsdzReadPackagedAsset(path + "[sub/inner.usdz[tex.png]]", &package, &bytes));
    EXPECT_EQ(bytes, "pixels");
    EXPECT_EQ(package->GetRootLayerPath(), "inner.usda");
}

TEST_F(NestedPackage, MissingPiecesFailWithDiagnostics)
{
    TfDiagnosticCapture capture;
    std::shared_ptr<const SdfUsdzPackage> package;
    std::string_view bytes;
    EXPECT_FALSE(SdfUsdzReadPackagedAsset(path + "[sub/missing.usdz[x.usda]]", &package, &bytes));
    EXPECT_TRUE(capture.Contains("No file 'sub/missing.usdz'"));
    EXPECT_FALSE(SdfUsdzReadPackagedAsset(path, &package, &bytes));
    EXPECT_TRUE(capture.Contains("does not name a file inside a package"));
    // A text file is not a package.
    EXPECT_FALSE(SdfUsdzPackage::Open(path + "[notes.txt]"));
    EXPECT_TRUE(capture.Contains("not a zip archive"));
    EXPECT_FALSE(SdfUsdzPackage::Open("/nonexistent/scene.usdz"));
    EXPECT_TRUE(capture.Contains("Cannot open usdz package"));
    EXPECT_FALSE(package);
}

TEST(NestedPackageDepth, SelfContainingChainsStopAtTheNestingLimit)
{
    // Packages nested ten deep: each level holds the next as "n.usdz".
    std::string zip = ZipBuilder::Build({{"leaf.usda", "#usda 1.0\n"}});
    for (int level = 0; level < 10; ++level) {
        zip = ZipBuilder::Build({{"l.usda", "#usda 1.0\n"}, {"n.usdz", zip}});
    }
    const std::string path = usdztest::WriteTempFile("deep.usdz", zip);
    std::string nested = path;
    for (int level = 0; level < 10; ++level) nested = ArJoinPackageRelativePath(nested, "n.usdz");
    TfDiagnosticCapture capture;
    EXPECT_FALSE(SdfUsdzPackage::Open(nested));
    EXPECT_TRUE(capture.Contains("nest deeper than 8 levels"));
    std::remove(path.c_str());
}
