#pragma once
// A scene state: a snapshot of the scene kept as key frames (a key frame
// manager) with an identity, sorted into a group of the scene-states
// container.

#include "TavrinAnimation/src/TavrinKeyFrameManager.h"

namespace Tavrin {

class CTavrinAnimationCollapsingGroup;

class CTavrinSceneState : public CTavrinKeyFrameManager {
public:
    // A new state named "Scene State" + a running number, in the default
    // group of the process-wide scene-states container. Not yet registered.
    static CTavrinSceneState* Create();
    // A new state that reads itself; null (and nothing left) on failure.
    static CTavrinSceneState* ReadSceneState(CTavrinArchiveBase& archive);

    // Only in document archives: the manager record, the state's UUID and
    // its group's UUID.
    bool ArchiveReadWrite(CTavrinArchiveBase& archive) override;

    // Generated first when not valid.
    CTavrinUUID Guid();
    CTavrinUUID GroupGuid() const { return m_groupUUID; }
    // Moves the state from the group it names to group; null does nothing.
    void SetGroup(CTavrinAnimationCollapsingGroup* group);
    // The group of the process-wide container that the state names, or null.
    CTavrinAnimationCollapsingGroup* Group() const;
    bool IsNotSaved() const { return m_notSaved; }
    void SetNotSaved(bool notSaved) { m_notSaved = notSaved; }

private:
    CTavrinUUID m_uuid;
    CTavrinUUID m_groupUUID;
    bool m_notSaved = false;
};

using CTavrinSceneStatePtr = CTavrinPtr<CTavrinSceneState>;

} // namespace Tavrin
