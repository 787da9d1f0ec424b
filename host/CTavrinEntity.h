#pragma once

#include "host/CTavrinDataMembersManager.h"
#include "host/CTavrinID.h"

namespace Tavrin {

class CTavrinDocument;

// Everything a document owns. Made only through the document (see
// CTavrinDocument::Adopt), which gives it its ID.
class CTavrinEntity : public CTavrinDataMembersManager {
public:
    CTavrinEntity() : CTavrinDataMembersManager(true) { m_guid.Generate(); }
    CTavrinEntity(const CTavrinEntity&) = delete;
    CTavrinEntity& operator=(const CTavrinEntity&) = delete;

    const CTavrinID& ID() const { return m_id; }
    const CTavrinUUID& GetGuid() const { return m_guid; }
    CTavrinDocument* Document() const { return m_document; }
    virtual enumEntityType EntityType() const = 0;

private:
    friend class CTavrinDocument;
    CTavrinID m_id;
    CTavrinUUID m_guid;
    CTavrinDocument* m_document = nullptr;
};

} // namespace Tavrin
