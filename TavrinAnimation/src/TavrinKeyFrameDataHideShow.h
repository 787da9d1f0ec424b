#pragma once
// Key frame data that hides or shows a scene node and everything below it.
// Visibility steps from one key frame to the next; it never blends.

#include "TavrinAnimation/src/TavrinKeyFrameData.h"

namespace Tavrin {

class CTavrinKeyFrameDataHideShow : public CTavrinKeyFrameData {
public:
    CTavrinKeyFrameDataHideShow(const CTavrinID& entity, bool hide);
    CTavrinKeyFrameDataHideShow(const CTavrinKeyFrameDataHideShow& other) = default;

    bool ArchiveReadWrite(CTavrinArchiveBase& archive) override;

    int Type() const override { return KEYFRAME_HIDE_SHOW; }
    void ApplyFromManager(CTavrinKeyFrameManager*) override {}
    void Apply() override;
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;

    bool Hide() const { return m_hide; }
    void SetHide(bool hide) { m_hide = hide; }

private:
    bool m_hide = false;
};

} // namespace Tavrin
