#pragma once
// The names (and, when asked, the types) of an object's named data members, in order.

#include "host/CTavrinDataMembersManager.h"

#include <string>
#include <vector>

inline std::vector<std::string> MemberNames(Tavrin::CTavrinDataMembersManager& object,
                                            std::vector<int>* types = nullptr) {
    std::vector<std::string> names;
    for (int index = 0; index < object.DataMembersCount(); ++index) {
        Tavrin::enumDataMemberType type = Tavrin::DATA_MEMBER_NONE;
        Tavrin::CTavrinString name;
        object.DataMember(index, type, name);
        names.push_back(name.toStdString());
        if (types)
            types->push_back(type);
    }
    return names;
}
