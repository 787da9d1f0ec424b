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
    // The weak layer sits at offset 10, scale 2: its samples at 0 and 10
    // appear at 10 and 30.
    std::vector<double> times;
    EXPECT_TRUE(Attribute(stage, "/World", "spin").GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(10.0, 30.0));
    // Stage time 20 is the layer's time 5, halfway between 0 and 100.
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/World", "spin", 20.0), 50.0);
    EXPECT_DOUBLE_EQ(DoubleAt(stage, "/World", "spin", 30.0), 100.0);
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
