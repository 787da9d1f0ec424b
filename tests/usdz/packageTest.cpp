#include "zipWriter.h"

#include "usdcore/sdf/usdz/package.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE
using usdztest::ZipBuilder;
using usdztest::ZipFile;
using usdztest::ZipOptions;

namespace {

const std::string kLayer = "#usda 1.0\ndef Xform \"World\" {}\n";
const std::string kTexture = std::string("\x89PNG\r\n\x1a\n", 8) + std::string(100, '\7');

// The package views its bytes; the owner handed to it keeps them alive.
std::shared_ptr<const SdfUsdzPackage> OpenBytes(const std::string& bytes)
{
    auto owner = std::make_shared<const std::string>(bytes);
    return SdfUsdzPackage::OpenFromBytes(*owner, "test.usdz", owner);
}

std::string EntryText(const SdfUsdzPackage& package, const std::string& path)
{
    std::string_view bytes;
    return package.GetEntryBytes(path, &bytes) ? std::string(bytes) : "<missing>";
}

} // namespace

TEST(UsdzPackage, StoredEntriesAreViewsIntoTheArchive)
{
    const std::string zip = ZipBuilder::Build({{"scene.usda", kLayer}, {"tex/albedo.png", kTexture}});
    auto package = SdfUsdzPackage::OpenFromBytes(zip, "test.usdz", nullptr);
    ASSERT_TRUE(package);
    EXPECT_EQ(package->GetRootLayerPath(), "scene.usda");
    ASSERT_EQ(package->GetEntries().size(), 2u);

    std::string_view bytes;
    ASSERT_TRUE(package->GetEntryBytes("tex/albedo.png", &bytes));
    EXPECT_EQ(bytes, kTexture);
    // In place: the view points into the archive, 64-byte aligned as written.
    EXPECT_GE(bytes.data(), zip.data());
    EXPECT_LT(bytes.data(), zip.data() + zip.size());
    EXPECT_EQ((bytes.data() - zip.data()) % 64, 0);
    EXPECT_EQ(EntryText(*package, "scene.usda"), kLayer);
    EXPECT_EQ(package->GetIdentifier(), "test.usdz");
}

TEST(UsdzPackage, LookupIgnoresALeadingDotSlashOnly)
{
    auto package = OpenBytes(ZipBuilder::Build({{"scene.usdc", "PXR-USDC"}, {"a/b.png", "png"}}));
    ASSERT_TRUE(package);
    EXPECT_NE(package->FindEntry("./a/b.png"), nullptr);
    EXPECT_EQ(package->FindEntry("a/b.png")->size, 3u);
    EXPECT_EQ(package->FindEntry("A/b.png"), nullptr);
    EXPECT_EQ(package->FindEntry("b.png"), nullptr);

    TfDiagnosticCapture capture;
    std::string_view bytes;
    EXPECT_FALSE(package->GetEntryBytes("missing.png", &bytes));
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE, "No file 'missing.png'"));
}

TEST(UsdzPackage, RootIsTheFirstFileInTheArchiveNotInTheDirectory)
{
    ZipOptions options;
    options.directoryOrder = {1, 0}; // directory lists the texture first
    auto package = OpenBytes(ZipBuilder::Build({{"root.usd", "#usda 1.0\n"}, {"t.png", "x"}}, options));
    ASSERT_TRUE(package);
    EXPECT_EQ(package->GetRootLayerPath(), "root.usd");
    EXPECT_EQ(package->GetEntries()[0].path, "t.png");
}

TEST(UsdzPackage, FirstFileMustBeAUsdLayer)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(OpenBytes(ZipBuilder::Build({{"b.png", kTexture}, {"test.usda", kLayer}})));
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE, "first file 'b.png' is not a USD layer"));
    // Extensions compare without case.
    EXPECT_TRUE(OpenBytes(ZipBuilder::Build({{"Scene.USDA", kLayer}})));
}

TEST(UsdzPackage, CompressedOrEncryptedFilesCannotBeRead)
{
    TfDiagnosticCapture capture;
    auto package = OpenBytes(ZipBuilder::Build({{"scene.usda", kLayer},
                                                {"deflated.png", "zz", 8, 0},
                                                {"secret.png", "ss", 0, 1}}));
    ASSERT_TRUE(package);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "2 compressed or encrypted"));
    std::string_view bytes;
    EXPECT_FALSE(package->GetEntryBytes("deflated.png", &bytes));
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_RUNTIME_ERROR_TYPE, "'deflated.png' in usdz package 'test.usdz' is compressed"));
    EXPECT_FALSE(package->GetEntryBytes("secret.png", &bytes));
    EXPECT_TRUE(capture.Contains("is encrypted"));
    EXPECT_FALSE(package->FindEntry("deflated.png")->IsStored());
}

TEST(UsdzPackage, CompressedRootLayerFailsTheOpen)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(OpenBytes(ZipBuilder::Build({{"scene.usda", kLayer, 8, 0}})));
    EXPECT_TRUE(capture.Contains("root layer 'scene.usda' is compressed"));
}

TEST(UsdzPackage, Zip64RecordsAndExtraFields)
{
    ZipOptions options;
    options.zip64 = true;
    auto package = OpenBytes(ZipBuilder::Build({{"scene.usdc", "PXR-USDC"}, {"tex.png", kTexture}}, options));
    ASSERT_TRUE(package);
    EXPECT_EQ(EntryText(*package, "tex.png"), kTexture);
    EXPECT_EQ(package->FindEntry("tex.png")->size, kTexture.size());
    EXPECT_EQ(package->GetRootLayerPath(), "scene.usdc");
}

TEST(UsdzPackage, ArchiveCommentAndUnalignedData)
{
    ZipOptions options;
    options.alignment = 1;
    // A signature inside the comment is not the end record: the comment
    // length it would give (0x7878) does not fit in the file.
    options.comment = std::string("PK\x05\x06") + std::string(40, 'x');
    auto package = OpenBytes(ZipBuilder::Build({{"a.usda", kLayer}, {"b.txt", "bee"}}, options));
    ASSERT_TRUE(package);
    EXPECT_EQ(EntryText(*package, "b.txt"), "bee");
}

TEST(UsdzPackage, HostileNamesAreOnlyLookupKeys)
{
    auto package = OpenBytes(ZipBuilder::Build(
        {{"scene.usda", kLayer}, {"../../escape.usda", "up"}, {"/etc/abs.png", "abs"}}));
    ASSERT_TRUE(package);
    EXPECT_EQ(EntryText(*package, "../../escape.usda"), "up");
    EXPECT_EQ(EntryText(*package, "/etc/abs.png"), "abs");
}

TEST(UsdzPackage, DuplicateNamesKeepTheFirst)
{
    TfDiagnosticCapture capture;
    auto package = OpenBytes(ZipBuilder::Build({{"scene.usda", kLayer}, {"t.png", "one"}, {"t.png", "two"}}));
    ASSERT_TRUE(package);
    EXPECT_EQ(EntryText(*package, "t.png"), "one");
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "'t.png' more than once"));
}

TEST(UsdzPackage, EmptyEntryHasAnEmptySpan)
{
    auto package = OpenBytes(ZipBuilder::Build({{"scene.usda", kLayer}, {"empty.txt", ""}}));
    ASSERT_TRUE(package);
    std::string_view bytes("not empty");
    ASSERT_TRUE(package->GetEntryBytes("empty.txt", &bytes));
    EXPECT_TRUE(bytes.empty());
}
