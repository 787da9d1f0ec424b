#pragma once
// The process-wide container of the application's scene states and the
// collapsing groups they are sorted into; archived with the document in the
// layout of the sequence container. The import never reaches the scene
// states; the plug-in keeps the container so that the application can
// install its own instance.

#include "TavrinAnimation/src/TavrinCollapsingGroupRecords.h"
#include "TavrinAnimation/src/TavrinSceneState.h"

#include <map>
#include <memory>
#include <vector>

namespace Tavrin {

class CTavrinSceneStatesContainer {
public:
    CTavrinSceneStatesContainer();
    CTavrinSceneStatesContainer(const CTavrinSceneStatesContainer&) = delete;
    CTavrinSceneStatesContainer& operator=(const CTavrinSceneStatesContainer&) = delete;
    virtual ~CTavrinSceneStatesContainer();

    // The saved states' count (int32) and records in UUID order; from 11012
    // on, the groups as the sequence container writes them.
    virtual bool ReadFromArchive(CTavrinArchiveBase& archive);
    virtual bool WriteIntoArchive(CTavrinArchiveBase& archive);

    // Registers state (taking a reference) unless its UUID is already registered.
    void AddSceneState(CTavrinSceneState* state);
    CTavrinSceneState* FindSceneState(const CTavrinUUID& uuid) const;
    const std::map<CTavrinUUID, CTavrinSceneStatePtr>& SceneStates() const { return m_sceneStates; }
    // The states read from an archive that belong to the default group.
    const std::vector<CTavrinSceneStatePtr>& DefaultGroupSceneStates() const { return m_defaultGroupStates; }

    // "Group " + a running number of the scene-states container's own.
    CTavrinAnimationCollapsingGroup* CreateGroup();
    CTavrinAnimationCollapsingGroup* DefaultGroup() const { return m_defaultGroup.get(); }
    // The group under uuid; the default group for its own (invalid) UUID.
    CTavrinAnimationCollapsingGroup* FindGroup(const CTavrinUUID& uuid) const;
    size_t GroupCount() const { return m_groups.size(); }

    static CTavrinSceneStatesContainer* GetInstance();
    static void SetInstance(CTavrinSceneStatesContainer* instance);
    static CTavrinAnimationCollapsingGroup* CurrentGroup();

private:
    std::map<CTavrinUUID, CTavrinSceneStatePtr> m_sceneStates;
    CollapsingGroupMap m_groups;
    std::unique_ptr<CTavrinAnimationCollapsingGroup> m_defaultGroup;
    std::vector<CTavrinSceneStatePtr> m_defaultGroupStates;
    CTavrinString m_defaultCaption;
};

} // namespace Tavrin
