#pragma once
// Key frame data that gives a document's light (the entity) the values of a
// basic light that the key frame owns.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

namespace Tavrin {

class CTavrinBasicLight;

class CTavrinKeyFrameDataLight : public CTavrinKeyFrameData {
public:
    // Takes ownership of light; null gives a new point light.
    CTavrinKeyFrameDataLight(const CTavrinID& entity, CTavrinBasicLight* light);
    CTavrinKeyFrameDataLight(const CTavrinKeyFrameDataLight& other);
    ~CTavrinKeyFrameDataLight() override;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

    int Type() const override { return KEYFRAME_LIGHT; }
    // Applies the manager's blend of the entity's track at the working frame.
    void ApplyFromManager(CTavrinKeyFrameManager* manager) override;
    // The entity's light loads a copy of the payload.
    void Apply() override;
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;
    // Worth saving only while a light source still shines the light that the
    // key frame was made for.
    bool IsSavable() override;

    const CTavrinBasicLight* Light() const { return m_light; }

private:
    void SetLight(CTavrinBasicLight* light);

    CTavrinBasicLight* m_light = nullptr;
};

} // namespace Tavrin
