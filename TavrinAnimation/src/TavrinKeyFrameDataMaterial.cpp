#include "TavrinAnimation/src/TavrinKeyFrameDataMaterial.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"
#include "TavrinAnimation/src/TavrinKeyFrameManager.h"
#include "host/CTavrinArchive.h"
#include "host/CTavrinMaterial.h"
#include "host/CTavrinStructureDescription.h"

#include <memory>

namespace Tavrin {

namespace {
// File version from which the record carries the general part and the
// structure description before the material's own record.
constexpr unsigned int kDescribedMaterialVersion = 10030;

struct MaterialDestroyer {
    void operator()(CTavrinBasicMaterial* material) const { CTavrinBasicMaterial::Destroy(material); }
};
using OwnedMaterial = std::unique_ptr<CTavrinBasicMaterial, MaterialDestroyer>;
} // namespace

CTavrinKeyFrameDataMaterial::CTavrinKeyFrameDataMaterial(const CTavrinID& entity, CTavrinBasicMaterial* material)
    : CTavrinKeyFrameData(entity), m_material(material ? material : CTavrinBasicGeneralMaterial::Create()) {}

CTavrinKeyFrameDataMaterial::CTavrinKeyFrameDataMaterial(const CTavrinKeyFrameDataMaterial& other)
    : CTavrinKeyFrameData(other), m_material(CreateArchivableCopyOf(*other.m_material)) {
    if (!m_material)
        m_material = CTavrinBasicGeneralMaterial::Create();
}

CTavrinKeyFrameDataMaterial::~CTavrinKeyFrameDataMaterial() {
    CTavrinBasicMaterial::Destroy(m_material);
}

void CTavrinKeyFrameDataMaterial::SetMaterial(CTavrinBasicMaterial* material) {
    if (material == m_material)
        return;
    CTavrinBasicMaterial::Destroy(m_material);
    m_material = material;
}

void CTavrinKeyFrameDataMaterial::ApplyFromManager(CTavrinKeyFrameManager* manager) {
    if (!manager)
        return;
    if (CTavrinKeyFrameDataPtr blended = manager->KeyFrameDataAt(EntityID(), WorkingFrame()))
        blended->Apply();
}

void CTavrinKeyFrameDataMaterial::Apply() {
    auto* material = dynamic_cast<CTavrinMaterial*>(EntityID().Entity());
    if (material)
        material->ReplaceWith(*m_material);
}

CTavrinKeyFrameData* CTavrinKeyFrameDataMaterial::CreateCopy(bool atWorkingFrame) const {
    auto* copy = new CTavrinKeyFrameDataMaterial(*this);
    if (atWorkingFrame)
        copy->SetAllFrames(WorkingFrame());
    return copy;
}

bool CTavrinKeyFrameDataMaterial::WriteIntoArchive(CTavrinArchiveBase* archive) {
    CTavrinString typeName = m_material->TypeName();
    CTavrinStructureDescription description =
        CTavrinStructureDescription::StructureDescription(m_material, archive->Version());
    return CTavrinKeyFrameData::WriteIntoArchive(archive) && archive->ReadWrite(typeName) &&
           m_material->ReadWriteGeneralPart(*archive) && description.ArchiveReadWrite(*archive) &&
           m_material->ArchiveReadWrite(*archive);
}

bool CTavrinKeyFrameDataMaterial::ReadFromArchive(CTavrinArchiveBase* archive) {
    CTavrinString typeName;
    if (!CTavrinKeyFrameData::ReadFromArchive(archive) || !archive->ReadWrite(typeName))
        return false;
    OwnedMaterial material(CTavrinBasicMaterial::CreateBasicMaterial(typeName));
    if (FileVersionBeingRead() < kDescribedMaterialVersion) {
        int skipped = 0;
        if (!archive->ReadWrite(skipped) || !material || !material->ArchiveReadWrite(*archive))
            return false;
        SetMaterial(material.release());
        return true;
    }
    OwnedMaterial general(CTavrinBasicGeneralMaterial::Create());
    CTavrinStructureDescription description;
    if (!general->ReadWriteGeneralPart(*archive) || !description.ArchiveReadWrite(*archive))
        return false;
    if (!material) {
        // A kind this program does not know: keep what the general material
        // has a place for.
        if (!description.ReadDescripedStructureFromArchive(archive, general.get()))
            return false;
        SetMaterial(general.release());
        return true;
    }
    material->TakeGeneralPart(*general);
    if (!material->ArchiveReadWrite(*archive))
        return false;
    SetMaterial(material.release());
    return true;
}

} // namespace Tavrin
