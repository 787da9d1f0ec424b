#pragma once
// Key frame data that gives a document's material (the entity) the values
// of a basic material that the key frame owns.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

namespace Tavrin {

class CTavrinBasicMaterial;

class CTavrinKeyFrameDataMaterial : public CTavrinKeyFrameData {
public:
    // Takes ownership of material; null gives a fresh general material.
    CTavrinKeyFrameDataMaterial(const CTavrinID& entity, CTavrinBasicMaterial* material);
    CTavrinKeyFrameDataMaterial(const CTavrinKeyFrameDataMaterial& other);
    ~CTavrinKeyFrameDataMaterial() override;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

    int Type() const override { return KEYFRAME_MATERIAL; }
    // Applies the manager's blend of the entity's track at the working frame.
    void ApplyFromManager(CTavrinKeyFrameManager* manager) override;
    // The entity's material loads a copy of the payload.
    void Apply() override;
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;

    const CTavrinBasicMaterial* Material() const { return m_material; }

private:
    // Replaces (and destroys) the payload.
    void SetMaterial(CTavrinBasicMaterial* material);

    CTavrinBasicMaterial* m_material = nullptr;
};

} // namespace Tavrin
