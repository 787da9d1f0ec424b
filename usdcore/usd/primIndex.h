#pragma once

// The composed sources of one prim. Composition builds a small graph per
// prim (its arcs and the arcs of its ancestors), then flattens it once into
// the prim's opinions in strength order, so that reading a value later is a
// walk over a list rather than composition again.

#include "usdcore/pxr.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/layerOffset.h"
#include "usdcore/sdf/path.h"

#include <cstdint>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class SdfLayer;
class Usd_LayerStack;
class Usd_NamespaceMap;

/// One spec that has a say about a prim.
struct Usd_Opinion {
    const SdfLayer* layer;
    /// The prim spec in \p layer (a prim path, or a path inside a variant).
    SdfPath path;
    /// Maps the layer's times to the stage's.
    SdfLayerOffset offset;
    /// Maps the layer's namespace to the stage's.
    const Usd_NamespaceMap* map;
    /// Its fields, read in place: layers never change once open.
    const SdfData::FieldVector* fields;
};

/// Kinds of arc, in the order of their strength below the arc's owner
/// (local opinions first): inherits, variants, references, payloads,
/// specializes.
enum class Usd_ArcType : uint8_t { Root, Inherit, Variant, Reference, Payload, Specialize };

/// A place in some layer stack that contributes to the prim.
struct Usd_IndexNode {
    const Usd_LayerStack* layerStack = nullptr;
    SdfPath path;
    /// Maps the layer stack's times to the stage's.
    SdfLayerOffset offset;
    const Usd_NamespaceMap* map = nullptr;
    int parent = -1;
    /// Depth in namespace of the site that authored the arc: of two arcs of
    /// one kind, the one authored deeper (on the prim rather than on an
    /// ancestor) is stronger.
    int namespaceDepth = 0;
    /// Position among the arcs of its kind authored on the same site.
    int siblingNum = 0;
    Usd_ArcType arc = Usd_ArcType::Root;
    bool hasSpecs = false;
    /// Some spec of the site authors arcs or variant sets.
    bool hasArcs = false;
    /// Came with an arc authored on this prim, not on an ancestor.
    bool direct = false;
    bool variantsDone = false;
    /// The stage's own site below an instance: it lends the prim nothing,
    /// however many specs its layers have there.
    bool culled = false;
};

/// The arcs of one prim. The first node is the stage's own layer stack.
struct Usd_IndexGraph {
    std::vector<Usd_IndexNode> nodes;
    bool hasPayload = false;

    bool HasDirectArcs() const;
    /// Node indices, strongest first: a node before the arcs it owns, and
    /// those in arc order; specializes after everything else.
    std::vector<int> GetStrengthOrder() const;
};

PXR_NAMESPACE_CLOSE_SCOPE
