#pragma once
// Queries over the scene-node tree that the animation model needs: which
// nodes a transform entity places, and the subtrees below chosen nodes.

#include "host/CTavrinSceneNode.h"

#include <vector>

namespace Tavrin {

class CTavrinTransform;

// The node's local matrix after those of all its parents; a node without a
// local transform stands where its parent does.
CTavrinMatrix LocalToWorldMatrix(const CTavrinSceneNode* node);

// The nodes whose local transform is transform, in creation order.
std::vector<CTavrinSceneNode*> ListSceneNodesReferencingThisTransform(const CTavrinTransform* transform);

// The chain of nodes from a root of the tree down to one node.
class CTavrinNodePath {
public:
    CTavrinNodePath() = default;
    // From the root down to node; node itself last when includeNode is set.
    CTavrinNodePath(CTavrinSceneNode* node, bool includeNode);

    const std::vector<CTavrinSceneNode*>& Nodes() const { return m_nodes; }
    // The node the path ends at, or null for an empty path.
    CTavrinSceneNode* Last() const { return m_nodes.empty() ? nullptr : m_nodes.back(); }

    // The last node of every path, and with wholeTrees every node below it,
    // each listed once, parents before children. Hidden nodes are listed only
    // with includeHidden (their subtrees are walked either way).
    static std::vector<CTavrinSceneNode*> ListAllSelectedSceneTrees(const std::vector<CTavrinNodePath>& paths,
                                                                    bool includeHidden, bool wholeTrees);

private:
    std::vector<CTavrinSceneNode*> m_nodes;
};

} // namespace Tavrin
