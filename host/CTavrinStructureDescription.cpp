#include "host/CTavrinStructureDescription.h"

#include <map>

namespace Tavrin {

namespace {

bool IsDescribable(int type) {
    return type == DATA_MEMBER_STRING || type == DATA_MEMBER_COLOR || type == DATA_MEMBER_DOUBLE ||
           type == DATA_MEMBER_BOOL || type == DATA_MEMBER_INT;
}

// One value of any describable type, read or written by the archive's
// direction.
struct AnyValue {
    CTavrinString text;
    double components[4] = {0.0, 0.0, 0.0, 1.0};
    bool flag = false;
    int number = 0;

    bool ReadWrite(CTavrinArchiveBase& archive, enumDataMemberType type) {
        switch (type) {
        case DATA_MEMBER_STRING:
            return archive.ReadWrite(text);
        case DATA_MEMBER_COLOR:
            for (double& component : components) {
                if (!archive.ReadWrite(component))
                    return false;
            }
            return true;
        case DATA_MEMBER_DOUBLE:
            return archive.ReadWrite(components[0]);
        case DATA_MEMBER_BOOL:
            return archive.ReadWrite(flag);
        case DATA_MEMBER_INT:
            return archive.ReadWrite(number);
        default:
            return false;
        }
    }

    void Load(const void* member, enumDataMemberType type) {
        switch (type) {
        case DATA_MEMBER_STRING:
            text = *static_cast<const CTavrinString*>(member);
            break;
        case DATA_MEMBER_COLOR: {
            const auto* colour = static_cast<const CTavrinColor*>(member);
            components[0] = colour->R();
            components[1] = colour->G();
            components[2] = colour->B();
            components[3] = colour->A();
            break;
        }
        case DATA_MEMBER_DOUBLE:
            components[0] = *static_cast<const double*>(member);
            break;
        case DATA_MEMBER_BOOL:
            flag = *static_cast<const bool*>(member);
            break;
        default:
            number = *static_cast<const int*>(member);
            break;
        }
    }

    bool AssignTo(CTavrinDataMembersManager& target, int index, enumDataMemberType type) const {
        switch (type) {
        case DATA_MEMBER_STRING:
            return target.DataMemberValueChanged(text, index);
        case DATA_MEMBER_COLOR:
            return target.DataMemberValueChanged(
                CTavrinColor(components[0], components[1], components[2], components[3]), index);
        case DATA_MEMBER_DOUBLE:
            return target.DataMemberValueChanged(components[0], index);
        case DATA_MEMBER_BOOL:
            return target.DataMemberValueChanged(flag, index);
        default:
            return target.DataMemberValueChanged(number, index);
        }
    }
};

} // namespace

CTavrinStructureDescription CTavrinStructureDescription::StructureDescription(CTavrinArchivable* object,
                                                                              unsigned int version) {
    CTavrinStructureDescription description;
    description.m_version = version;
    auto* members = dynamic_cast<CTavrinDataMembersManager*>(object);
    if (!members)
        return description;
    const int count = members->DataMembersCount();
    for (int index = 0; index < count; ++index) {
        enumDataMemberType type = DATA_MEMBER_NONE;
        CTavrinString name;
        if (members->DataMember(index, type, name) && IsDescribable(type))
            description.m_fields.push_back({name, type});
    }
    return description;
}

bool CTavrinStructureDescription::WriteDescribedStructure(CTavrinArchiveBase* archive,
                                                          CTavrinDataMembersManager* object) const {
    // Members are found by name, so a description of another layout still
    // writes a record that it describes.
    std::map<CTavrinString, std::pair<int, enumDataMemberType>> byName;
    const int count = object->DataMembersCount();
    for (int index = 0; index < count; ++index) {
        enumDataMemberType type = DATA_MEMBER_NONE;
        CTavrinString name;
        if (object->DataMember(index, type, name))
            byName.emplace(name, std::make_pair(index, type));
    }
    for (const Field& field : m_fields) {
        AnyValue value;
        const auto member = byName.find(field.name);
        if (member != byName.end() && member->second.second == field.type) {
            enumDataMemberType type = DATA_MEMBER_NONE;
            CTavrinString name;
            value.Load(object->DataMember(member->second.first, type, name), field.type);
        }
        if (!value.ReadWrite(*archive, field.type))
            return false;
    }
    return true;
}

bool CTavrinStructureDescription::ReadDescripedStructureFromArchive(CTavrinArchiveBase* archive,
                                                                    CTavrinDataMembersManager* target) const {
    std::map<CTavrinString, std::pair<int, enumDataMemberType>> byName;
    const int count = target ? target->DataMembersCount() : 0;
    for (int index = 0; index < count; ++index) {
        enumDataMemberType type = DATA_MEMBER_NONE;
        CTavrinString name;
        if (target->DataMember(index, type, name))
            byName.emplace(name, std::make_pair(index, type));
    }
    for (const Field& field : m_fields) {
        AnyValue value;
        if (!value.ReadWrite(*archive, field.type))
            return false;
        const auto member = byName.find(field.name);
        if (member != byName.end() && member->second.second == field.type)
            value.AssignTo(*target, member->second.first, field.type);
    }
    return true;
}

bool CTavrinStructureDescription::ArchiveDescribedMembers(CTavrinArchiveBase& archive,
                                                          CTavrinDataMembersManager& object) {
    const CTavrinStructureDescription description = StructureDescription(&object, archive.Version());
    return archive.IsReaderArchive() ? description.ReadDescripedStructureFromArchive(&archive, &object)
                                     : description.WriteDescribedStructure(&archive, &object);
}

bool CTavrinStructureDescription::WriteIntoArchive(CTavrinArchiveBase* archive) {
    unsigned int version = m_version;
    int count = static_cast<int>(m_fields.size());
    if (!archive->ReadWrite(version) || !archive->ReadWrite(count))
        return false;
    for (Field& field : m_fields) {
        int type = field.type;
        if (!archive->ReadWrite(field.name) || !archive->ReadWrite(type))
            return false;
    }
    return true;
}

bool CTavrinStructureDescription::ReadFromArchive(CTavrinArchiveBase* archive) {
    m_fields.clear();
    int count = 0;
    if (!archive->ReadWrite(m_version) || !archive->ReadWrite(count) || count < 0)
        return false;
    for (int i = 0; i < count; ++i) {
        Field field;
        int type = DATA_MEMBER_NONE;
        if (!archive->ReadWrite(field.name) || !archive->ReadWrite(type) || !IsDescribable(type))
            return false;
        field.type = static_cast<enumDataMemberType>(type);
        m_fields.push_back(field);
    }
    return true;
}

} // namespace Tavrin
