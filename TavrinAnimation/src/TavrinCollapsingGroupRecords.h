#pragma once
// The part of a container's record that holds its collapsing groups: shared
// by the sequence container and the scene-states container.

#include "TavrinAnimation/src/TavrinAnimationCollapsingGroup.h"

#include <functional>
#include <map>
#include <memory>

namespace Tavrin {

using CollapsingGroupMap = std::map<CTavrinUUID, std::unique_ptr<CTavrinAnimationCollapsingGroup>>;

// The number of saved groups (uint32), their records in UUID order, the
// default group's record, then the UUID of the current group (the default
// group's when there is none). isWritten tells which members are listed.
bool WriteCollapsingGroups(CTavrinArchiveBase& archive, CollapsingGroupMap& groups,
                           CTavrinAnimationCollapsingGroup& defaultGroup,
                           const CTavrinAnimationCollapsingGroup* current,
                           const std::function<bool(const CTavrinUUID&)>& isWritten);

// Reads what WriteCollapsingGroups wrote: each group read replaces the
// content of the one under its UUID, in place; current receives the UUID of
// the current group. Groups are never destroyed, so a read that fails leaves
// every group pointer valid.
bool ReadCollapsingGroups(CTavrinArchiveBase& archive, CollapsingGroupMap& groups,
                          CTavrinAnimationCollapsingGroup& defaultGroup, CTavrinUUID& current);

// Whether group is one of a container's own, found by address alone, so that
// a pointer to a group already gone may be asked about.
bool HoldsCollapsingGroup(const CollapsingGroupMap& groups, const CTavrinAnimationCollapsingGroup& defaultGroup,
                          const CTavrinAnimationCollapsingGroup* group);

// A new group "Group " + the next value of counter, with a fresh UUID and
// the next order index, owned by groups.
CTavrinAnimationCollapsingGroup* CreateCollapsingGroup(CollapsingGroupMap& groups, int& counter);

} // namespace Tavrin
