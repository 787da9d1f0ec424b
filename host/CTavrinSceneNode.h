#pragma once

#include <vector>

#include "host/CTavrinEntity.h"
#include "host/CTavrinMatrix.h"

namespace Tavrin {

class CTavrinNodePath;
class CTavrinTransform;

// A node of the document's tree. Children keep the order in which they were
// parented. The local transform entity exists from the first SetLocalMatrix
// (or SetLocalTransform) on.
class CTavrinSceneNode : public CTavrinEntity {
public:
    // Null makes the node a root. A parent that would close a cycle is
    // refused (the default ID is returned). Returns the parent's ID.
    CTavrinID SetParent(CTavrinSceneNode* parent);
    CTavrinSceneNode* Parent() const { return m_parent; }
    const std::vector<CTavrinSceneNode*>& Children() const { return m_children; }
    bool IsChildOf(const CTavrinSceneNode* ancestor) const;
    // The nodes from the root down to this one (itself last when includeNode).
    CTavrinNodePath NodePathToRoot(bool includeNode);

    void SetLocalMatrix(const CTavrinMatrix& matrix);
    CTavrinTransform* LocalTransform() const { return m_localTransform; }
    void SetLocalTransform(CTavrinTransform* transform) { m_localTransform = transform; }
    bool IsHidden() const { return m_hidden; }
    void Hide() { m_hidden = true; }
    void UnHide() { m_hidden = false; }

private:
    CTavrinSceneNode* m_parent = nullptr;
    std::vector<CTavrinSceneNode*> m_children;
    CTavrinTransform* m_localTransform = nullptr;
    bool m_hidden = false;
};

class CTavrinTransformNode : public CTavrinSceneNode {
public:
    static CTavrinTransformNode* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_TRANSFORM_NODE; }
};

class CTavrinSkeletonJoint : public CTavrinSceneNode {
public:
    static CTavrinSkeletonJoint* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_SKELETON_JOINT; }

    void SetInvBindMatrix(const CTavrinMatrix& matrix);
    // Null until SetInvBindMatrix.
    const CTavrinMatrix* InvBindMatrix() const { return m_hasInvBindMatrix ? &m_invBindMatrix : nullptr; }
    // The top joint of the chain of joint parents above this joint.
    CTavrinSkeletonJoint* FindSkeletonRoot();

private:
    CTavrinMatrix m_invBindMatrix;
    bool m_hasInvBindMatrix = false;
};

} // namespace Tavrin
