// The archivable factory and tables creator that key frames make their
// payloads with: the model's own when the application installed none, the
// application's once it did.

#include "TavrinAnimation/src/TavrinKeyFrameDataLight.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMaterial.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"
#include "ArchiveTestSupport.h"
#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinMaterial.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Tavrin;

namespace {

class CountingTablesCreator : public CTavrinTablesCreator {
public:
    CTavrinBasic3DVectorsTable* CreateBasic3DVectorsTable() const override {
        ++made;
        return new CTavrinBasic3DVectorsTable({CTavrin3DVertex(1, 1, 1)});
    }
    mutable int made = 0;
};

// Copies nothing, as an application's factory may for kinds it does not know.
class RefusingFactory : public CTavrinArchivableFactory {
public:
    CTavrinArchivable* CreateArchivableCopy(const CTavrinArchivable*) const override {
        ++asked;
        return nullptr;
    }
    mutable int asked = 0;
};

// Installs a service for the scope of one test.
template <class Service>
class Installed {
public:
    explicit Installed(Service* service) { Service::SetInstance(service); }
    ~Installed() { Service::SetInstance(nullptr); }
};

} // namespace

TEST(ModelFactories, OwnOnesServeUntilTheApplicationInstallsItsOwn) {
    EXPECT_EQ(CTavrinTablesCreator::GetInstance(), nullptr);
    ASSERT_NE(CTavrinTablesCreator::getInstance(), nullptr);
    ASSERT_NE(CTavrinArchivableFactory::getInstance(), nullptr);
    CountingTablesCreator creator;
    Installed<CTavrinTablesCreator> installed(&creator);
    EXPECT_EQ(CTavrinTablesCreator::getInstance(), &creator);
}

TEST(ModelFactories, OwnFactoryCopiesMaterialsLightsAndTables) {
    const CTavrinArchivableFactory& factory = *CTavrinArchivableFactory::getInstance();
    CTavrinBasicGeneralMaterial material;
    material.SetRoughness(0.125, true);
    std::unique_ptr<CTavrinArchivable> materialCopy(factory.CreateArchivableCopy(&material));
    auto* copiedMaterial = dynamic_cast<CTavrinBasicGeneralMaterial*>(materialCopy.get());
    ASSERT_NE(copiedMaterial, nullptr);
    EXPECT_EQ(copiedMaterial->Values().Value(enumMaterialValue::Roughness)[0], 0.125);
    EXPECT_FALSE(copiedMaterial->Values().WasAssigned(enumMaterialValue::Alpha));

    CTavrinBasicPointLight light;
    light.SetRange(3);
    std::unique_ptr<CTavrinArchivable> lightCopy(factory.CreateArchivableCopy(&light));
    ASSERT_NE(dynamic_cast<CTavrinBasicPointLight*>(lightCopy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<CTavrinBasicPointLight&>(*lightCopy).Range(), 3.0);

    CTavrinBasic3DVectorsTable table({CTavrin3DVertex(1, 2, 3)});
    std::unique_ptr<CTavrinArchivable> tableCopy(factory.CreateArchivableCopy(&table));
    ASSERT_NE(dynamic_cast<CTavrinBasic3DVectorsTable*>(tableCopy.get()), nullptr);
    EXPECT_EQ(dynamic_cast<CTavrinBasic3DVectorsTable&>(*tableCopy).Vectors()[0], CTavrin3DVertex(1, 2, 3));

    CTavrin3DVertex vertex;
    EXPECT_EQ(factory.CreateArchivableCopy(&vertex), nullptr);
}

TEST(ModelFactories, VerticesKeyFramesTakeTheirTablesFromTheInstalledCreator) {
    CountingTablesCreator creator;
    Installed<CTavrinTablesCreator> installed(&creator);
    CTavrinKeyFrameDataPtr made(CreateKeyFrameData(CTavrinID(), KEYFRAME_VERTICES));
    EXPECT_EQ(creator.made, 1);
    EXPECT_EQ(dynamic_cast<CTavrinKeyFrameDataVertices&>(*made).Table(0)->GetCount(), 1);

    CTavrinPtr<CTavrinKeyFrameDataVertices> written(new CTavrinKeyFrameDataVertices(
        CTavrinID(), new CTavrinBasic3DVectorsTable({CTavrin3DVertex(5, 5, 5)})));
    written->AddTable(new CTavrinBasic3DVectorsTable());
    TestWriter writer(NewestArchiveVersion);
    ASSERT_TRUE(written->ArchiveReadWrite(writer.archive()));
    ASSERT_TRUE(ReadBack(writer, *made));
    EXPECT_EQ(creator.made, 3);
}

TEST(ModelFactories, PayloadCopiesGoThroughTheInstalledFactory) {
    RefusingFactory factory;
    Installed<CTavrinArchivableFactory> installed(&factory);
    CTavrinBasicGeneralMaterial* material = CTavrinBasicGeneralMaterial::Create();
    material->SetAlpha(0.5, true);
    CTavrinPtr<CTavrinKeyFrameDataMaterial> key(new CTavrinKeyFrameDataMaterial(CTavrinID(), material));
    CTavrinKeyFrameDataPtr copy(key->CreateCopy(false));
    EXPECT_EQ(factory.asked, 1);
    // Nothing came back: the copy starts from a fresh general material.
    EXPECT_FALSE(dynamic_cast<CTavrinKeyFrameDataMaterial&>(*copy).Material()->Values().WasAssigned(
        enumMaterialValue::Alpha));

    CTavrinPtr<CTavrinKeyFrameDataLight> light(new CTavrinKeyFrameDataLight(CTavrinID(), nullptr));
    CTavrinKeyFrameDataPtr lightCopy(light->CreateCopy(true));
    EXPECT_EQ(factory.asked, 2);
    EXPECT_NE(dynamic_cast<CTavrinKeyFrameDataLight&>(*lightCopy).Light(), nullptr);
}
