#include "host/CTavrinNodeQueries.h"

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinLight.h"
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

namespace {

// Every node of the subtrees of the nodes that use transform, each once.
template <class Node>
std::vector<Node*> ListAffected(const CTavrinTransform* transform) {
    std::vector<CTavrinNodePath> paths;
    for (CTavrinSceneNode* node : ListSceneNodesReferencingThisTransform(transform))
        paths.emplace_back(node, true);
    std::vector<Node*> affected;
    for (CTavrinSceneNode* node : CTavrinNodePath::ListAllSelectedSceneTrees(paths, true, true)) {
        if (auto* wanted = dynamic_cast<Node*>(node))
            affected.push_back(wanted);
    }
    return affected;
}

} // namespace

std::vector<CTavrin3DObject*> ListAll3DObjectsThisTransformAffect(const CTavrinTransform* transform) {
    return ListAffected<CTavrin3DObject>(transform);
}

std::vector<CTavrinLightSource*> ListAllLightSourcesThisTransformAffect(const CTavrinTransform* transform) {
    return ListAffected<CTavrinLightSource>(transform);
}

CTavrinSkeletonJoint* GetNearestJointParent(const CTavrinSceneNode* node) {
    for (CTavrinSceneNode* step = node ? node->Parent() : nullptr; step; step = step->Parent()) {
        if (auto* joint = dynamic_cast<CTavrinSkeletonJoint*>(step))
            return joint;
    }
    return nullptr;
}

CTavrinSceneNode* NearestCommonParent(CTavrinSceneNode* a, CTavrinSceneNode* b) {
    const CTavrinNodePath pathA(a, true);
    const CTavrinNodePath pathB(b, true);
    CTavrinSceneNode* common = nullptr;
    for (std::size_t i = 0; i < pathA.Nodes().size() && i < pathB.Nodes().size(); ++i) {
        if (pathA.Nodes()[i] != pathB.Nodes()[i])
            break;
        common = pathA.Nodes()[i];
    }
    return common;
}

bool CTavrinNodeVisitor::Traverse(CTavrinSceneNode* node) {
    // An explicit stack: trees from files can be deep.
    std::vector<CTavrinSceneNode*> pending;
    if (node)
        pending.push_back(node);
    while (!pending.empty()) {
        CTavrinSceneNode* next = pending.back();
        pending.pop_back();
        if (!Visit(next))
            return false;
        pending.insert(pending.end(), next->Children().rbegin(), next->Children().rend());
    }
    return true;
}

bool CTavrinNodeVisitor::TraverseDocument(const CTavrinDocument* document) {
    if (!document)
        return true;
    std::vector<CTavrinSceneNode*> roots;
    document->ListRootSceneNodes(roots);
    for (CTavrinSceneNode* root : roots) {
        if (!Traverse(root))
            return false;
    }
    return true;
}

CTavrinNodePath CTavrinSceneNode::NodePathToRoot(bool includeNode) {
    return CTavrinNodePath(this, includeNode);
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
