// SdfLayer: opening by extension and content, sharing open layers,
// reading packages, layer-level queries and export.

#include "usdcore/sdf/dataDiff.h"
#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace usdcore;

namespace {

std::string WriteTemp(const std::string& name, const std::string& contents)
{
    const std::filesystem::path path = std::filesystem::path(testing::TempDir()) / name;
    std::ofstream(path, std::ios::binary) << contents;
    return path.string();
}

const char kLayer[] = R"(#usda 1.0
(
    defaultPrim = "Root"
    subLayers = [@one.usda@, @two.usda@ (offset = 3)]
)
def "Root" { int x = 1 }
)";

} // namespace

TEST(SdfLayerOpen, TextByExtensionAndUsdByContent)
{
    for (const char* name : {"layer_a.usda", "layer_b.usd"}) {
        const SdfLayerRefPtr layer = SdfLayer::FindOrOpen(WriteTemp(name, kLayer));
        ASSERT_TRUE(layer) << name;
        EXPECT_EQ(layer->GetDefaultPrim(), TfToken("Root"));
        EXPECT_EQ(layer->GetField(SdfPath("/Root.x"), SdfFieldKeys->Default), VtValue(1));
        EXPECT_TRUE(layer->HasField(SdfPath("/Root"), SdfFieldKeys->Specifier));
    }
}

TEST(SdfLayerOpen, SublayerOffsetsOnePerSublayer)
{
    const SdfLayerRefPtr layer = SdfLayer::FindOrOpen(WriteTemp("sub.usda", kLayer));
    ASSERT_TRUE(layer);
    EXPECT_EQ(layer->GetSubLayerPaths(), (std::vector<std::string>{"one.usda", "two.usda"}));
    EXPECT_EQ(layer->GetSubLayerOffsets(), (std::vector<SdfLayerOffset>{SdfLayerOffset(), SdfLayerOffset(3)}));
}

TEST(SdfLayerOpen, OpenLayersAreSharedAndForgottenWhenReleased)
{
    const std::string path = WriteTemp("shared.usda", kLayer);
    SdfLayerRefPtr first = SdfLayer::FindOrOpen(path);
    const SdfLayerRefPtr second = SdfLayer::FindOrOpen(path);
    ASSERT_TRUE(first);
    EXPECT_EQ(first, second);
    EXPECT_EQ(SdfLayer::Find(path), first);
    EXPECT_EQ(first->GetRealPath(), std::filesystem::absolute(path).string());
}

TEST(SdfLayerOpen, FailuresGiveNullAndAnError)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(SdfLayer::FindOrOpen(WriteTemp("bad.usda", "#usda 1.0\ndef {")));
    EXPECT_FALSE(SdfLayer::FindOrOpen(WriteTemp("plain.txt", kLayer)));
    EXPECT_FALSE(SdfLayer::FindOrOpen(testing::TempDir() + "/does_not_exist.usda"));
    EXPECT_FALSE(SdfLayer::FindOrOpen(WriteTemp("fake.usdc", "PXR-USDC")));
    EXPECT_EQ(capture.GetErrorCount(), 4u);
}

TEST(SdfLayerExport, ExportedFileReopensEqual)
{
    const SdfLayerRefPtr layer = SdfLayer::FindOrOpen(WriteTemp("export_src.usda", kLayer));
    ASSERT_TRUE(layer);
    const std::string exported = testing::TempDir() + "/export_dst.usda";
    ASSERT_TRUE(layer->Export(exported));
    const SdfLayerRefPtr reopened = SdfLayer::FindOrOpen(exported);
    ASSERT_TRUE(reopened);
    std::string difference;
    EXPECT_TRUE(SdfDataEqual(layer->GetData(), reopened->GetData(), &difference)) << difference;
}

