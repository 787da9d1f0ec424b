// Material key frame data and the host pieces it rests on: the basic
// material's named values, structure descriptions, applying, copies, the
// archive record (known and unknown kinds, before and after 10030) and
// blending two materials.

#include "TavrinAnimation/src/TavrinKeyFrameDataMaterial.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "AnimationTestEntities.h"
#include "DataMemberNames.h"
#include "ArchiveTestSupport.h"
#include "host/CTavrinMaterial.h"
#include "host/CTavrinStructureDescription.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Tavrin;

namespace {

using MaterialPtr = CTavrinPtr<CTavrinKeyFrameDataMaterial>;

CTavrinBasicGeneralMaterial* Brick() {
    CTavrinBasicGeneralMaterial* material = CTavrinBasicGeneralMaterial::Create();
    material->SetName(CTavrinString("Brick"));
    material->SetColor(0.1, 0.2, 0.3, 1.0, true);
    material->SetAlpha(0.5, true);
    material->SetTexture(CTavrinTexture(CTavrinString("brick.png")), TEXTURE_TYPE_DIFFUSE);
    material->NormalTexture = CTavrinTexture(CTavrinString("bump.png"));
    return material;
}

double ValueOf(const CTavrinBasicMaterial& material, enumMaterialValue value, int component = 0) {
    return material.Values().Value(value)[component];
}

std::string TextureOf(const CTavrinBasicMaterial& material, const std::string& slot) {
    for (const auto& [name, texture] : material.TextureSlots()) {
        if (slot == name)
            return texture->FullFilename().toStdString();
    }
    return "<no slot>";
}

// The general-part record: the twelve texture file names, in slot order.
void WriteGeneralPart(Tavrin::CTavrinArchiveBase& archive, const std::string& first) {
    CTavrinString name(first);
    EXPECT_TRUE(archive.ReadWrite(name));
    for (int slot = 1; slot < 12; ++slot) {
        CTavrinString empty;
        EXPECT_TRUE(archive.ReadWrite(empty));
    }
}

void WriteString(Tavrin::CTavrinArchiveBase& archive, const char* text) {
    CTavrinString value(text);
    EXPECT_TRUE(archive.ReadWrite(value));
}

} // namespace

TEST(BasicMaterialMembers, EveryValueIsANamedMember) {
    CTavrinBasicGeneralMaterial material;
    std::vector<int> types;
    EXPECT_EQ(MemberNames(material, &types), (std::vector<std::string>{"Name", "Color", "Alpha", "Roughness", "Metalness", "Emission",
                                               "Specular", "OcclusionStrength", "CoatThickness", "Eta",
                                               "DisplacementAmount"}));
    EXPECT_EQ(types, (std::vector<int>{1, 2, 16, 16, 16, 2, 2, 16, 16, 16, 16}));
}

TEST(BasicMaterialMembers, EditsAssignTheValues) {
    CTavrinBasicGeneralMaterial material;
    ASSERT_TRUE(material.DataMemberValueChanged(0.25, 2));
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Alpha), 0.25);
    EXPECT_TRUE(material.Values().WasAssigned(enumMaterialValue::Alpha));
    ASSERT_TRUE(material.DataMemberValueChanged(CTavrinColor(0.7, 0.6, 0.5, 1.0), 5));
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Emission, 0), 0.7);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Emission, 2), 0.5);
    EXPECT_FALSE(material.DataMemberValueChanged(0.25, 1)); // a colour takes no double
}

TEST(BasicMaterialKinds, OnlyTheGeneralKindIsKnownByName) {
    CTavrinBasicMaterial* general = CTavrinBasicMaterial::CreateBasicMaterial(CTavrinString("CTavrinBasicGeneralMaterial"));
    ASSERT_NE(general, nullptr);
    EXPECT_EQ(general->TypeName().toStdString(), "CTavrinBasicGeneralMaterial");
    CTavrinBasicMaterial::Destroy(general);
    EXPECT_EQ(CTavrinBasicMaterial::CreateBasicMaterial(CTavrinString("CTavrinBasicToonMaterial")), nullptr);
}

