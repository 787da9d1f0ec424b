#pragma once

#include "host/CTavrinReferenced.h"
#include "host/CTavrinSmallValues.h"

namespace Tavrin {

enum enumDataMemberType {
    DATA_MEMBER_NONE = 0,
    DATA_MEMBER_STRING = 1,
    DATA_MEMBER_COLOR = 2,
    DATA_MEMBER_NORMAL = 8,
    DATA_MEMBER_DOUBLE = 16,
    DATA_MEMBER_BOOL = 32,
    DATA_MEMBER_INT = 64,
};

// Asks DataMemberSearch for the member count instead of a member.
constexpr int SPECIAL_COMMAND_COUNT_MEMBERS = -1;

// Base of named host objects. Members are reached by index: each class
// numbers its own members after its base's, which it learns by asking the base
// with SPECIAL_COMMAND_COUNT_MEMBERS.
class CTavrinDataMembersManager : public CTavrinObject {
public:
    explicit CTavrinDataMembersManager(bool named = true) : m_named(named) {}

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    // A new copy owned by the caller; null for objects that cannot be copied.
    virtual CTavrinDataMembersManager* MakeCopy() const;
    // Takes over the values of a copy made by MakeCopy.
    virtual bool RestoreFromCopy(const CTavrinDataMembersManager* copy);
    virtual CTavrinString Name() const { return m_name; }
    virtual void SetName(CTavrinString name) { m_name = std::move(name); }
    virtual CTavrinString DisplayName() const { return m_displayName.IsEmpty() ? m_name : m_displayName; }
    virtual void SetDisplayName(CTavrinString name) { m_displayName = std::move(name); }
    // Pointer to the value of member index with its type and display name;
    // changed asks the object to bring its values into range after an edit.
    // Members of this class: 0 "Name" (text), when the object is named.
    virtual void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed);

    int DataMembersCount();
    void* DataMember(int index, enumDataMemberType& type, CTavrinString& name);
    // Assign the value of member index when its type matches, then let the
    // object normalise it. False for a wrong index or type.
    bool DataMemberValueChanged(const CTavrinColor& value, int index);
    bool DataMemberValueChanged(const CTavrinString& value, int index);
    bool DataMemberValueChanged(double value, int index);
    bool DataMemberValueChanged(bool value, int index);
    bool DataMemberValueChanged(int value, int index);

protected:
    // Written by DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, ...).
    int m_dataMembersCount = 0;

private:
    template <class T>
    bool AssignMember(const T& value, int index, enumDataMemberType expected);

    bool m_named;
    CTavrinString m_name;
    CTavrinString m_displayName;
};

} // namespace Tavrin
