#pragma once

#include <memory>
#include <vector>

#include "host/CTavrinEntity.h"

namespace Tavrin {

class CTavrinSceneNode;

// Owns every entity made for it. Live documents are found by UUID, which is
// how entity IDs resolve.
class CTavrinDocument {
public:
    // The flag marks a document made for the application to own (the
    // importer always passes true); it is kept and reported, nothing else.
    static CTavrinDocument* Create(bool ownedByApplication);
    ~CTavrinDocument();
    CTavrinDocument(const CTavrinDocument&) = delete;
    CTavrinDocument& operator=(const CTavrinDocument&) = delete;

    const CTavrinUUID& UUID() const { return m_uuid; }
    bool IsOwnedByApplication() const { return m_ownedByApplication; }

    // Takes ownership and gives the entity its ID.
    template <class T>
    T* Adopt(std::unique_ptr<T> entity)
    {
        T* raw = entity.get();
        AdoptEntity(std::move(entity));
        return raw;
    }

    CTavrinEntity* EntityBySerial(int serial) const;
    int EntityCount() const { return static_cast<int>(m_entities.size()); }
    // Scene nodes in creation order.
    const std::vector<CTavrinSceneNode*>& SceneNodes() const { return m_sceneNodes; }
    void ListRootSceneNodes(std::vector<CTavrinSceneNode*>& roots) const;

    static CTavrinDocument* FindDocument(const CTavrinUUID& uuid);

private:
    explicit CTavrinDocument(bool ownedByApplication);
    void AdoptEntity(std::unique_ptr<CTavrinEntity> entity);

    CTavrinUUID m_uuid;
    bool m_ownedByApplication;
    std::vector<std::unique_ptr<CTavrinEntity>> m_entities;
    std::vector<CTavrinSceneNode*> m_sceneNodes;
};

} // namespace Tavrin
