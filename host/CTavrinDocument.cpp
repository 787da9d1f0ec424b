#include "host/CTavrinDocument.h"

#include <map>

#include "host/CTavrinSceneNode.h"

namespace Tavrin {

namespace {
std::map<CTavrinUUID, CTavrinDocument*>& LiveDocuments()
{
    static std::map<CTavrinUUID, CTavrinDocument*> documents;
    return documents;
}
} // namespace

CTavrinDocument* CTavrinDocument::Create(bool ownedByApplication)
{
    return new CTavrinDocument(ownedByApplication);
}

CTavrinDocument::CTavrinDocument(bool ownedByApplication) : m_ownedByApplication(ownedByApplication)
{
    m_uuid.Generate();
    LiveDocuments()[m_uuid] = this;
}

CTavrinDocument::~CTavrinDocument()
{
    LiveDocuments().erase(m_uuid);
}

void CTavrinDocument::AdoptEntity(std::unique_ptr<CTavrinEntity> entity)
{
    entity->m_document = this;
    entity->m_id = CTavrinID(m_uuid, static_cast<int>(m_entities.size()));
    if (auto* node = dynamic_cast<CTavrinSceneNode*>(entity.get()))
        m_sceneNodes.push_back(node);
    m_entities.push_back(std::move(entity));
}

CTavrinEntity* CTavrinDocument::EntityBySerial(int serial) const
{
    if (serial < 0 || serial >= EntityCount())
        return nullptr;
    return m_entities[serial].get();
}

void CTavrinDocument::ListRootSceneNodes(std::vector<CTavrinSceneNode*>& roots) const
{
    roots.clear();
    for (CTavrinSceneNode* node : m_sceneNodes)
        if (!node->Parent())
            roots.push_back(node);
}

CTavrinDocument* CTavrinDocument::FindDocument(const CTavrinUUID& uuid)
{
    const auto found = LiveDocuments().find(uuid);
    return found == LiveDocuments().end() ? nullptr : found->second;
}

} // namespace Tavrin
