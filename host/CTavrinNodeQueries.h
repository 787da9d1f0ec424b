#pragma once
// Queries over the scene-node tree that the animation model needs: which
// nodes a transform entity places, and the subtrees below chosen nodes.

#include "host/CTavrinSceneNode.h"

#include <vector>

namespace Tavrin {

class CTavrin3DObject;
class CTavrinDocument;
class CTavrinLightSource;
class CTavrinTransform;

// The node's local matrix after those of all its parents; a node without a
// local transform stands where its parent does.
CTavrinMatrix LocalToWorldMatrix(const CTavrinSceneNode* node);

// The nodes whose local transform is transform, in creation order.
std::vector<CTavrinSceneNode*> ListSceneNodesReferencingThisTransform(const CTavrinTransform* transform);

// The 3D objects that the transform places: those among the nodes that use
// it as their local transform and everything below them, each once.
std::vector<CTavrin3DObject*> ListAll3DObjectsThisTransformAffect(const CTavrinTransform* transform);
// The same for light sources.
std::vector<CTavrinLightSource*> ListAllLightSourcesThisTransformAffect(const CTavrinTransform* transform);

// The nearest skeleton joint above node (node itself excluded), or null.
CTavrinSkeletonJoint* GetNearestJointParent(const CTavrinSceneNode* node);
// The deepest node that is a or b or above both, or null when they share
// no root.
CTavrinSceneNode* NearestCommonParent(CTavrinSceneNode* a, CTavrinSceneNode* b);

// Visits scene nodes parents first, children in their order.
class CTavrinNodeVisitor {
public:
    virtual ~CTavrinNodeVisitor() = default;
    // False stops the traversal.
    virtual bool Visit(CTavrinSceneNode* node) = 0;
    // node and everything below it; false when a visit stopped it.
    bool Traverse(CTavrinSceneNode* node);
    // Every root node of the document and everything below them.
    bool TraverseDocument(const CTavrinDocument* document);
};

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
