// Opening a stage, finding prims, and the stage's own metadata.

#include "usdTestUtils.h"

#include "usdcore/sdf/schema.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

TEST(StageOpen, SupportedFilesAreKnownByExtension)
{
    EXPECT_TRUE(UsdStage::IsSupportedFile("scene.usda"));
    EXPECT_TRUE(UsdStage::IsSupportedFile("dir/scene.usdc"));
    EXPECT_TRUE(UsdStage::IsSupportedFile("scene.usd"));
    EXPECT_TRUE(UsdStage::IsSupportedFile("C:/models/Robot.USDZ"));
    EXPECT_TRUE(UsdStage::IsSupportedFile("pack.usdz[inner/geo.usdc]"));
    EXPECT_FALSE(UsdStage::IsSupportedFile("notes.txt"));
    EXPECT_FALSE(UsdStage::IsSupportedFile("pack.usdz[texture.png]"));
    EXPECT_FALSE(UsdStage::IsSupportedFile("usda"));
}

TEST(StageOpen, MissingFileGivesNullStageAndError)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(UsdStage::Open(DataPath("does_not_exist.usda")));
    EXPECT_GT(capture.GetErrorCount(), 0u);
}

TEST(StageOpen, PrimsAreFoundByPathAndKnowTheirParents)
{
    const UsdStageRefPtr stage = OpenStage("traversal.usda");
    ASSERT_TRUE(stage);
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/A/A1/A1a"));
    ASSERT_TRUE(prim);
    EXPECT_EQ(prim.GetName(), TfToken("A1a"));
    EXPECT_EQ(prim.GetParent().GetPath(), SdfPath("/A/A1"));
    EXPECT_EQ(prim.GetStage(), stage);

    const UsdPrim top = stage->GetPrimAtPath(SdfPath("/A"));
    EXPECT_EQ(top.GetTypeName(), TfToken("Xform"));
    EXPECT_TRUE(top.GetParent().IsPseudoRoot());
    EXPECT_EQ(top.GetParent().GetPath(), SdfPath::AbsoluteRootPath());
    EXPECT_FALSE(stage->GetPseudoRoot().GetParent());

    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/A/Nope")));
    // Below an inactive prim nothing is composed.
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/B/B1")));
}

TEST(StageMetadata, ComesFromTheRootLayerWithTimeFallbacks)
{
    const UsdStageRefPtr stage = OpenStage("layerStack_root.usda");
    ASSERT_TRUE(stage);
    EXPECT_EQ(stage->GetTimeCodesPerSecond(), 30.0);
    EXPECT_EQ(stage->GetStartTimeCode(), 1.0);
    EXPECT_EQ(stage->GetEndTimeCode(), 48.0);
    EXPECT_TRUE(stage->HasAuthoredTimeCodeRange());
    TfToken upAxis;
    EXPECT_TRUE(stage->GetMetadata(TfToken("upAxis"), &upAxis));
    EXPECT_EQ(upAxis, TfToken("Z"));
    EXPECT_TRUE(stage->HasAuthoredMetadata(TfToken("upAxis")));
    EXPECT_FALSE(stage->HasAuthoredMetadata(TfToken("metersPerUnit")));
    EXPECT_EQ(stage->GetDefaultPrim().GetPath(), SdfPath("/World"));

    const UsdStageRefPtr plain = OpenStage("traversal.usda");
    EXPECT_EQ(plain->GetTimeCodesPerSecond(), 24.0);
    EXPECT_EQ(plain->GetFramesPerSecond(), 24.0);
    EXPECT_EQ(plain->GetStartTimeCode(), 0.0);
    EXPECT_FALSE(plain->HasAuthoredTimeCodeRange());
    EXPECT_TRUE(plain->HasMetadata(SdfFieldKeys->TimeCodesPerSecond));
    EXPECT_FALSE(plain->HasAuthoredMetadata(SdfFieldKeys->TimeCodesPerSecond));
    EXPECT_FALSE(plain->GetDefaultPrim());
    EXPECT_FALSE(plain->HasDefaultPrim());
}

TEST(StageOpen, ReferencedLayersStayOpenWithTheStage)
{
    // Several arcs name model.usda; the stage holds the one layer they share.
    const UsdStageRefPtr stage = OpenStage("references.usda");
    const SdfLayerRefPtr model = SdfLayer::Find(DataPath("model.usda"));
    ASSERT_TRUE(model);
    EXPECT_EQ(stage->GetRootLayer()->GetIdentifier(), DataPath("references.usda"));
}

TEST(StageOpen, OpensAnInMemoryLayer)
{
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString("#usda 1.0\ndef \"Only\" { int n = 4 }\n");
    ASSERT_TRUE(layer);
    const UsdStageRefPtr stage = UsdStage::Open(SdfLayerHandle(layer));
    ASSERT_TRUE(stage);
    int n = 0;
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/Only")).GetAttribute(TfToken("n")).Get(&n));
    EXPECT_EQ(n, 4);
    EXPECT_THAT(PrimPaths(stage->Traverse()), ElementsAre("/Only"));
}
