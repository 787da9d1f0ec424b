// A manager holding one track of each of the ten kinds of key frame data
// survives writing and reading: the factory makes every type code again and
// each record reads back what it wrote. Cut or damaged copies of that record
// fail or read, and never crash.

#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataLight.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMaterial.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformBSplineFollower.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformRoundTable.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformSphericalCamera.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "AnimationTestEntities.h"
#include "ArchiveTestSupport.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinLinePath.h"
#include "host/CTavrinMaterial.h"

#include <gtest/gtest.h>

using namespace Tavrin;

namespace {

class EveryTypeArchive : public ::testing::Test {
protected:
    // One key frame of each kind into manager.
    void FillEveryKind(CTavrinKeyFrameManager& manager);
    // The record of a manager holding one key frame of each kind.
    std::vector<std::uint8_t> WriteEveryKind() {
        CTavrinKeyFrameManager manager;
        FillEveryKind(manager);
        TestWriter writer(NewestArchiveVersion);
        EXPECT_TRUE(manager.ArchiveReadWrite(writer.archive()));
        return writer.Bytes();
    }

    AnimationTestEntities entities;
    std::vector<CTavrinID> animated;
    CTavrinID pathID;
};

void EveryTypeArchive::FillEveryKind(CTavrinKeyFrameManager& manager) {
    CTavrinDocument* document = entities.Document();
    CTavrinLight* light = CTavrinLight::Create(document);
    CTavrinLightSource::Create(document)->SetLight(light);
    CTavrinLinePath* path = CTavrinLinePath::Create(document);

    for (int type = 0; type < 10; ++type)
        animated.push_back(type == KEYFRAME_LIGHT ? light->ID() : entities.NewTransform());

    CTavrinBasicGeneralMaterial* material = CTavrinBasicGeneralMaterial::Create();
    material->SetAlpha(0.5, true);
    auto* lightPayload = new CTavrinBasicPointLight();
    lightPayload->SetRange(2);
    auto* follower = new CTavrinKeyFrameDataTransformBSplineFollower(animated[6], CTavrinMatrix());
    follower->SetPath(path->ID(), CTavrinID());
    auto* spherical = new CTavrinKeyFrameDataTransformSphericalCamera(animated[7], CTavrinBasicCamera());
    spherical->SetGrid(1, 2, 3, false);
    auto* roundTable = new CTavrinKeyFrameDataTransformRoundTable(animated[5], CTavrinMatrix());
    roundTable->SetAngle(90);
    const CTavrinKeyFrameDataPtr written[10] = {
        CTavrinKeyFrameDataTransform::Create(animated[0], CTavrinMatrix::CreateTranslation(1, 0, 0)),
        new CTavrinKeyFrameDataMaterial(animated[1], material),
        new CTavrinKeyFrameDataTransformCamera(animated[2], CTavrinBasicCamera()),
        new CTavrinKeyFrameDataVertices(animated[3], new CTavrinBasic3DVectorsTable({CTavrin3DVertex(1, 2, 3)})),
        new CTavrinKeyFrameDataLight(animated[4], lightPayload),
        roundTable,
        follower,
        spherical,
        new CTavrinKeyFrameDataHideShow(animated[8], false),
        new CTavrinKeyFrameDataMorph(animated[9], animated[0], 0.75),
    };
    for (const CTavrinKeyFrameDataPtr& data : written)
        manager.AddKeyFrameData(data, true);
    pathID = path->ID();
}

} // namespace

TEST_F(EveryTypeArchive, EachKindComesBackUnderItsTypeCode) {
    const std::vector<std::uint8_t> bytes = WriteEveryKind();
    FileVersionScope file(NewestArchiveVersion);
    TestReader reader(bytes, NewestArchiveVersion);
    CTavrinKeyFrameManager read;
    ASSERT_TRUE(read.ArchiveReadWrite(reader.archive()));
    EXPECT_TRUE(reader.AtEnd());

    ASSERT_EQ(read.Tracks().size(), 10u);
    for (int type = 0; type < 10; ++type) {
        SCOPED_TRACE(type);
        const CTavrinKeyFrameManager::Track* track = read.FindTrack(animated[type]);
        ASSERT_NE(track, nullptr);
        ASSERT_EQ(track->size(), 1u);
        EXPECT_EQ(track->begin()->second->Type(), type);
    }
    const auto first = [&](int type) { return read.FindTrack(animated[type])->begin()->second.get(); };
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataMaterial*>(first(1))->Material()->Values().Value(
                  enumMaterialValue::Alpha)[0],
              0.5);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataVertices*>(first(3))->Table(0)->Vectors()[0], CTavrin3DVertex(1, 2, 3));
    EXPECT_EQ(dynamic_cast<const CTavrinBasicPointLight*>(dynamic_cast<CTavrinKeyFrameDataLight*>(first(4))->Light())
                  ->Range(),
              2.0);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataTransformRoundTable*>(first(5))->Angle(), 90.0);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataTransformBSplineFollower*>(first(6))->PathID(), pathID);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera*>(first(7))->Columns(), 3);
    EXPECT_FALSE(dynamic_cast<CTavrinKeyFrameDataHideShow*>(first(8))->Hide());
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataMorph*>(first(9))->Weight(), 0.75);
}

TEST_F(EveryTypeArchive, EveryCutRecordFails) {
    const std::vector<std::uint8_t> bytes = WriteEveryKind();
    FileVersionScope file(NewestArchiveVersion);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        TestReader reader(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + length), NewestArchiveVersion);
        CTavrinKeyFrameManager read;
        EXPECT_FALSE(read.ArchiveReadWrite(reader.archive())) << "cut at " << length;
    }
}

TEST_F(EveryTypeArchive, DamagedBytesNeverCrash) {
    const std::vector<std::uint8_t> bytes = WriteEveryKind();
    FileVersionScope file(NewestArchiveVersion);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (std::uint8_t flip : {std::uint8_t(0xFF), std::uint8_t(0x80)}) {
            std::vector<std::uint8_t> damaged = bytes;
            damaged[at] ^= flip;
            TestReader reader(damaged, NewestArchiveVersion);
            CTavrinKeyFrameManager read;
            read.ArchiveReadWrite(reader.archive());
            // Whatever was read must still evaluate and apply.
            for (const auto& [entity, track] : read.Tracks()) {
                for (const auto& [frame, data] : track) {
                    data->Apply();
                    read.KeyFrameDataAt(entity, frame);
                }
            }
        }
    }
}

TEST_F(EveryTypeArchive, DamagedSequenceContainersNeverCrash) {
    CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer());
    CTavrinSequenceContainer& container = *CTavrinSequenceContainer::GetInstance();
    CTavrinSequence* sequence = CTavrinSequence::Create();
    container.AddSequence(sequence);
    sequence->SetGroup(container.CreateGroup());
    sequence->SetPreviewImageFile(CTavrinString("preview.png"));
    FillEveryKind(*sequence);
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(container.WriteIntoArchive(writer.archive()));
    const std::vector<std::uint8_t> bytes = writer.Bytes();
    CTavrinSequenceContainer::SetInstance(nullptr);

    FileVersionScope file(NewestArchiveVersion);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::vector<std::uint8_t> damaged = bytes;
        damaged[at] ^= 0xFF;
        TestReader reader(damaged, NewestArchiveVersion);
        CTavrinSequenceContainer read;
        read.ReadFromArchive(reader.archive());
        TestReader cut(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + at), NewestArchiveVersion);
        CTavrinSequenceContainer readCut;
        EXPECT_FALSE(readCut.ReadFromArchive(cut.archive())) << "cut at " << at;
    }
}
