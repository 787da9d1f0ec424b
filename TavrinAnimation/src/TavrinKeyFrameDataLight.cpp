#include "TavrinAnimation/src/TavrinKeyFrameDataLight.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinStructureDescription.h"

#include <memory>

namespace Tavrin {

namespace {
// File version from which the light's record follows its structure
// description; before it an int32 led the light's own record.
constexpr unsigned int kDescribedLightVersion = 10030;

struct LightDestroyer {
    void operator()(CTavrinBasicLight* light) const { CTavrinBasicLight::Destroy(light); }
};
using OwnedLight = std::unique_ptr<CTavrinBasicLight, LightDestroyer>;
} // namespace

CTavrinKeyFrameDataLight::CTavrinKeyFrameDataLight(const CTavrinID& entity, CTavrinBasicLight* light)
    : CTavrinKeyFrameData(entity), m_light(light ? light : new CTavrinBasicPointLight()) {}

CTavrinKeyFrameDataLight::CTavrinKeyFrameDataLight(const CTavrinKeyFrameDataLight& other)
    : CTavrinKeyFrameData(other), m_light(CreateArchivableCopyOf(*other.m_light)) {
    if (!m_light)
        m_light = new CTavrinBasicPointLight();
}

CTavrinKeyFrameDataLight::~CTavrinKeyFrameDataLight() {
    CTavrinBasicLight::Destroy(m_light);
}

void CTavrinKeyFrameDataLight::SetLight(CTavrinBasicLight* light) {
    if (light == m_light)
        return;
    CTavrinBasicLight::Destroy(m_light);
    m_light = light;
}

bool CTavrinKeyFrameDataLight::IsSavable() {
    const auto* light = dynamic_cast<const CTavrinLight*>(OriginalEntityID().Entity());
    return light && light->NumberOfUndeletedLightSourcesReferencingThisLight() != 0;
}

void CTavrinKeyFrameDataLight::ApplyFromManager(CTavrinKeyFrameManager* manager) {
    if (!manager)
        return;
    if (CTavrinKeyFrameDataPtr blended = manager->KeyFrameDataAt(EntityID(), WorkingFrame()))
        blended->Apply();
}

void CTavrinKeyFrameDataLight::Apply() {
    auto* light = dynamic_cast<CTavrinLight*>(EntityID().Entity());
    if (!light)
        return;
    if (CTavrinBasicLight* copy = m_light->CreateCopy())
        light->LoadBasicLight(copy);
}

CTavrinKeyFrameData* CTavrinKeyFrameDataLight::CreateCopy(bool atWorkingFrame) const {
    auto* copy = new CTavrinKeyFrameDataLight(*this);
    if (atWorkingFrame)
        copy->SetAllFrames(WorkingFrame());
    return copy;
}

bool CTavrinKeyFrameDataLight::WriteIntoArchive(CTavrinArchiveBase* archive) {
    CTavrinString typeName = m_light->TypeName();
    CTavrinStructureDescription description =
        CTavrinStructureDescription::StructureDescription(m_light, archive->Version());
    return CTavrinKeyFrameData::WriteIntoArchive(archive) && archive->ReadWrite(typeName) &&
           description.ArchiveReadWrite(*archive) && m_light->ArchiveReadWrite(*archive);
}

bool CTavrinKeyFrameDataLight::ReadFromArchive(CTavrinArchiveBase* archive) {
    CTavrinString typeName;
    if (!CTavrinKeyFrameData::ReadFromArchive(archive) || !archive->ReadWrite(typeName))
        return false;
    OwnedLight light(CTavrinBasicLight::CreateBasicLight(typeName));
    if (FileVersionBeingRead() < kDescribedLightVersion) {
        int skipped = 0;
        if (!archive->ReadWrite(skipped) || !light || !light->ArchiveReadWrite(*archive))
            return false;
        SetLight(light.release());
        return true;
    }
    CTavrinStructureDescription description;
    if (!description.ArchiveReadWrite(*archive))
        return false;
    if (light) {
        if (!light->ArchiveReadWrite(*archive))
            return false;
        SetLight(light.release());
        return true;
    }
    // A kind this program does not know: a point light keeps what it has a
    // place for.
    OwnedLight point(new CTavrinBasicPointLight());
    if (!description.ReadDescripedStructureFromArchive(archive, point.get()))
        return false;
    SetLight(point.release());
    return true;
}

} // namespace Tavrin
