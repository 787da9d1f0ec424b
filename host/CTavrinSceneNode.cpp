#include "host/CTavrinSceneNode.h"

#include <algorithm>

#include "host/CTavrinDocument.h"
#include "host/CTavrinTransform.h"

namespace Tavrin {

CTavrinTransform* CTavrinTransform::Create(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<CTavrinTransform>()) : nullptr;
}

bool CTavrinSceneNode::IsChildOf(const CTavrinSceneNode* ancestor) const
{
    for (const CTavrinSceneNode* node = m_parent; node; node = node->m_parent)
        if (node == ancestor)
            return true;
    return false;
}

CTavrinID CTavrinSceneNode::SetParent(CTavrinSceneNode* parent)
{
    if (parent == this || (parent && parent->IsChildOf(this)))
        return CTavrinID();
    if (m_parent) {
        auto& siblings = m_parent->m_children;
        siblings.erase(std::find(siblings.begin(), siblings.end(), this));
    }
    m_parent = parent;
    if (!parent)
        return CTavrinID();
    parent->m_children.push_back(this);
    return parent->ID();
}

void CTavrinSceneNode::SetLocalMatrix(const CTavrinMatrix& matrix)
{
    if (!m_localTransform)
        m_localTransform = CTavrinTransform::Create(Document());
    if (m_localTransform)
        m_localTransform->LoadMatrix(matrix);
}

CTavrinTransformNode* CTavrinTransformNode::Create(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<CTavrinTransformNode>()) : nullptr;
}

CTavrinSkeletonJoint* CTavrinSkeletonJoint::Create(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<CTavrinSkeletonJoint>()) : nullptr;
}

void CTavrinSkeletonJoint::SetInvBindMatrix(const CTavrinMatrix& matrix)
{
    m_invBindMatrix = matrix;
    m_hasInvBindMatrix = true;
}

CTavrinSkeletonJoint* CTavrinSkeletonJoint::FindSkeletonRoot()
{
    CTavrinSkeletonJoint* root = this;
    while (auto* parent = dynamic_cast<CTavrinSkeletonJoint*>(root->Parent()))
        root = parent;
    return root;
}

} // namespace Tavrin
