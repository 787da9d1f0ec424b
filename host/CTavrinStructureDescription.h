#pragma once
// The layout of an archivable's record, as the list of its named data members
// that an archive can hold: written before a record whose type a reader may
// not know, so that the reader can still read the record and keep the values
// it has a place for.

#include "host/CTavrinDataMembersManager.h"

#include <vector>

namespace Tavrin {

class CTavrinStructureDescription : public CTavrinArchivable {
public:
    struct Field {
        CTavrinString name;
        enumDataMemberType type;
    };

    CTavrinStructureDescription() = default;

    // The text, colour, double, bool and int members of object, in member
    // order; nothing for an object that publishes no members.
    static CTavrinStructureDescription StructureDescription(CTavrinArchivable* object, unsigned int version);

    unsigned int Version() const { return m_version; }
    const std::vector<Field>& Fields() const { return m_fields; }

    // Writes the described members' values of object in order.
    bool WriteDescribedStructure(CTavrinArchiveBase* archive, CTavrinDataMembersManager* object) const;
    // Reads a record laid out as described. Each value whose name and type
    // match a member of target is assigned to it (and normalised by it); the
    // others are read and dropped. A null target only reads past the record.
    bool ReadDescripedStructureFromArchive(CTavrinArchiveBase* archive, CTavrinDataMembersManager* target) const;

    // Reads or writes, by the archive's direction, object's own record as
    // its description at the archive's version lays it out.
    static bool ArchiveDescribedMembers(CTavrinArchiveBase& archive, CTavrinDataMembersManager& object);

    // The version (int32), the field count (int32), then each field's name
    // (string) and type (int32). Reading refuses a type outside the five.
    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

private:
    unsigned int m_version = 0;
    std::vector<Field> m_fields;
};

} // namespace Tavrin
