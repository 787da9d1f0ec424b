#pragma once
// Every registered sequence of the process and the collapsing groups they are
// sorted into; archived with the document.

#include "TavrinAnimation/src/TavrinCollapsingGroupRecords.h"
#include "TavrinAnimation/src/TavrinSequence.h"

#include <map>
#include <memory>
#include <vector>

namespace Tavrin {

class CTavrinSequenceContainer {
public:
    CTavrinSequenceContainer();
    CTavrinSequenceContainer(const CTavrinSequenceContainer&) = delete;
    CTavrinSequenceContainer& operator=(const CTavrinSequenceContainer&) = delete;
    virtual ~CTavrinSequenceContainer();

    virtual bool ReadFromArchive(CTavrinArchiveBase& archive);
    virtual bool WriteIntoArchive(CTavrinArchiveBase& archive);

    // Registers sequence (taking a reference) unless its UUID is already
    // registered, and makes it the most recently added.
    void AddSequence(CTavrinSequence* sequence);
    // Withdraws sequence, registered or not: no group lists it any more, and
    // the container lets go of every reference to it and mention of it (so
    // that the last reference gone, it is destroyed).
    void RemoveSequence(CTavrinSequence* sequence);
    CTavrinAnimationCollapsingGroup* CreateGroup();
    // Destroys the group under uuid; the default group is never removed.
    // When it was the current group, the default group becomes current.
    void RemoveGroup(const CTavrinUUID& uuid);
    CTavrinAnimationCollapsingGroup* DefaultGroup() const { return m_defaultGroup.get(); }
    // The group under uuid; the default group for its own (invalid) UUID.
    CTavrinAnimationCollapsingGroup* FindGroup(const CTavrinUUID& uuid) const;
    CTavrinSequence* FindSequence(const CTavrinUUID& uuid) const;

    const std::map<CTavrinUUID, CTavrinSequencePtr>& Sequences() const { return m_sequences; }
    size_t GroupCount() const { return m_groups.size(); }
    const CollapsingGroupMap& Groups() const { return m_groups; }
    const std::vector<CTavrinSequence*>& RecentlyAdded() const { return m_recentlyAdded; }
    bool AccumulatesRecentlyAdded() const { return m_accumulate; }
    void SetAccumulatesRecentlyAdded(bool accumulate) { m_accumulate = accumulate; }
    const std::vector<CTavrinSequencePtr>& DefaultGroupSequences() const { return m_defaultGroupSequences; }

    static CTavrinSequenceContainer* GetInstance();
    static void SetInstance(CTavrinSequenceContainer* instance);
    // The group the application's animation panel has selected.
    static CTavrinAnimationCollapsingGroup* CurrentGroup();
    static void SetCurrentGroup(CTavrinAnimationCollapsingGroup* group);

private:
    void ForgetRecentlyAdded(const CTavrinSequence* sequence);

    std::map<CTavrinUUID, CTavrinSequencePtr> m_sequences;
    std::unique_ptr<CTavrinAnimationCollapsingGroup> m_defaultGroup;
    CollapsingGroupMap m_groups;
    std::vector<CTavrinSequence*> m_recentlyAdded;
    bool m_accumulate = false;
    std::vector<CTavrinSequencePtr> m_defaultGroupSequences;
    CTavrinString m_defaultCaption;
};

} // namespace Tavrin
