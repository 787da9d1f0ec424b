#include "TavrinAnimation/src/TavrinSceneState.h"

#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"
#include "host/CTavrinArchive.h"

namespace Tavrin {

namespace {
// Names new states Scene State1, Scene State2, ...; never reset in a process.
int s_sceneStateCounter = 0;
} // namespace

CTavrinSceneState* CTavrinSceneState::Create() {
    auto* state = new CTavrinSceneState();
    state->SetName(CTavrinString("Scene State") + CTavrinString(++s_sceneStateCounter));
    state->SetGroup(CTavrinSceneStatesContainer::GetInstance()->DefaultGroup());
    return state;
}

CTavrinSceneState* CTavrinSceneState::ReadSceneState(CTavrinArchiveBase& archive) {
    auto* state = new CTavrinSceneState();
    if (state->ArchiveReadWrite(archive))
        return state;
    delete state;
    return nullptr;
}

bool CTavrinSceneState::ArchiveReadWrite(CTavrinArchiveBase& archive) {
    if (!archive.IsDocumentArchive())
        return true;
    return CTavrinKeyFrameManager::ArchiveReadWrite(archive) && archive.ReadWrite(m_uuid) &&
           archive.ReadWrite(m_groupUUID);
}

CTavrinUUID CTavrinSceneState::Guid() {
    if (!m_uuid.IsValid())
        m_uuid.Generate();
    return m_uuid;
}

void CTavrinSceneState::SetGroup(CTavrinAnimationCollapsingGroup* group) {
    if (!group)
        return;
    if (CTavrinAnimationCollapsingGroup* previous = Group())
        previous->RemoveMember(Guid());
    m_groupUUID = group->Guid();
    group->AddMember(Guid());
}

CTavrinAnimationCollapsingGroup* CTavrinSceneState::Group() const {
    return CTavrinSceneStatesContainer::GetInstance()->FindGroup(m_groupUUID);
}

} // namespace Tavrin
