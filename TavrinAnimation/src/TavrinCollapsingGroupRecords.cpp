#include "TavrinAnimation/src/TavrinCollapsingGroupRecords.h"

#include "host/CTavrinArchive.h"

namespace Tavrin {

bool WriteCollapsingGroups(CTavrinArchiveBase& archive, CollapsingGroupMap& groups,
                           CTavrinAnimationCollapsingGroup& defaultGroup,
                           const CTavrinAnimationCollapsingGroup* current,
                           const std::function<bool(const CTavrinUUID&)>& isWritten) {
    unsigned int groupCount = 0;
    for (const auto& entry : groups)
        groupCount += entry.second->IsNotSaved() ? 0 : 1;
    if (!archive.ReadWrite(groupCount))
        return false;
    for (auto& entry : groups) {
        if (!entry.second->IsNotSaved() && !entry.second->WriteRecord(archive, isWritten))
            return false;
    }
    if (!defaultGroup.WriteRecord(archive, isWritten))
        return false;
    CTavrinUUID currentUUID = current ? current->Guid() : defaultGroup.Guid();
    return archive.ReadWrite(currentUUID);
}

bool ReadCollapsingGroups(CTavrinArchiveBase& archive, CollapsingGroupMap& groups,
                          CTavrinAnimationCollapsingGroup& defaultGroup, CTavrinUUID& current) {
    unsigned int groupCount = 0;
    if (!archive.ReadWrite(groupCount))
        return false;
    for (unsigned int i = 0; i < groupCount; ++i) {
        CTavrinAnimationCollapsingGroup group;
        if (!group.ReadRecord(archive))
            return false;
        // A group read under the UUID of one already held takes over that
        // object rather than its place in the map: the current group, and any
        // group the application holds, must stay alive whether or not the rest
        // of the record can be read.
        const CTavrinUUID uuid = group.Guid();
        const auto held = groups.find(uuid);
        if (held != groups.end())
            *held->second = std::move(group);
        else
            groups.emplace(uuid, std::make_unique<CTavrinAnimationCollapsingGroup>(std::move(group)));
    }
    // Read into a copy, so that a record cut short leaves the default group
    // as it was rather than half read.
    CTavrinAnimationCollapsingGroup readDefaultGroup = defaultGroup;
    if (!readDefaultGroup.ReadRecord(archive))
        return false;
    defaultGroup = std::move(readDefaultGroup);
    return archive.ReadWrite(current);
}

bool HoldsCollapsingGroup(const CollapsingGroupMap& groups, const CTavrinAnimationCollapsingGroup& defaultGroup,
                          const CTavrinAnimationCollapsingGroup* group) {
    if (group == &defaultGroup)
        return true;
    for (const auto& entry : groups) {
        if (entry.second.get() == group)
            return true;
    }
    return false;
}

CTavrinAnimationCollapsingGroup* CreateCollapsingGroup(CollapsingGroupMap& groups, int& counter) {
    CTavrinUUID uuid;
    // A generated UUID that is already a key would leave the new group
    // without an owner; draw again rather than lose it.
    do {
        uuid.Generate();
    } while (groups.count(uuid));
    auto group = std::make_unique<CTavrinAnimationCollapsingGroup>(
        uuid, CTavrinString("Group ") + CTavrinString(++counter), static_cast<int>(groups.size()));
    CTavrinAnimationCollapsingGroup* created = group.get();
    groups.emplace(uuid, std::move(group));
    return created;
}

} // namespace Tavrin