TEST(StructureDescriptions, DescribeTheArchivableMembers) {
    CTavrinBasicGeneralMaterial material;
    const CTavrinStructureDescription description = CTavrinStructureDescription::StructureDescription(&material, 13014);
    EXPECT_EQ(description.Version(), 13014u);
    ASSERT_EQ(description.Fields().size(), 11u);
    EXPECT_EQ(description.Fields()[1].name.toStdString(), "Color");
    EXPECT_EQ(description.Fields()[1].type, DATA_MEMBER_COLOR);
    CTavrin3DVertex vertex;
    EXPECT_TRUE(CTavrinStructureDescription::StructureDescription(&vertex, 13014).Fields().empty());
}

TEST(StructureDescriptions, RecordWithAnUnknownValueTypeFails) {
    TestWriter writer(NewestArchiveVersion);
    RecordWriter out(writer.archive());
    out.UInt(13014).Int(1);
    WriteString(writer.archive(), "Alpha");
    out.Int(8); // normals are not described
    TestReader reader(writer.Bytes(), NewestArchiveVersion);
    CTavrinStructureDescription description;
    EXPECT_FALSE(description.ArchiveReadWrite(reader.archive()));
}

TEST(MaterialKeyFrame, FactoryWrapsAFreshGeneralMaterial) {
    CTavrinKeyFrameDataPtr data(CreateKeyFrameData(CTavrinID(), KEYFRAME_MATERIAL));
    auto& key = dynamic_cast<CTavrinKeyFrameDataMaterial&>(*data);
    EXPECT_EQ(key.Type(), KEYFRAME_MATERIAL);
    ASSERT_NE(key.Material(), nullptr);
    EXPECT_EQ(key.Material()->TypeName().toStdString(), "CTavrinBasicGeneralMaterial");
    EXPECT_FALSE(key.Material()->Values().WasAssigned(enumMaterialValue::Color));
}

TEST(MaterialKeyFrame, ApplyLoadsACopyIntoTheMaterial) {
    AnimationTestEntities entities;
    CTavrinMaterial* material = CTavrinMaterial::Create(entities.Document());
    MaterialPtr key(new CTavrinKeyFrameDataMaterial(material->ID(), Brick()));
    key->Apply();
    ASSERT_NE(material->BasicMaterial(), nullptr);
    EXPECT_NE(material->BasicMaterial(), key->Material());
    EXPECT_EQ(ValueOf(*material->BasicMaterial(), enumMaterialValue::Alpha), 0.5);
    EXPECT_EQ(TextureOf(*material->BasicMaterial(), "Texture"), "brick.png");
    EXPECT_EQ(material->BasicMaterial()->Name().toStdString(), "Brick");

    MaterialPtr elsewhere(new CTavrinKeyFrameDataMaterial(entities.NewEntity(), Brick()));
    elsewhere->Apply();
}

TEST(MaterialKeyFrame, CopiesOwnTheirMaterial) {
    MaterialPtr key(new CTavrinKeyFrameDataMaterial(CTavrinID(), Brick()));
    key->SetEndFrame(9, false);
    key->SetStartFrame(3, false);
    key->SetWorkingFrame(6);
    CTavrinKeyFrameDataPtr full(key->CreateCopy(false));
    CTavrinKeyFrameDataPtr snapshot(key->CreateCopy(true));
    auto& fullCopy = dynamic_cast<CTavrinKeyFrameDataMaterial&>(*full);
    auto& single = dynamic_cast<CTavrinKeyFrameDataMaterial&>(*snapshot);
    EXPECT_NE(fullCopy.Material(), key->Material());
    EXPECT_EQ(ValueOf(*fullCopy.Material(), enumMaterialValue::Color, 1), 0.2);
    EXPECT_EQ(TextureOf(*fullCopy.Material(), "NormalTexture"), "bump.png");
    EXPECT_EQ(fullCopy.StartFrame(), 3);
    EXPECT_EQ(fullCopy.EndFrame(), 9);
    EXPECT_EQ(single.StartFrame(), 6);
    EXPECT_EQ(single.EndFrame(), 6);
    EXPECT_EQ(ValueOf(*single.Material(), enumMaterialValue::Alpha), 0.5);
}