// Crate writers author fields at their fallbacks that text cannot spell:
// "custom = false" (only "custom" is a keyword), an attribute's "varying"
// and a relationship's "uniform" (each the default of its statement).
SdfData WithoutUnspellableFallbacks(const SdfData& data)
{
    struct Collector : SdfAbstractDataSpecVisitor {
        std::vector<SdfPath> paths;
        bool VisitSpec(const SdfAbstractData&, const SdfPath& path) override
        {
            paths.push_back(path);
            return true;
        }
        void Done(const SdfAbstractData&) override {}
    } collector;
    data.VisitSpecs(&collector);
    SdfData copy = data;
    for (const SdfPath& path : collector.paths) {
        bool custom = true;
        if (copy.Has(path, SdfFieldKeys->Custom, &custom) && !custom) {
            copy.Erase(path, SdfFieldKeys->Custom);
        }
        const SdfVariability fallback = copy.GetSpecType(path) == SdfSpecTypeRelationship
                                            ? SdfVariabilityUniform
                                            : SdfVariabilityVarying;
        SdfVariability variability = SdfVariabilityUniform;
        if (copy.Has(path, SdfFieldKeys->Variability, &variability) && variability == fallback) {
            copy.Erase(path, SdfFieldKeys->Variability);
        }
    }
    return copy;
}

TEST(SdfLayerOpen, CorpusPackagesAndCrateFilesOpen)
{
    const std::filesystem::path corpus = TAVRIN_CORPUS_DIR;
    const std::filesystem::path usdz = corpus / "usd-wg_assets/test_assets/USDZ/AnimatedTriangle/AnimatedTriangle.usdz";
    if (!std::filesystem::exists(usdz)) {
        GTEST_SKIP() << "no corpus package at " << usdz;
    }
    const SdfLayerRefPtr layer = SdfLayer::FindOrOpen(usdz.string());
    ASSERT_TRUE(layer);
    // The package's first layer is a crate layer with a pseudo-root and prims.
    EXPECT_EQ(layer->GetSpecType(SdfPath::AbsoluteRootPath()), SdfSpecTypePseudoRoot);
    EXPECT_TRUE(layer->HasField(SdfPath::AbsoluteRootPath(), SdfChildrenKeys->PrimChildren));
    // Its text form reads back as the very data the crate reader gave: both
    // readers name and type their fields alike.
    std::string text;
    ASSERT_TRUE(layer->ExportToString(&text));
    EXPECT_EQ(text.rfind("#usda 1.0\n", 0), 0u);
    const SdfLayerRefPtr fromText = SdfLayer::OpenFromString(text);
    ASSERT_TRUE(fromText);
    std::string difference;
    EXPECT_TRUE(SdfDataEqual(WithoutUnspellableFallbacks(layer->GetData()), fromText->GetData(), &difference))
        << difference;
}

TEST(SdfLayerOpen, EveryCrateLayerOfTheCorpusReadsBackFromItsText)
{
    const std::filesystem::path corpus = TAVRIN_CORPUS_DIR;
    if (!std::filesystem::is_directory(corpus)) {
        GTEST_SKIP() << "no corpus at " << corpus;
    }
    size_t compared = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(corpus)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file() || (extension != ".usdc" && extension != ".usdz")) continue;
        // Files written by other tools than OpenUSD's may hold fields of
        // other types (a float metersPerUnit) or retired ones (targetChildren).
        if (entry.path().string().find("lighttransport_tinyusdz") != std::string::npos) continue;
        TfDiagnosticCapture capture;
        const SdfLayerRefPtr layer = SdfLayer::FindOrOpen(entry.path().string());
        if (!layer) continue;
        std::string text;
        ASSERT_TRUE(layer->ExportToString(&text));
        const SdfLayerRefPtr fromText = SdfLayer::OpenFromString(text, entry.path().string() + ".usda");
        ASSERT_TRUE(fromText) << entry.path();
        std::string difference;
        EXPECT_TRUE(SdfDataEqual(WithoutUnspellableFallbacks(layer->GetData()), fromText->GetData(), &difference))
            << entry.path() << ": " << difference;
        ++compared;
    }
    EXPECT_GT(compared, 0u);
}
