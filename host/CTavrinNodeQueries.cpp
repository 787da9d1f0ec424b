#include "host/CTavrinNodeQueries.h"

#include "host/CTavrinDocument.h"
#include "host/CTavrinTransform.h"

#include <algorithm>
#include <set>

namespace Tavrin {

CTavrinMatrix LocalToWorldMatrix(const CTavrinSceneNode* node) {
    CTavrinMatrix matrix;
    for (const CTavrinSceneNode* step = node; step; step = step->Parent()) {
        if (step->LocalTransform())
            matrix = step->LocalTransform()->Matrix() * matrix;
    }
    return matrix;
}

std::vector<CTavrinSceneNode*> ListSceneNodesReferencingThisTransform(const CTavrinTransform* transform) {
    std::vector<CTavrinSceneNode*> nodes;
    if (!transform || !transform->Document())
        return nodes;
    for (CTavrinSceneNode* node : transform->Document()->SceneNodes()) {
        if (node->LocalTransform() == transform)
            nodes.push_back(node);
    }
    return nodes;
}

CTavrinNodePath::CTavrinNodePath(CTavrinSceneNode* node, bool includeNode) {
    for (CTavrinSceneNode* step = includeNode ? node : (node ? node->Parent() : nullptr); step; step = step->Parent())
        m_nodes.push_back(step);
    std::reverse(m_nodes.begin(), m_nodes.end());
}

std::vector<CTavrinSceneNode*> CTavrinNodePath::ListAllSelectedSceneTrees(const std::vector<CTavrinNodePath>& paths,
                                                                          bool includeHidden, bool wholeTrees) {
    std::vector<CTavrinSceneNode*> listed;
    std::set<const CTavrinSceneNode*> seen;
    std::vector<CTavrinSceneNode*> pending;
    for (const CTavrinNodePath& path : paths) {
        if (!path.Last())
            continue;
        // Depth first, children in their order; an explicit stack because
        // trees from files can be deep.
        pending.push_back(path.Last());
        while (!pending.empty()) {
            CTavrinSceneNode* node = pending.back();
            pending.pop_back();
            if (!seen.insert(node).second)
                continue;
            if (includeHidden || !node->IsHidden())
                listed.push_back(node);
            if (wholeTrees)
                pending.insert(pending.end(), node->Children().rbegin(), node->Children().rend());
        }
    }
    return listed;
}

} // namespace Tavrin
