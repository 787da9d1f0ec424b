#pragma once

// Builds each prim's index from its parent's: the parent's sites extended by
// the child's name, then the arcs authored on the child at any of them
// (inherits, references, payloads, specializes; variants last, once every
// stronger site that may select them is known).

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/primIndex.h"

#include <deque>
#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class Usd_LayerCache;
class Usd_LayerStack;
class Usd_NamespaceMap;

class Usd_PrimIndexBuilder
{
public:
    /// Opens what arcs name through \p cache and keeps the namespace maps of
    /// new arcs in \p maps (which must outlive every graph and opinion made
    /// here). Payload arcs are followed only with \p loadPayloads.
    Usd_PrimIndexBuilder(Usd_LayerCache* cache, std::deque<Usd_NamespaceMap>* maps, bool loadPayloads);

    /// The index of the pseudo-root of a stage whose root layer stack is
    /// \p rootStack.
    Usd_IndexGraph BuildPseudoRoot(const Usd_LayerStack* rootStack);

    /// The index of the prim \p primPath, a child of the prim indexed by
    /// \p parent.
    Usd_IndexGraph BuildChild(const Usd_IndexGraph& parent, const SdfPath& primPath);

    /// The specs of \p graph in strength order, appended to \p opinions.
    static void AppendOpinions(const Usd_IndexGraph& graph, std::vector<Usd_Opinion>* opinions);

private:
    struct ArcTarget {
        const Usd_LayerStack* layerStack;
        SdfPath path;
        SdfLayerOffset offset;
        const Usd_NamespaceMap* map;
    };

    void _AddDirectArcs(Usd_IndexGraph* graph, int owner, const SdfPath& primPath);
    template <class Arc>
    void _AddReferenceArcs(Usd_IndexGraph* graph, int owner, Usd_ArcType arcType, const TfToken& field,
                           const SdfPath& primPath);
    void _AddClassArcs(Usd_IndexGraph* graph, int owner, Usd_ArcType arcType, const TfToken& field,
                       const SdfPath& primPath);
    void _AddVariantArcs(Usd_IndexGraph* graph, const SdfPath& primPath);
    static std::string _FindVariantSelection(const Usd_IndexGraph& graph, const std::vector<int>& order,
                                             const std::string& variantSet);
    void _AddArc(Usd_IndexGraph* graph, int owner, Usd_ArcType arcType, const ArcTarget& target,
                 int siblingNum, const SdfPath& primPath);
    const Usd_NamespaceMap* _KeepMap(Usd_NamespaceMap map);

    Usd_LayerCache* _cache;
    std::deque<Usd_NamespaceMap>* _maps;
    bool _loadPayloads;
};

PXR_NAMESPACE_CLOSE_SCOPE
