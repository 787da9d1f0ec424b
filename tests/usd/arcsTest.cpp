// References, payloads, variants, inherits and specializes, and their
// strength order: local, inherits, variants, references, payloads,
// specializes.

#include "usdTestUtils.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

TEST(References, DefaultPrimIsUsedWhenNoPrimIsNamed)
{
    const UsdStageRefPtr stage = OpenStage("references.usda");
    ASSERT_TRUE(stage);
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/ByDefaultPrim"));
    EXPECT_EQ(prim.GetTypeName(), TfToken("Xform"));
    EXPECT_EQ(DoubleAt(stage, "/ByDefaultPrim", "weight"), 5.0);        // local over referenced
    EXPECT_EQ(DoubleAt(stage, "/ByDefaultPrim/Geom", "weight"), 2.0);   // children come along
    EXPECT_EQ(stage->GetPrimAtPath(SdfPath("/ByDefaultPrim/Geom")).GetTypeName(), TfToken("Mesh"));
}

TEST(References, NamedPrimPathAndInternalReference)
{
    const UsdStageRefPtr stage = OpenStage("references.usda");
    EXPECT_EQ(DoubleAt(stage, "/ByPath", "weight"), 9.0);
    EXPECT_EQ(DoubleAt(stage, "/Internal", "weight"), 4.0);
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/ByPath/Geom")));
}

TEST(References, LayerOffsetAppliesToSamples)
{
    // offset 100, scale 0.5: samples 0 and 10 land on 100 and 105.
    const UsdStageRefPtr stage = OpenStage("references.usda");
    std::vector<double> times;
    EXPECT_TRUE(Attribute(stage, "/WithOffset", "anim").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(100.0, 105.0));
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/WithOffset", "anim", 102.5), 5.0);
    // Unreferenced, the same samples sit where they were written.
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/ByDefaultPrim", "anim", 5.0), 5.0);
}

TEST(References, EarlierItemOfAListIsStronger)
{
    const UsdStageRefPtr stage = OpenStage("references.usda");
    EXPECT_EQ(DoubleAt(stage, "/TwoReferences", "weight"), 9.0);
    // The weaker reference still adds what the stronger one lacks.
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/TwoReferences/Geom")));
}

TEST(References, MissingLayerIsReportedAndSkipped)
{
    TfDiagnosticCapture capture;
    const UsdStageRefPtr stage = OpenStage("missing_reference.usda");
    ASSERT_TRUE(stage);
    EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "nowhere.usda"));
    EXPECT_EQ(DoubleAt(stage, "/Missing", "weight"), 3.0);
}

TEST(References, AssetPathsAreRelativeToTheLayerThatWroteThem)
{
    // anchoring.usda -> nested/middle.usda -> "./leaf.usda", which is
    // nested/leaf.usda, not a leaf.usda next to anchoring.usda.
    const UsdStageRefPtr stage = OpenStage("anchoring.usda");
    std::string where;
    EXPECT_TRUE(Attribute(stage, "/Top", "where").Get(&where));
    EXPECT_EQ(where, "nested");
}

TEST(Payloads, LoadedWithLoadAllOnly)
{
    const UsdStageRefPtr loaded = OpenStage("references.usda", UsdStage::LoadAll);
    const UsdPrim withPayload = loaded->GetPrimAtPath(SdfPath("/Payloaded"));
    EXPECT_TRUE(withPayload.IsLoaded());
    EXPECT_TRUE(withPayload.HasPayload());
    EXPECT_EQ(DoubleAt(loaded, "/Payloaded", "weight"), 1.0);
    EXPECT_TRUE(loaded->GetPrimAtPath(SdfPath("/Payloaded/Geom")));

    const UsdStageRefPtr unloaded = OpenStage("references.usda", UsdStage::LoadNone);
    const UsdPrim without = unloaded->GetPrimAtPath(SdfPath("/Payloaded"));
    EXPECT_FALSE(without.IsLoaded());
    EXPECT_TRUE(without.HasPayload());
    EXPECT_FALSE(Attribute(unloaded, "/Payloaded", "weight"));
    EXPECT_FALSE(unloaded->GetPrimAtPath(SdfPath("/Payloaded/Geom")));
    const std::vector<std::string> visited = PrimPaths(unloaded->Traverse());
    EXPECT_EQ(std::count(visited.begin(), visited.end(), "/Payloaded"), 0);
    EXPECT_EQ(std::count(visited.begin(), visited.end(), "/ByPath"), 1);
}

TEST(Variants, AuthoredSelectionPicksTheVariant)
{
    const UsdStageRefPtr stage = OpenStage("variants.usda");
    EXPECT_EQ(DoubleAt(stage, "/Asset", "hue"), 0.0);
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/Asset/RedOnly")));
    // "size" has no selection: none of its variants applies.
    EXPECT_FALSE(Attribute(stage, "/Asset", "scale"));
}

TEST(Variants, StrongerSelectionAcrossAReferenceWins)
{
    const UsdStageRefPtr stage = OpenStage("variants.usda");
    EXPECT_EQ(DoubleAt(stage, "/Chooser", "hue"), 240.0);
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/Chooser/RedOnly")));
}

TEST(Variants, VariantIsStrongerThanReference)
{
    const UsdStageRefPtr stage = OpenStage("references.usda");
    EXPECT_EQ(DoubleAt(stage, "/VariantOverReference", "weight"), 6.0);
}

TEST(ClassArcs, InheritsAndSpecializesBringClassOpinions)
{
    const UsdStageRefPtr stage = OpenStage("classes.usda");
    EXPECT_EQ(DoubleAt(stage, "/Thing", "onlyInherited"), 11.0);
    EXPECT_EQ(DoubleAt(stage, "/Thing", "onlySpecialized"), 22.0);
    EXPECT_EQ(DoubleAt(stage, "/Thing", "value"), 1.0); // inherits over specializes
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/Thing/FromClass")));
    // The class's children under the instance are defined, the class's own are abstract.
    EXPECT_FALSE(stage->GetPrimAtPath(SdfPath("/Thing/FromClass")).IsAbstract());
    EXPECT_TRUE(stage->GetPrimAtPath(SdfPath("/_Base/FromClass")).IsAbstract());
}

TEST(ClassArcs, StrengthOrder)
{
    const UsdStageRefPtr stage = OpenStage("classes.usda");
    EXPECT_EQ(DoubleAt(stage, "/LocalWins", "value"), 0.0);
    EXPECT_EQ(DoubleAt(stage, "/InheritBeatsReference", "value"), 1.0);
    EXPECT_EQ(DoubleAt(stage, "/ReferenceBeatsSpecializes", "shared"), 3.0);
}

TEST(References, ArcOnThePrimBeatsArcOnItsAncestor)
{
    // /Ancestral/Geom gets weight 2 from model.usda through its parent's
    // reference, and 4 through its own reference to /Source: its own is
    // stronger.
    const UsdStageRefPtr stage = OpenStage("references.usda");
    EXPECT_EQ(DoubleAt(stage, "/Ancestral/Geom", "weight"), 4.0);
    EXPECT_EQ(stage->GetPrimAtPath(SdfPath("/Ancestral/Geom")).GetTypeName(), TfToken("Mesh"));
}
