#include "host/CTavrinDocumentsContainer.h"

#include "host/CTavrinDocument.h"

#include <algorithm>
#include <memory>

namespace Tavrin {

namespace {
std::unique_ptr<CTavrinDocumentsContainer> s_privateContainer;
CTavrinDocumentsContainer* s_installedContainer = nullptr;
} // namespace

CTavrinDocumentsContainer* CTavrinDocumentsContainer::DocumentsContainer() {
    if (s_installedContainer)
        return s_installedContainer;
    if (!s_privateContainer)
        s_privateContainer = std::make_unique<CTavrinDocumentsContainer>();
    return s_privateContainer.get();
}

void CTavrinDocumentsContainer::SetDocumentContainer(CTavrinDocumentsContainer* container) {
    s_installedContainer = container;
    if (container)
        s_privateContainer.reset();
}

void CTavrinDocumentsContainer::AddDocument(CTavrinDocument* document) {
    if (document && std::find(m_documents.begin(), m_documents.end(), document) == m_documents.end())
        m_documents.push_back(document);
}

void CTavrinDocumentsContainer::RemoveDocument(CTavrinDocument* document) {
    m_documents.erase(std::remove(m_documents.begin(), m_documents.end(), document), m_documents.end());
}

CTavrinDocument* CTavrinDocumentsContainer::At(int index) const {
    return index >= 0 && index < Count() ? m_documents[index] : nullptr;
}

CTavrinUUID CTavrinDocumentsContainer::ReplacedUUID(const CTavrinUUID& original) const {
    const auto replaced = m_replacedUUIDs.find(original);
    return replaced == m_replacedUUIDs.end() ? original : replaced->second;
}

void CTavrinDocumentsContainer::RecordReplacedUUID(const CTavrinUUID& original, const CTavrinUUID& replacement) {
    m_replacedUUIDs[original] = replacement;
}

CTavrinID CTavrinDocumentsContainer::GetLinePathIDFor(const CTavrinID& curve) const {
    const auto found = m_linePathIDs.find(curve);
    return found == m_linePathIDs.end() ? curve : found->second;
}

void CTavrinDocumentsContainer::RecordLinePathID(const CTavrinID& curve, const CTavrinID& linePath) {
    m_linePathIDs[curve] = linePath;
}

CTavrinEntity* CTavrinDocumentsContainer::GetEntityByGuid(const CTavrinUUID& guid) const {
    if (!guid.IsValid())
        return nullptr;
    for (CTavrinDocument* document : m_documents) {
        for (int serial = 0; serial < document->EntityCount(); ++serial) {
            CTavrinEntity* entity = document->EntityBySerial(serial);
            if (entity && entity->GetGuid() == guid)
                return entity;
        }
    }
    return nullptr;
}

} // namespace Tavrin
