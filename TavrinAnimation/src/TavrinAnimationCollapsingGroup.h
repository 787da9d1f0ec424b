#pragma once
// A named, ordered group that sequences are sorted into in the application's
// animation panel. Owned by the sequence container.

#include "host/CTavrinString.h"
#include "host/CTavrinUUID.h"

#include <set>

namespace Tavrin {

class CTavrinArchiveBase;
class CTavrinSequence;
class CTavrinSequenceContainer;

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
    const std::set<CTavrinUUID>& SequenceGuids() const { return m_sequences; }

    // Lists only the sequences that container registers and writes.
    bool WriteRecord(CTavrinArchiveBase& archive, const CTavrinSequenceContainer& container);
    bool ReadRecord(CTavrinArchiveBase& archive);

private:
    CTavrinUUID m_uuid;
    CTavrinString m_caption;
    int m_order = -1;
    std::set<CTavrinUUID> m_sequences;
    bool m_notSaved = false;
};

} // namespace Tavrin
