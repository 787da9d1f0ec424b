// The root layer and its sublayers: strength, time offsets, child order,
// blocks and dictionaries.

#include "usdTestUtils.h"

#include "usdcore/vt/dictionary.h"

#include <gmock/gmock.h>

using namespace usdtest;
using ::testing::ElementsAre;

namespace {

class LayerStackTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }
    UsdStageRefPtr stage = OpenStage("layerStack_root.usda");
};

} // namespace

TEST_F(LayerStackTest, StrongerLayersWinAttributeByAttribute)
{
    EXPECT_EQ(DoubleAt(stage, "/World", "size"), 3.0);   // root over strong and weak
    EXPECT_EQ(DoubleAt(stage, "/World", "radius"), 7.0); // strong over weak
    EXPECT_EQ(DoubleAt(stage, "/World", "height"), 2.0); // only the weakest has it
}

TEST_F(LayerStackTest, DefinitionMayComeFromAWeakerLayer)
{
    const UsdPrim world = stage->GetPrimAtPath(SdfPath("/World"));
    EXPECT_TRUE(world.IsDefined());
    EXPECT_EQ(world.GetSpecifier(), SdfSpecifierDef);
    EXPECT_EQ(world.GetTypeName(), TfToken("Xform"));
}

TEST_F(LayerStackTest, ChildrenOfWeakerLayersComeFirst)
{
    EXPECT_THAT(PrimPaths(stage->GetPrimAtPath(SdfPath("/World")).GetChildren()),
                ElementsAre("/World/FromWeak", "/World/FromStrong"));
}

TEST_F(LayerStackTest, SublayerOffsetMovesSamples)
{
    // The weak layer sits at offset 10, scale 2, and counts 24 time codes a
    // second under a root counting 30, which stretches it by 1.25 more: its
    // samples at 0 and 10 appear at 10 and 35.
    std::vector<double> times;
    EXPECT_TRUE(Attribute(stage, "/World", "spin").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(10.0, 35.0));
    // Stage time 20 is the layer's time 4, 40% of the way from 0 to 100.
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/World", "spin", 20.0), 40.0);
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/World", "spin", 35.0), 100.0);
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/World", "spin", 0.0), 0.0);
}

TEST_F(LayerStackTest, BlockHidesWeakerValues)
{
    const UsdAttribute blocked = Attribute(stage, "/World", "blocked");
    EXPECT_TRUE(blocked.IsValid());
    EXPECT_FALSE(blocked.HasAuthoredValue());
    double value = 0;
    EXPECT_FALSE(blocked.Get(&value));
    EXPECT_FALSE(blocked.Get(&value, 1.0));
}

TEST_F(LayerStackTest, StrongerDefaultBeatsWeakerSamples)
{
    EXPECT_EQ(DoubleAt(stage, "/World", "defaultBeatsWeakerSamples", 0.0), 3.0);
    std::vector<double> times{99.0};
    EXPECT_TRUE(Attribute(stage, "/World", "defaultBeatsWeakerSamples").GetTimeSamples(&times));
    EXPECT_TRUE(times.empty());
}

TEST_F(LayerStackTest, DictionaryMetadataMergesAcrossLayers)
{
    VtDictionary customData;
    ASSERT_TRUE(stage->GetPrimAtPath(SdfPath("/World")).GetMetadata(TfToken("customData"), &customData));
    ASSERT_EQ(customData.size(), 2u);
    EXPECT_EQ(customData["owner"].Get<std::string>(), "root");
    EXPECT_EQ(customData["version"].Get<int>(), 2);
}

TEST(LayerStackCycles, SublayerAndReferenceCyclesAreReportedNotFollowed)
{
    TfDiagnosticCapture capture;
    const UsdStageRefPtr stage = OpenStage("cycle_a.usda");
    ASSERT_TRUE(stage);
    EXPECT_TRUE(capture.Contains("sublayer cycle"));
    EXPECT_TRUE(capture.Contains("composition cycle"));
    // A's own layers, and B's opinion through the reference; the way back
    // to A is cut.
    EXPECT_EQ(DoubleAt(stage, "/A", "fromA"), 1.0);
    EXPECT_EQ(DoubleAt(stage, "/A", "fromSub"), 3.0);
    EXPECT_EQ(DoubleAt(stage, "/A", "fromB"), 2.0);
}

// Layers counting time at other rates than the layer that brings them in are
// stretched to its rate: a rate is the authored time codes per second, else
// the authored frames per second, else 24.
TEST(LayerStackTimeScale, SublayersAndReferencesAreStretchedToTheirParentsRate)
{
    const UsdStageRefPtr stage = OpenStage("timeScale_root.usda");
    ASSERT_TRUE(stage);
    std::vector<double> times;

    // 48 per second under 24: half the times, then the offset of 10.
    EXPECT_TRUE(Attribute(stage, "/Fast", "spin").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(10.0, 34.0));

    // A referenced layer at 12 frames per second: twice the times.
    EXPECT_TRUE(Attribute(stage, "/Shot", "spin").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(2.0, 6.0));
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/Shot", "spin", 4.0), 20.0);

    // An internal reference stays in its layer stack's time.
    EXPECT_TRUE(Attribute(stage, "/Local", "spin").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(2.0, 6.0));

    // A rate of zero gives no ratio: the layer keeps its own times.
    EXPECT_TRUE(Attribute(stage, "/Broken", "spin").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(4.0));
}
