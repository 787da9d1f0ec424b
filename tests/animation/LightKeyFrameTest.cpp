// Light key frame data and the host lights under it: the point light's
// members, savability by the light sources still shining the light,
// applying, copies, the archive record (known and unknown kinds, before and
// after 10030) and blending two lights.

#include "TavrinAnimation/src/TavrinKeyFrameDataLight.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "DataMemberNames.h"
#include "ArchiveTestSupport.h"
#include "host/CTavrinLight.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tavrin;

namespace {

using LightPtr = CTavrinPtr<CTavrinKeyFrameDataLight>;

CTavrinBasicPointLight* PointLight(double intensity, double range = 10.0) {
    auto* light = new CTavrinBasicPointLight();
    light->SetIntensity(intensity);
    light->SetRange(range);
    return light;
}

const CTavrinBasicPointLight& PointOf(const CTavrinKeyFrameData& data) {
    return dynamic_cast<const CTavrinBasicPointLight&>(*dynamic_cast<const CTavrinKeyFrameDataLight&>(data).Light());
}

void WriteString(CTavrinArchiveBase& archive, const char* text) {
    CTavrinString value(text);
    EXPECT_TRUE(archive.ReadWrite(value));
}

// A kind of light that this program cannot make again by name.
class TestSpotLight : public CTavrinBasicLight {
public:
    CTavrinString TypeName() const override { return CTavrinString("TestSpotLight"); }
};

class LightKeyFrame : public ::testing::Test {
protected:
    AnimationTestEntities entities;
    CTavrinLight* light = CTavrinLight::Create(entities.Document());
};

} // namespace

TEST_F(LightKeyFrame, FactoryMakesAPointLight) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(light->ID(), KEYFRAME_LIGHT));
    EXPECT_EQ(data->Type(), KEYFRAME_LIGHT);
    const CTavrinBasicPointLight& point = PointOf(*data);
    EXPECT_EQ(point.TypeName().toStdString(), "CTavrinBasicPointLight");
    EXPECT_EQ(point.Intensity(), 1.0);
    EXPECT_EQ(point.Range(), 10.0);
    EXPECT_EQ(point.Color(), CTavrinColor(1, 1, 1, 1));
}

TEST_F(LightKeyFrame, PointLightMembers) {
    CTavrinBasicPointLight point;
    EXPECT_EQ(MemberNames(point), (std::vector<std::string>{"Name", "Color", "Intensity", "Range"}));
    ASSERT_TRUE(point.DataMemberValueChanged(4.5, 3));
    EXPECT_EQ(point.Range(), 4.5);
}

TEST_F(LightKeyFrame, SavableWhileAnUndeletedSourceShinesTheLight) {
    LightPtr key(new CTavrinKeyFrameDataLight(light->ID(), nullptr));
    EXPECT_FALSE(key->IsSavable());
    CTavrinLightSource* source = CTavrinLightSource::Create(entities.Document());
    source->SetLight(light);
    EXPECT_TRUE(key->IsSavable());
    source->SetDeleted(true);
    EXPECT_FALSE(key->IsSavable());
    CTavrinLightSource* another = CTavrinLightSource::Create(entities.Document());
    another->SetLight(light);
    EXPECT_EQ(light->NumberOfUndeletedLightSourcesReferencingThisLight(), 1);
    EXPECT_EQ(light->GetLightSourcesReferencingThisLight().size(), 2u);
    EXPECT_TRUE(key->IsSavable());

    LightPtr notALight(new CTavrinKeyFrameDataLight(entities.NewEntity(), nullptr));
    EXPECT_FALSE(notALight->IsSavable());
}

TEST_F(LightKeyFrame, UnsavableLightIsWrittenAsAFalseFlag) {
    CTavrinKeyFrameManager manager;
    manager.AddKeyFrameData(new CTavrinKeyFrameDataLight(light->ID(), nullptr), true);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(RoundTrip(manager, read));
    EXPECT_EQ(read.FindTrack(light->ID()), nullptr);
}

TEST_F(LightKeyFrame, ApplyLoadsACopyIntoTheLight) {
    LightPtr key(new CTavrinKeyFrameDataLight(light->ID(), PointLight(2.5, 6)));
    key->Apply();
    ASSERT_NE(light->BasicLight(), nullptr);
    EXPECT_NE(light->BasicLight(), key->Light());
    EXPECT_EQ(light->BasicLight()->Intensity(), 2.5);
    EXPECT_EQ(dynamic_cast<const CTavrinBasicPointLight&>(*light->BasicLight()).Range(), 6.0);
    LightPtr elsewhere(new CTavrinKeyFrameDataLight(entities.NewEntity(), PointLight(1)));
    elsewhere->Apply();
}

TEST_F(LightKeyFrame, CopiesOwnTheirLight) {
    LightPtr key(new CTavrinKeyFrameDataLight(light->ID(), PointLight(2.5, 6)));
    key->SetEndFrame(8, false);
    key->SetWorkingFrame(5);
    CTavrinKeyFrameDataPtr full(key->CreateCopy(false));
    CTavrinKeyFrameDataPtr snapshot(key->CreateCopy(true));
    EXPECT_NE(&PointOf(*full), key->Light());
    EXPECT_EQ(PointOf(*full).Range(), 6.0);
    EXPECT_EQ(full->EndFrame(), 8);
    EXPECT_EQ(snapshot->StartFrame(), 5);
    EXPECT_EQ(snapshot->EndFrame(), 5);
    EXPECT_EQ(PointOf(*snapshot).Intensity(), 2.5);
}

