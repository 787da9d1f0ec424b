#include "TavrinAnimation/src/TavrinSequenceContainer.h"

#include "TavrinAnimation/src/TavrinCollapsingGroupRecords.h"
#include "TavrinAnimation/src/TavrinProcessWideInstance.h"
#include "host/CTavrinArchive.h"

#include <algorithm>

namespace Tavrin {

namespace {
// Captions new groups Group 1, Group 2, ...; never reset in a process.
int s_groupCounter = 0;
CTavrinAnimationCollapsingGroup* s_currentGroup = nullptr;
} // namespace

CTavrinSequenceContainer::CTavrinSequenceContainer()
    : m_defaultGroup(std::make_unique<CTavrinAnimationCollapsingGroup>(CTavrinUUID(), CTavrinString("Default"), -1)) {
    s_currentGroup = m_defaultGroup.get();
}

CTavrinSequenceContainer::~CTavrinSequenceContainer() {
    // The current group must not outlive the container that owns it.
    if (HoldsCollapsingGroup(m_groups, *m_defaultGroup, s_currentGroup))
        s_currentGroup = nullptr;
}

CTavrinSequenceContainer* CTavrinSequenceContainer::GetInstance() {
    return CTavrinProcessWideInstance<CTavrinSequenceContainer>::Get();
}

void CTavrinSequenceContainer::SetInstance(CTavrinSequenceContainer* instance) {
    CTavrinProcessWideInstance<CTavrinSequenceContainer>::Set(instance);
}

CTavrinAnimationCollapsingGroup* CTavrinSequenceContainer::CurrentGroup() {
    return s_currentGroup;
}

void CTavrinSequenceContainer::SetCurrentGroup(CTavrinAnimationCollapsingGroup* group) {
    s_currentGroup = group;
}

void CTavrinSequenceContainer::AddSequence(CTavrinSequence* sequence) {
    if (!sequence)
        return;
    m_sequences.try_emplace(sequence->Guid(), sequence);
    if (!m_accumulate)
        m_recentlyAdded.clear();
    m_recentlyAdded.push_back(sequence);
}

void CTavrinSequenceContainer::RemoveSequence(CTavrinSequence* sequence) {
    if (!sequence)
        return;
    const CTavrinUUID uuid = sequence->Guid();
    m_defaultGroup->RemoveMember(uuid);
    for (auto& entry : m_groups)
        entry.second->RemoveMember(uuid);
    ForgetRecentlyAdded(sequence);
    m_defaultGroupSequences.erase(std::remove_if(m_defaultGroupSequences.begin(), m_defaultGroupSequences.end(),
                                                 [sequence](const CTavrinSequencePtr& listed) {
                                                     return listed.get() == sequence;
                                                 }),
                                  m_defaultGroupSequences.end());
    // Last, as dropping this reference may destroy the sequence; another
    // sequence registered under the same UUID stays.
    const auto registered = m_sequences.find(uuid);
    if (registered != m_sequences.end() && registered->second.get() == sequence)
        m_sequences.erase(registered);
}

void CTavrinSequenceContainer::ForgetRecentlyAdded(const CTavrinSequence* sequence) {
    m_recentlyAdded.erase(std::remove(m_recentlyAdded.begin(), m_recentlyAdded.end(), sequence),
                          m_recentlyAdded.end());
}

CTavrinAnimationCollapsingGroup* CTavrinSequenceContainer::CreateGroup() {
    return CreateCollapsingGroup(m_groups, s_groupCounter);
}

void CTavrinSequenceContainer::RemoveGroup(const CTavrinUUID& uuid) {
    const auto group = m_groups.find(uuid);
    if (group == m_groups.end())
        return;
    if (s_currentGroup == group->second.get())
        s_currentGroup = m_defaultGroup.get();
    m_groups.erase(group);
}

CTavrinAnimationCollapsingGroup* CTavrinSequenceContainer::FindGroup(const CTavrinUUID& uuid) const {
    const auto group = m_groups.find(uuid);
    if (group != m_groups.end())
        return group->second.get();
    return uuid == m_defaultGroup->Guid() ? m_defaultGroup.get() : nullptr;
}

CTavrinSequence* CTavrinSequenceContainer::FindSequence(const CTavrinUUID& uuid) const {
    const auto sequence = m_sequences.find(uuid);
    return sequence == m_sequences.end() ? nullptr : sequence->second.get();
}

bool CTavrinSequenceContainer::WriteIntoArchive(CTavrinArchiveBase& archive) {
    int count = 0;
    for (const auto& entry : m_sequences)
        count += entry.second->IsNotSaved() ? 0 : 1;
    if (!archive.ReadWrite(count))
        return false;
    for (auto& entry : m_sequences) {
        if (!entry.second->IsNotSaved() && !entry.second->ArchiveReadWrite(archive))
            return false;
    }
    if (archive.Version() < SequenceGroupsVersion)
        return true;
    return WriteCollapsingGroups(archive, m_groups, *m_defaultGroup, s_currentGroup, [this](const CTavrinUUID& uuid) {
        const CTavrinSequence* sequence = FindSequence(uuid);
        return sequence && !sequence->IsNotSaved();
    });
}

bool CTavrinSequenceContainer::ReadFromArchive(CTavrinArchiveBase& archive) {
    CTavrinID::SetReadingTavFile(true);
    m_defaultGroupSequences.clear();
    m_defaultCaption = m_defaultGroup->Caption();

    bool read = true;
    int count = 0;
    read = archive.ReadWrite(count);
    for (int i = 0; read && i < count; ++i) {
        CTavrinSequencePtr sequence(CTavrinSequence::ReadSequence(archive));
        read = sequence != nullptr;
        if (!read)
            break;
        CTavrinSequencePtr& registered = m_sequences[sequence->Guid()];
        // The recently added list holds no references: a sequence about to
        // be replaced, and so perhaps destroyed, must leave it first.
        if (registered)
            ForgetRecentlyAdded(registered.get());
        registered = sequence;
        if (!sequence->GroupGuid().IsValid())
            m_defaultGroupSequences.push_back(sequence);
    }
    if (read && archive.Version() >= SequenceGroupsVersion) {
        CTavrinUUID current;
        read = ReadCollapsingGroups(archive, m_groups, *m_defaultGroup, current);
        if (read)
            s_currentGroup = FindGroup(current);
    }
    CTavrinID::SetReadingTavFile(false);
    return read;
}

} // namespace Tavrin
