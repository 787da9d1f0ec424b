#pragma once
// A named, ordered group that sequences (or scene states) are sorted into in
// the application's animation panel. Owned by its container.

#include "host/CTavrinString.h"
#include "host/CTavrinUUID.h"

#include <functional>
#include <set>

namespace Tavrin {

class CTavrinArchiveBase;
class CTavrinSequence;

class CTavrinAnimationCollapsingGroup {
public:
    CTavrinAnimationCollapsingGroup() = default;
    CTavrinAnimationCollapsingGroup(const CTavrinUUID& uuid, CTavrinString caption, int order);

    CTavrinUUID Guid() const { return m_uuid; }
    CTavrinString Caption() const { return m_caption; }
    void SetCaption(CTavrinString caption) { m_caption = caption; }
    int Order() const { return m_order; }
    void SetOrder(int order) { m_order = order; }
    bool IsNotSaved() const { return m_notSaved; }
    void SetNotSaved(bool notSaved) { m_notSaved = notSaved; }

    void AddSequence(CTavrinSequence* sequence);
    void RemoveSequence(CTavrinSequence* sequence);
    // Members by UUID, for containers of other things than sequences.
    void AddMember(const CTavrinUUID& uuid) { m_sequences.insert(uuid); }
    void RemoveMember(const CTavrinUUID& uuid) { m_sequences.erase(uuid); }
    const std::set<CTavrinUUID>& SequenceGuids() const { return m_sequences; }

    // Lists only the members that the container registers and writes.
    bool WriteRecord(CTavrinArchiveBase& archive, const std::function<bool(const CTavrinUUID&)>& isWritten);
    bool ReadRecord(CTavrinArchiveBase& archive);

private:
    CTavrinUUID m_uuid;
    CTavrinString m_caption;
    int m_order = -1;
    std::set<CTavrinUUID> m_sequences;
    bool m_notSaved = false;
};

} // namespace Tavrin