TEST_F(LightKeyFrame, NewestRecordRoundTrips) {
    CTavrinBasicPointLight* point = PointLight(3, 7);
    point->SetColor(CTavrinColor(0.5, 0.4, 0.3, 1));
    point->SetName(CTavrinString("Key"));
    LightPtr key(new CTavrinKeyFrameDataLight(light->ID(), point));
    LightPtr read(new CTavrinKeyFrameDataLight(CTavrinID(), nullptr));
    ASSERT_TRUE(RoundTrip(*key, *read));
    const CTavrinBasicPointLight& readPoint = PointOf(*read);
    EXPECT_EQ(readPoint.Name().toStdString(), "Key");
    EXPECT_EQ(readPoint.Intensity(), 3.0);
    EXPECT_EQ(readPoint.Range(), 7.0);
    EXPECT_EQ(readPoint.Color(), CTavrinColor(0.5, 0.4, 0.3, 1));
}

TEST_F(LightKeyFrame, UnknownKindBecomesAPointLightWithTheValuesItHasAPlaceFor) {
    TestWriter writer(NewestArchiveVersion);
    CTavrinArchiveBase& archive = writer.archive();
    RecordWriter out(archive);
    out.ID(light->ID()).ID(light->ID()).Int(0).Int(0).Int(0).Int(0).Int(0).Int(1).UUID(CTavrinUUID()).UUID(CTavrinUUID());
    WriteString(archive, "CTavrinBasicSpotLight");
    out.UInt(13014).Int(3);
    WriteString(archive, "Intensity");
    out.Int(16);
    WriteString(archive, "Cone");
    out.Int(16);
    WriteString(archive, "Range");
    out.Int(16);
    out.Double(4).Double(30).Double(12);
    LightPtr read(new CTavrinKeyFrameDataLight(CTavrinID(), nullptr));
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(PointOf(*read).Intensity(), 4.0);
    EXPECT_EQ(PointOf(*read).Range(), 12.0);
}

TEST_F(LightKeyFrame, FileBefore10030HasOnlyTheLightsRecord) {
    TestWriter writer(10029);
    CTavrinArchiveBase& archive = writer.archive();
    RecordWriter out(archive);
    out.ID(light->ID()).ID(light->ID()).Int(0).Int(0).Int(0).Int(0).Int(1); // base, legacy value, serial
    WriteString(archive, "CTavrinBasicPointLight");
    out.Int(7); // skipped
    WriteString(archive, "Fill");
    out.Double(0.2).Double(0.3).Double(0.4).Double(1).Double(0.75).Double(25);
    LightPtr read(new CTavrinKeyFrameDataLight(CTavrinID(), nullptr));
    ASSERT_TRUE(ReadBack(writer, *read));
    EXPECT_EQ(PointOf(*read).Name().toStdString(), "Fill");
    EXPECT_EQ(PointOf(*read).Color(), CTavrinColor(0.2, 0.3, 0.4, 1));
    EXPECT_EQ(PointOf(*read).Intensity(), 0.75);
    EXPECT_EQ(PointOf(*read).Range(), 25.0);
}

TEST_F(LightKeyFrame, GapBlendsLightsOfOneKind) {
    CTavrinBasicPointLight* dark = PointLight(0, 10);
    dark->SetColor(CTavrinColor(0, 0, 0, 1));
    CTavrinKeyFrameDataPtr first(new CTavrinKeyFrameDataLight(light->ID(), dark));
    CTavrinKeyFrameDataPtr second(new CTavrinKeyFrameDataLight(light->ID(), PointLight(10, 20)));
    second->SetAllFrames(10);
    CTavrinKeyFrameManager manager;
    manager.AddKeyFrameData(first, true);
    manager.AddKeyFrameData(second, true);
    CTavrinKeyFrameDataPtr between = manager.KeyFrameDataAt(light->ID(), 4);
    ASSERT_TRUE(between);
    EXPECT_NE(between.get(), first.get());
    EXPECT_NEAR(PointOf(*between).Intensity(), 4.0, 1e-12);
    EXPECT_NEAR(PointOf(*between).Range(), 14.0, 1e-12);
    EXPECT_NEAR(PointOf(*between).Color().G(), 0.4, 1e-12);
}

TEST_F(LightKeyFrame, LightsOfTwoKindsHoldTheFirstUntilTheSecond) {
    CTavrinKeyFrameDataPtr first(new CTavrinKeyFrameDataLight(light->ID(), PointLight(1)));
    CTavrinKeyFrameDataPtr second(new CTavrinKeyFrameDataLight(light->ID(), new TestSpotLight()));
    second->SetAllFrames(10);
    CTavrinKeyFrameManager manager;
    manager.AddKeyFrameData(first, true);
    manager.AddKeyFrameData(second, true);
    CTavrinKeyFrameDataPtr between = manager.KeyFrameDataAt(light->ID(), 4);
    EXPECT_EQ(between.get(), first.get());
}
