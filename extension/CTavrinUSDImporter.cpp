#include "extension/CTavrinUSDImporter.h"

#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "extension/CTavrinFaultBoundary.h"
#include "host/CTavrinDocument.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

#include <set>

namespace {

// An import hands the application two things before it returns: the
// document, and the sequence it registered in the process-wide sequence
// container with a group of its own. An import that does not finish takes
// both back, so that the application's container is as it was and nothing is
// left without an owner.
class CTavrinImportRollback {
public:
    explicit CTavrinImportRollback(Tavrin::CTavrinUSDReaderHandler& handler)
        : m_handler(&handler), m_groupsBefore(GroupGuids())
    {
    }
    CTavrinImportRollback(const CTavrinImportRollback&) = delete;
    CTavrinImportRollback& operator=(const CTavrinImportRollback&) = delete;

    ~CTavrinImportRollback()
    {
        if (!m_handler)
            return;
        Tavrin::CTavrinSequenceContainer& container = *Tavrin::CTavrinSequenceContainer::GetInstance();
        if (m_handler->sequence) {
            // Held here while the container lets go, so that the sequence is
            // destroyed whether or not the container had taken it yet.
            const Tavrin::CTavrinSequencePtr sequence(m_handler->sequence);
            m_handler->sequence = nullptr;
            container.RemoveSequence(sequence.get());
        }
        // The group made for the sequence: new since the import began, and
        // listing nothing now that the sequence is gone.
        const Tavrin::CollapsingGroupMap& groups = container.Groups();
        for (auto entry = groups.begin(); entry != groups.end();) {
            const Tavrin::CTavrinUUID uuid = entry->first;
            const bool madeForTheImport = !m_groupsBefore.count(uuid) && entry->second->SequenceGuids().empty();
            ++entry;
            if (madeForTheImport)
                container.RemoveGroup(uuid);
        }
        // After the sequence, whose key frames name the document's entities.
        delete m_handler->document;
        m_handler->document = nullptr;
    }

    // The import has finished: what it made is the application's.
    void Dismiss() { m_handler = nullptr; }

private:
    static std::set<Tavrin::CTavrinUUID> GroupGuids()
    {
        std::set<Tavrin::CTavrinUUID> uuids;
        for (const auto& entry : Tavrin::CTavrinSequenceContainer::GetInstance()->Groups())
            uuids.insert(entry.first);
        return uuids;
    }

    Tavrin::CTavrinUSDReaderHandler* m_handler;
    const std::set<Tavrin::CTavrinUUID> m_groupsBefore;
};

} // namespace

Tavrin::CTavrinDocument* CTavrinUSDImporter::Import(const CTavrinImportRequest& request)
{
    try {
        // One reader state per import, so nothing carries over between imports.
        Tavrin::CTavrinUSDReaderHandler handler;
        CTavrinImportRollback rollback(handler);
        handler.SetProgressCallback(request.progressCallback);
        handler.options = request.options;
        Tavrin::CTavrinDocument* document = handler.ReadUSDFile(request.filePath, request.folder);
        rollback.Dismiss();
        return document;
    } catch (...) {
        // Ends as a file that cannot be read ends. The callback may be what
        // threw, and may throw again.
        if (request.progressCallback)
            RunContained([&] { request.progressCallback("This file is not supported", -1); });
        return nullptr;
    }
}

void CTavrinUSDImporter::GetExtensions(std::vector<Tavrin::CTavrinString>& extensions)
{
    // A list that cannot grow stays as it was.
    RunContained([&] { extensions.emplace_back("usdz"); });
}

Tavrin::CTavrinString CTavrinUSDImporter::GetFormatName()
{
    Tavrin::CTavrinString name;
    RunContained([&] { name = "USDZ"; });
    return name;
}

CTavrinImporterFlags CTavrinUSDImporter::GetFlags()
{
    CTavrinImporterFlags flags;
    flags.flags[0] = true;
    return flags;
}