TEST(MaterialKeyFrame, NewestRecordRoundTrips) {
    MaterialPtr key(new CTavrinKeyFrameDataMaterial(CTavrinID(), Brick()));
    MaterialPtr read(new CTavrinKeyFrameDataMaterial(CTavrinID(), nullptr));
    ASSERT_TRUE(RoundTrip(*key, *read));
    const CTavrinBasicMaterial& material = *read->Material();
    EXPECT_EQ(material.Name().toStdString(), "Brick");
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Color, 2), 0.3);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Alpha), 0.5);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Eta), 1.5);
    EXPECT_EQ(TextureOf(material, "Texture"), "brick.png");
    EXPECT_EQ(TextureOf(material, "NormalTexture"), "bump.png");
}

TEST(MaterialKeyFrame, UnknownKindKeepsWhatTheGeneralMaterialHasAPlaceFor) {
    TestWriter writer(NewestArchiveVersion);
    Tavrin::CTavrinArchiveBase& archive = writer.archive();
    RecordWriter out(archive);
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(0).Int(0).Int(0).Int(0).Int(1).UUID(CTavrinUUID()).UUID(CTavrinUUID());
    WriteString(archive, "CTavrinBasicToonMaterial");
    WriteGeneralPart(archive, "toon.png");
    out.UInt(13014).Int(3);
    WriteString(archive, "Alpha");
    out.Int(16);
    WriteString(archive, "Outline");
    out.Int(16);
    WriteString(archive, "Color");
    out.Int(2);
    out.Double(0.3).Double(7.0).Double(0.5).Double(0.6).Double(0.7).Double(1.0);
    MaterialPtr read(new CTavrinKeyFrameDataMaterial(CTavrinID(), nullptr));
    ASSERT_TRUE(ReadBack(writer, *read));
    const CTavrinBasicMaterial& material = *read->Material();
    EXPECT_EQ(material.TypeName().toStdString(), "CTavrinBasicGeneralMaterial");
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Alpha), 0.3);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Color, 1), 0.6);
    EXPECT_FALSE(material.Values().WasAssigned(enumMaterialValue::Roughness));
    EXPECT_EQ(TextureOf(material, "Texture"), "toon.png");
}

TEST(MaterialKeyFrame, FileBefore10030HasOnlyTheMaterialsRecord) {
    TestWriter writer(10029);
    Tavrin::CTavrinArchiveBase& archive = writer.archive();
    RecordWriter out(archive);
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(0).Int(0).Int(0).Int(1); // base, legacy value, serial
    WriteString(archive, "CTavrinBasicGeneralMaterial");
    out.Int(42); // skipped
    WriteString(archive, "Old");
    out.Double(0.9).Double(0.8).Double(0.7).Double(1.0); // Color
    out.Double(0.4).Double(0.5).Double(0.6);             // Alpha, Roughness, Metalness
    out.Double(0).Double(0).Double(0).Double(1);         // Emission
    out.Double(1).Double(1).Double(1).Double(1);         // Specular
    out.Double(1).Double(0).Double(1.33).Double(0.1);    // OcclusionStrength, CoatThickness, Eta, DisplacementAmount
    MaterialPtr read(new CTavrinKeyFrameDataMaterial(CTavrinID(), nullptr));
    ASSERT_TRUE(ReadBack(writer, *read));
    const CTavrinBasicMaterial& material = *read->Material();
    EXPECT_EQ(material.Name().toStdString(), "Old");
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Color, 0), 0.9);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Metalness), 0.6);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::Eta), 1.33);
    EXPECT_EQ(ValueOf(material, enumMaterialValue::DisplacementAmount), 0.1);
}

