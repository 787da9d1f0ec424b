#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"

#include "TavrinAnimation/src/TavrinProcessWideInstance.h"
#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinArchive.h"

namespace Tavrin {

namespace {
CTavrinAnimationCollapsingGroup* s_currentSceneStatesGroup = nullptr;
int s_sceneStatesGroupCounter = 0;
} // namespace

CTavrinSceneStatesContainer::CTavrinSceneStatesContainer()
    : m_defaultGroup(std::make_unique<CTavrinAnimationCollapsingGroup>(CTavrinUUID(), CTavrinString("Default"), -1)) {
    s_currentSceneStatesGroup = m_defaultGroup.get();
}

CTavrinSceneStatesContainer::~CTavrinSceneStatesContainer() {
    // The current group must not outlive the container that owns it.
    if (HoldsCollapsingGroup(m_groups, *m_defaultGroup, s_currentSceneStatesGroup))
        s_currentSceneStatesGroup = nullptr;
}

CTavrinSceneStatesContainer* CTavrinSceneStatesContainer::GetInstance() {
    return CTavrinProcessWideInstance<CTavrinSceneStatesContainer>::Get();
}

void CTavrinSceneStatesContainer::SetInstance(CTavrinSceneStatesContainer* instance) {
    CTavrinProcessWideInstance<CTavrinSceneStatesContainer>::Set(instance);
}

CTavrinAnimationCollapsingGroup* CTavrinSceneStatesContainer::CurrentGroup() {
    return s_currentSceneStatesGroup;
}

void CTavrinSceneStatesContainer::AddSceneState(CTavrinSceneState* state) {
    if (state)
        m_sceneStates.try_emplace(state->Guid(), state);
}

CTavrinSceneState* CTavrinSceneStatesContainer::FindSceneState(const CTavrinUUID& uuid) const {
    const auto state = m_sceneStates.find(uuid);
    return state == m_sceneStates.end() ? nullptr : state->second.get();
}

CTavrinAnimationCollapsingGroup* CTavrinSceneStatesContainer::CreateGroup() {
    return CreateCollapsingGroup(m_groups, s_sceneStatesGroupCounter);
}

CTavrinAnimationCollapsingGroup* CTavrinSceneStatesContainer::FindGroup(const CTavrinUUID& uuid) const {
    const auto group = m_groups.find(uuid);
    if (group != m_groups.end())
        return group->second.get();
    return uuid == m_defaultGroup->Guid() ? m_defaultGroup.get() : nullptr;
}

bool CTavrinSceneStatesContainer::WriteIntoArchive(CTavrinArchiveBase& archive) {
    int count = 0;
    for (const auto& entry : m_sceneStates)
        count += entry.second->IsNotSaved() ? 0 : 1;
    if (!archive.ReadWrite(count))
        return false;
    for (auto& entry : m_sceneStates) {
        if (!entry.second->IsNotSaved() && !entry.second->ArchiveReadWrite(archive))
            return false;
    }
    if (archive.Version() < SequenceGroupsVersion)
        return true;
    return WriteCollapsingGroups(archive, m_groups, *m_defaultGroup, s_currentSceneStatesGroup,
                                 [this](const CTavrinUUID& uuid) {
                                     const CTavrinSceneState* state = FindSceneState(uuid);
                                     return state && !state->IsNotSaved();
                                 });
}

bool CTavrinSceneStatesContainer::ReadFromArchive(CTavrinArchiveBase& archive) {
    CTavrinID::SetReadingTavFile(true);
    m_defaultGroupStates.clear();
    m_defaultCaption = m_defaultGroup->Caption();

    int count = 0;
    bool read = archive.ReadWrite(count);
    for (int i = 0; read && i < count; ++i) {
        CTavrinSceneStatePtr state(CTavrinSceneState::ReadSceneState(archive));
        read = state != nullptr;
        if (!read)
            break;
        m_sceneStates[state->Guid()] = state;
        if (!state->GroupGuid().IsValid())
            m_defaultGroupStates.push_back(state);
    }
    if (read && archive.Version() >= SequenceGroupsVersion) {
        CTavrinUUID current;
        read = ReadCollapsingGroups(archive, m_groups, *m_defaultGroup, current);
        if (read)
            s_currentSceneStatesGroup = FindGroup(current);
    }
    CTavrinID::SetReadingTavFile(false);
    return read;
}

} // namespace Tavrin
