#include "TavrinAnimation/src/TavrinAnimationCollapsingGroup.h"

#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinArchive.h"

#include <vector>

namespace Tavrin {

CTavrinAnimationCollapsingGroup::CTavrinAnimationCollapsingGroup(const CTavrinUUID& uuid, CTavrinString caption,
                                                                 int order)
    : m_uuid(uuid), m_caption(caption), m_order(order) {}

void CTavrinAnimationCollapsingGroup::AddSequence(CTavrinSequence* sequence) {
    if (sequence)
        m_sequences.insert(sequence->Guid());
}

void CTavrinAnimationCollapsingGroup::RemoveSequence(CTavrinSequence* sequence) {
    if (sequence)
        m_sequences.erase(sequence->Guid());
}

bool CTavrinAnimationCollapsingGroup::WriteRecord(CTavrinArchiveBase& archive,
                                                  const std::function<bool(const CTavrinUUID&)>& isWritten) {
    if (archive.Version() < SequenceGroupsVersion || !archive.IsDocumentArchive())
        return true;
    std::vector<CTavrinUUID> written;
    for (const CTavrinUUID& uuid : m_sequences) {
        if (isWritten(uuid))
            written.push_back(uuid);
    }
    unsigned int count = static_cast<unsigned int>(written.size());
    if (!archive.ReadWrite(m_uuid) || !archive.ReadWrite(m_caption) || !archive.ReadWrite(m_order) ||
        !archive.ReadWrite(count))
        return false;
    for (CTavrinUUID& uuid : written) {
        if (!archive.ReadWrite(uuid))
            return false;
    }
    return true;
}

bool CTavrinAnimationCollapsingGroup::ReadRecord(CTavrinArchiveBase& archive) {
    if (archive.Version() < SequenceGroupsVersion || !archive.IsDocumentArchive())
        return true;
    unsigned int count = 0;
    if (!archive.ReadWrite(m_uuid) || !archive.ReadWrite(m_caption) || !archive.ReadWrite(m_order) ||
        !archive.ReadWrite(count))
        return false;
    for (unsigned int i = 0; i < count; ++i) {
        CTavrinUUID uuid;
        if (!archive.ReadWrite(uuid))
            return false;
        m_sequences.insert(uuid);
    }
    return true;
}

} // namespace Tavrin