TEST(MaterialKeyFrame, FileBefore10030WithAnUnknownKindFails) {
    TestWriter writer(10029);
    Tavrin::CTavrinArchiveBase& archive = writer.archive();
    RecordWriter out(archive);
    out.ID(CTavrinID()).ID(CTavrinID()).Int(0).Int(0).Int(0).Int(0).Int(1);
    WriteString(archive, "CTavrinBasicToonMaterial");
    out.Int(42);
    FileVersionScope file(10029);
    TestReader reader(writer.Bytes(), 10029);
    MaterialPtr read(new CTavrinKeyFrameDataMaterial(CTavrinID(), Brick()));
    EXPECT_FALSE(read->ArchiveReadWrite(reader.archive()));
    EXPECT_EQ(read->Material()->Name().toStdString(), "Brick");
}

class MaterialBlend : public ::testing::Test {
protected:
    // Brick at alpha 0 on frame 0, and a second material (named secondName)
    // at alpha 1 with another colour and texture on frame 10.
    void AddPair(const std::string& secondName) {
        CTavrinBasicGeneralMaterial* clear = Brick();
        clear->SetAlpha(0.0, true);
        CTavrinBasicGeneralMaterial* opaque = Brick();
        opaque->SetName(CTavrinString(secondName));
        opaque->SetAlpha(1.0, true);
        opaque->SetColor(1.1, 1.2, 1.3, 1.0, true);
        opaque->SetTexture(CTavrinTexture(CTavrinString("opaque.png")), TEXTURE_TYPE_DIFFUSE);
        CTavrinKeyFrameDataPtr first(new CTavrinKeyFrameDataMaterial(target, clear));
        CTavrinKeyFrameDataPtr second(new CTavrinKeyFrameDataMaterial(target, opaque));
        first->SetOriginalEntityID(firstOrigin);
        second->SetOriginalEntityID(secondOrigin);
        second->SetAllFrames(10);
        manager.AddKeyFrameData(first, true);
        manager.AddKeyFrameData(second, true);
    }

    const CTavrinBasicMaterial& BlendAt(int frame) {
        between = manager.KeyFrameDataAt(target, frame);
        EXPECT_TRUE(between);
        return *dynamic_cast<CTavrinKeyFrameDataMaterial&>(*between).Material();
    }

    AnimationTestEntities entities;
    CTavrinMaterial* material = CTavrinMaterial::Create(entities.Document());
    CTavrinID target = material->ID();
    CTavrinID firstOrigin = entities.NewEntity();
    CTavrinID secondOrigin = entities.NewEntity();
    CTavrinKeyFrameManager manager;
    CTavrinKeyFrameDataPtr between;
};

TEST_F(MaterialBlend, ValuesBlendAndTexturesComeFromTheNearerKey) {
    AddPair("Brick");
    const CTavrinBasicMaterial& early = BlendAt(4);
    EXPECT_NEAR(ValueOf(early, enumMaterialValue::Alpha), 0.4, 1e-12);
    EXPECT_NEAR(ValueOf(early, enumMaterialValue::Color, 0), 0.1 + 0.4 * 1.0, 1e-12);
    EXPECT_EQ(TextureOf(early, "Texture"), "brick.png");
    EXPECT_EQ(TextureOf(BlendAt(7), "Texture"), "opaque.png");
}

TEST_F(MaterialBlend, SameMaterialKeepsTheFirstOrigin) {
    AddPair("Brick");
    BlendAt(4);
    EXPECT_EQ(between->OriginalEntityID(), firstOrigin);
}

TEST_F(MaterialBlend, AnotherMaterialTakesTheSecondOrigin) {
    AddPair("Glass");
    BlendAt(4);
    EXPECT_EQ(between->OriginalEntityID(), secondOrigin);
}

TEST_F(MaterialBlend, ApplyFromManagerAppliesTheBlendAtTheWorkingFrame) {
    AddPair("Brick");
    // A snapshot standing at frame 5 of the track.
    CTavrinKeyFrameDataPtr probe(manager.FindTrack(target)->at(0)->CreateCopy(false));
    probe->SetAllFrames(5);
    probe->ApplyFromManager(&manager);
    ASSERT_NE(material->BasicMaterial(), nullptr);
    EXPECT_NEAR(ValueOf(*material->BasicMaterial(), enumMaterialValue::Alpha), 0.5, 1e-12);
}
