#pragma once
// The application's list of open documents, and what it remembers about the
// document file it read last: its format version, and the GUIDs of entities
// that were given new GUIDs while it was read.

#include "host/CTavrinArchive.h"
#include "host/CTavrinID.h"
#include "host/CTavrinUUID.h"

#include <map>
#include <vector>

namespace Tavrin {

class CTavrinDocument;
class CTavrinEntity;

class CTavrinDocumentsContainer {
public:
    // The application's container once installed; until then a private one.
    static CTavrinDocumentsContainer* DocumentsContainer();
    // Installs the application's container; the private one (if made) is
    // destroyed. Null drops the installed pointer without destroying it.
    static void SetDocumentContainer(CTavrinDocumentsContainer* container);

    // Documents are listed, not owned.
    void AddDocument(CTavrinDocument* document);
    void RemoveDocument(CTavrinDocument* document);
    int Count() const { return static_cast<int>(m_documents.size()); }
    CTavrinDocument* At(int index) const;

    // The current format version until a document file has been read.
    unsigned int VersionOfLastTavFileReadFromArchive() const { return m_lastFileVersion; }
    void SetVersionOfLastTavFileReadFromArchive(unsigned int version) { m_lastFileVersion = version; }

    // The GUID that replaced original while the last file was read, or
    // original itself when it was kept.
    CTavrinUUID ReplacedUUID(const CTavrinUUID& original) const;
    void RecordReplacedUUID(const CTavrinUUID& original, const CTavrinUUID& replacement);

    // Older documents named a followed path by the ID of the curve it was
    // drawn from; the line path made from that curve while reading takes
    // its place. The ID itself when nothing was recorded.
    CTavrinID GetLinePathIDFor(const CTavrinID& curve) const;
    void RecordLinePathID(const CTavrinID& curve, const CTavrinID& linePath);

    // The entity of a listed document with that GUID, or null.
    CTavrinEntity* GetEntityByGuid(const CTavrinUUID& guid) const;

private:
    std::vector<CTavrinDocument*> m_documents;
    unsigned int m_lastFileVersion = CTavrinArchiveBase::CurrentVersion;
    std::map<CTavrinUUID, CTavrinUUID> m_replacedUUIDs;
    std::map<CTavrinID, CTavrinID> m_linePathIDs;
};

} // namespace Tavrin
