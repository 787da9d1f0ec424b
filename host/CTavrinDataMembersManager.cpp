#include "host/CTavrinDataMembersManager.h"

namespace Tavrin {

bool CTavrinDataMembersManager::ReadFromArchive(CTavrinArchiveBase* archive)
{
    return archive->ReadString(m_name) && archive->ReadString(m_displayName);
}

bool CTavrinDataMembersManager::WriteIntoArchive(CTavrinArchiveBase* archive)
{
    return archive->WriteString(m_name) && archive->WriteString(m_displayName);
}

CTavrinDataMembersManager* CTavrinDataMembersManager::MakeCopy() const
{
    return nullptr;
}

bool CTavrinDataMembersManager::RestoreFromCopy(const CTavrinDataMembersManager* copy)
{
    if (!copy)
        return false;
    m_name = copy->m_name;
    m_displayName = copy->m_displayName;
    return true;
}

void* CTavrinDataMembersManager::DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name,
                                                  bool changed)
{
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = m_named ? 1 : 0;
        return nullptr;
    }
    if (m_named && index == 0) {
        type = DATA_MEMBER_STRING;
        name = "Name";
        return &m_name;
    }
    type = DATA_MEMBER_NONE;
    return nullptr;
}

int CTavrinDataMembersManager::DataMembersCount()
{
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, type, name, false);
    return m_dataMembersCount;
}

void* CTavrinDataMembersManager::DataMember(int index, enumDataMemberType& type, CTavrinString& name)
{
    if (index < 0) {
        type = DATA_MEMBER_NONE;
        return nullptr;
    }
    return DataMemberSearch(index, type, name, false);
}

template <class T>
bool CTavrinDataMembersManager::AssignMember(const T& value, int index, enumDataMemberType expected)
{
    enumDataMemberType type = DATA_MEMBER_NONE;
    CTavrinString name;
    void* member = DataMember(index, type, name);
    if (!member || type != expected)
        return false;
    *static_cast<T*>(member) = value;
    DataMemberSearch(index, type, name, true);
    return true;
}

bool CTavrinDataMembersManager::DataMemberValueChanged(const CTavrinColor& value, int index)
{
    return AssignMember(value, index, DATA_MEMBER_COLOR);
}

bool CTavrinDataMembersManager::DataMemberValueChanged(const CTavrinString& value, int index)
{
    return AssignMember(value, index, DATA_MEMBER_STRING);
}

bool CTavrinDataMembersManager::DataMemberValueChanged(double value, int index)
{
    return AssignMember(value, index, DATA_MEMBER_DOUBLE);
}

bool CTavrinDataMembersManager::DataMemberValueChanged(bool value, int index)
{
    return AssignMember(value, index, DATA_MEMBER_BOOL);
}

bool CTavrinDataMembersManager::DataMemberValueChanged(int value, int index)
{
    return AssignMember(value, index, DATA_MEMBER_INT);
}

} // namespace Tavrin
