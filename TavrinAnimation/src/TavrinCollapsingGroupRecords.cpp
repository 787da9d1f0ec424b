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
        auto group = std::make_unique<CTavrinAnimationCollapsingGroup>();
        if (!group->ReadRecord(archive))
            return false;
        const CTavrinUUID uuid = group->Guid();
        groups[uuid] = std::move(group);
    }
    return defaultGroup.ReadRecord(archive) && archive.ReadWrite(current);
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
