#pragma once
// A document that gives the animation tests entities to animate.

#include "host/CTavrinDocument.h"
#include "host/CTavrinSceneNode.h"
#include "host/CTavrinTransform.h"

#include <memory>

class AnimationTestEntities {
public:
    AnimationTestEntities() : m_document(Tavrin::CTavrinDocument::Create(true)) {}

    // An entity that is no transform (a transform node).
    Tavrin::CTavrinID NewEntity() { return Tavrin::CTavrinTransformNode::Create(m_document.get())->ID(); }
    // A transform entity, as a node's local transform.
    Tavrin::CTavrinID NewTransform() { return NewTransformEntity()->ID(); }
    Tavrin::CTavrinTransform* NewTransformEntity() { return Tavrin::CTavrinTransform::Create(m_document.get()); }
    Tavrin::CTavrinDocument* Document() const { return m_document.get(); }

private:
    std::unique_ptr<Tavrin::CTavrinDocument> m_document;
};
