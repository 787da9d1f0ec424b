#include "usdcore/usd/primIndexBuilder.h"

#include "usdcore/sdf/layer.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/layerStack.h"
#include "usdcore/usd/namespaceMap.h"

#include <algorithm>
#include <optional>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// Real scenes stay far below this; it stops hostile arc fans.
constexpr size_t kMaxNodesPerPrim = 1024;

bool IsArcField(const TfToken& name)
{
    return name == SdfFieldKeys->References || name == SdfFieldKeys->Payload ||
           name == SdfFieldKeys->InheritPaths || name == SdfFieldKeys->Specializes ||
           name == SdfFieldKeys->VariantSetNames;
}

// Whether any layer of the stack has a spec at the site, and whether any of
// those specs authors arcs or variant sets: one lookup per layer.
void SummarizeSite(Usd_IndexNode* node)
{
    node->hasSpecs = false;
    node->hasArcs = false;
    for (const Usd_LayerStackEntry& entry : node->layerStack->GetLayers()) {
        const SdfData::FieldVector* fields = entry.layer->GetData().GetFields(node->path);
        if (!fields) continue;
        node->hasSpecs = true;
        for (const SdfData::Field& field : *fields) {
            if (IsArcField(field.first)) {
                node->hasArcs = true;
                return;
            }
        }
    }
}

template <class T>
struct AuthoredItem {
    T item;
    /// The layer (in its stack) whose opinion last added the item: it
    /// anchors the item's asset path and lends its time offset.
    size_t layerIndex;
};

// The list field of a site composed over its layer stack: list ops apply
// from the weakest layer to the strongest.
template <class T>
std::vector<AuthoredItem<T>> ComposeListField(const Usd_LayerStack& stack, const SdfPath& path,
                                              const TfToken& field)
{
    const std::vector<Usd_LayerStackEntry>& layers = stack.GetLayers();
    std::vector<T> items;
    std::vector<AuthoredItem<T>> origins;
    const auto originOf = [&origins](const T& item) {
        return std::find_if(origins.begin(), origins.end(),
                            [&item](const AuthoredItem<T>& origin) { return origin.item == item; });
    };
    for (size_t i = layers.size(); i-- > 0;) {
        const VtValue* value = layers[i].layer->GetData().GetFieldValue(path, field);
        if (!value || !value->IsHolding<SdfListOp<T>>()) continue;
        value->UncheckedGet<SdfListOp<T>>().ApplyOperations(
            &items, [&](SdfListOpType type, const T& item) -> std::optional<T> {
                if (type != SdfListOpTypeDeleted && type != SdfListOpTypeOrdered) {
                    const auto origin = originOf(item);
                    if (origin != origins.end()) {
                        origin->layerIndex = i;
                    } else {
                        origins.push_back({item, i});
                    }
                }
                return item;
            });
    }
    std::vector<AuthoredItem<T>> result;
    result.reserve(items.size());
    for (const T& item : items) {
        const auto origin = originOf(item);
        result.push_back({item, origin != origins.end() ? origin->layerIndex : 0});
    }
    return result;
}

// A node's site is an ancestor or descendant of the new target in the same
// layer stack: following the arc would compose the prim into itself.
bool IsCycle(const Usd_IndexGraph& graph, int owner, const Usd_LayerStack* stack, const SdfPath& path)
{
    const SdfPath target = path.StripAllVariantSelections();
    for (int i = owner; i >= 0; i = graph.nodes[i].parent) {
        const Usd_IndexNode& node = graph.nodes[i];
        if (node.layerStack != stack) continue;
        const SdfPath site = node.path.StripAllVariantSelections();
        if (site.HasPrefix(target) || target.HasPrefix(site)) return true;
    }
    return false;
}

SdfPath DefaultPrimPath(const TfToken& defaultPrim)
{
    const std::string& name = defaultPrim.GetString();
    if (!name.empty() && name.front() == '/') {
        return SdfPath(name);
    }
    return SdfPath::IsValidIdentifier(name) ? SdfPath::AbsoluteRootPath().AppendChild(defaultPrim) : SdfPath();
}

bool IsPlainPrimPath(const SdfPath& path)
{
    return path.IsAbsolutePath() && path.IsPrimPath() && !path.ContainsPrimVariantSelection();
}

const char* ArcName(Usd_ArcType arcType)
{
    switch (arcType) {
    case Usd_ArcType::Inherit: return "inherit";
    case Usd_ArcType::Variant: return "variant";
    case Usd_ArcType::Reference: return "reference";
    case Usd_ArcType::Payload: return "payload";
    case Usd_ArcType::Specialize: return "specializes";
    case Usd_ArcType::Root: break;
    }
    return "root";
}

} // namespace

Usd_PrimIndexBuilder::Usd_PrimIndexBuilder(Usd_LayerCache* cache, std::deque<Usd_NamespaceMap>* maps,
                                           bool loadPayloads)
    : _cache(cache), _maps(maps), _loadPayloads(loadPayloads)
{
}

const Usd_NamespaceMap* Usd_PrimIndexBuilder::_KeepMap(Usd_NamespaceMap map)
{
    _maps->push_back(std::move(map));
    return &_maps->back();
}

Usd_IndexGraph Usd_PrimIndexBuilder::BuildPseudoRoot(const Usd_LayerStack* rootStack)
{
    Usd_IndexNode root;
    root.layerStack = rootStack;
    root.path = SdfPath::AbsoluteRootPath();
    root.map = _KeepMap(Usd_NamespaceMap::Identity());
    root.hasSpecs = true;
    root.variantsDone = true;
    Usd_IndexGraph graph;
    graph.nodes.push_back(root);
    return graph;
}

Usd_IndexGraph Usd_PrimIndexBuilder::BuildChild(const Usd_IndexGraph& parent, const SdfPath& primPath)
{
    const TfToken& name = primPath.GetNameToken();
    Usd_IndexGraph graph;
    graph.nodes.reserve(parent.nodes.size());
    for (const Usd_IndexNode& parentNode : parent.nodes) {
        Usd_IndexNode node = parentNode;
        // The first node is the stage's own site: the prim path itself.
        node.path = graph.nodes.empty() ? primPath : parentNode.path.AppendChild(name);
        if (node.culled) {
            node.hasSpecs = false;
            node.hasArcs = false;
        } else {
            SummarizeSite(&node);
        }
        node.direct = false;
        node.variantsDone = !node.hasArcs;
        graph.nodes.push_back(node);
    }
    const int inherited = static_cast<int>(graph.nodes.size());
    for (int i = 0; i < inherited; ++i) {
        _AddDirectArcs(&graph, i, primPath);
    }
    _AddVariantArcs(&graph, primPath);

    // A site without specs whose arcs bring none either adds nothing here,
    // nor below: a layer has no spec under a path it has no spec for. The
    // first node stays, as every prim is indexed from the stage's layers.
    const size_t count = graph.nodes.size();
    std::vector<char> keep(count, 0);
    for (size_t i = count; i-- > 0;) {
        const Usd_IndexNode& node = graph.nodes[i];
        keep[i] = keep[i] || node.hasSpecs || i == 0;
        if (keep[i] && node.parent >= 0) keep[node.parent] = 1;
    }
    if (std::find(keep.begin(), keep.end(), 0) != keep.end()) {
        std::vector<int> newIndex(count, -1);
        std::vector<Usd_IndexNode> kept;
        for (size_t i = 0; i < count; ++i) {
            if (!keep[i]) continue;
            newIndex[i] = static_cast<int>(kept.size());
            kept.push_back(graph.nodes[i]);
            if (kept.back().parent >= 0) kept.back().parent = newIndex[kept.back().parent];
        }
        graph.nodes.swap(kept);
    }
    return graph;
}

void Usd_PrimIndexBuilder::_AddDirectArcs(Usd_IndexGraph* graph, int owner, const SdfPath& primPath)
{
    if (!graph->nodes[owner].hasArcs) {
        return;
    }
    _AddClassArcs(graph, owner, Usd_ArcType::Inherit, SdfFieldKeys->InheritPaths, primPath);
    _AddReferenceArcs<SdfReference>(graph, owner, Usd_ArcType::Reference, SdfFieldKeys->References, primPath);
    _AddReferenceArcs<SdfPayload>(graph, owner, Usd_ArcType::Payload, SdfFieldKeys->Payload, primPath);
    _AddClassArcs(graph, owner, Usd_ArcType::Specialize, SdfFieldKeys->Specializes, primPath);
}

template <class Arc>
void Usd_PrimIndexBuilder::_AddReferenceArcs(Usd_IndexGraph* graph, int owner, Usd_ArcType arcType,
                                             const TfToken& field, const SdfPath& primPath)
{
    // Copied: adding arcs grows the node vector.
    const Usd_IndexNode node = graph->nodes[owner];
    const std::vector<AuthoredItem<Arc>> arcs = ComposeListField<Arc>(*node.layerStack, node.path, field);
    if (arcs.empty()) {
        return;
    }
    if (arcType == Usd_ArcType::Payload) {
        graph->hasPayload = true;
        if (!_loadPayloads) return;
    }
    const SdfPath site = node.path.StripAllVariantSelections();
    int siblingNum = 0;
    for (const AuthoredItem<Arc>& authored : arcs) {
        const Arc& arc = authored.item;
        const Usd_LayerStackEntry& entry = node.layerStack->GetLayers()[authored.layerIndex];
        const bool internal = arc.GetAssetPath().empty();
        const Usd_LayerStack* stack = node.layerStack;
        if (!internal) {
            stack = _cache->GetLayerStack(Usd_AnchorAssetPath(*entry.layer, arc.GetAssetPath()));
            if (!stack) {
                TF_WARN("<%s>: the %s to '%s' is ignored: the layer cannot be opened", primPath.GetText(),
                        ArcName(arcType), arc.GetAssetPath().c_str());
                continue;
            }
        }
        SdfPath targetPath = arc.GetPrimPath();
        if (targetPath.IsEmpty()) {
            const TfToken defaultPrim = stack->GetRootLayer()->GetDefaultPrim();
            targetPath = DefaultPrimPath(defaultPrim);
            if (targetPath.IsEmpty()) {
                TF_WARN("<%s>: the %s to '%s' is ignored: it names no prim and the layer has no valid "
                        "default prim", primPath.GetText(), ArcName(arcType), arc.GetAssetPath().c_str());
                continue;
            }
        }
        if (!IsPlainPrimPath(targetPath)) {
            TF_WARN("<%s>: the %s to <%s> is ignored: not a prim path", primPath.GetText(),
                    ArcName(arcType), targetPath.GetText());
            continue;
        }
        SdfLayerOffset arcOffset = arc.GetLayerOffset();
        if (!arcOffset.IsValid()) {
            TF_WARN("<%s>: invalid offset of the %s to <%s> ignored", primPath.GetText(), ArcName(arcType),
                    targetPath.GetText());
            arcOffset = SdfLayerOffset();
        }
        SdfLayerOffset targetOffset = entry.offset * arcOffset;
        // An external layer stack counting time at another rate than the
        // layer that points at it is stretched to that layer's rate.
        if (!internal)
            Usd_ScaleOffsetByTimeCodesPerSecond(*entry.layer, *stack->GetRootLayer(), &targetOffset);
        const ArcTarget target{stack, targetPath, node.offset * targetOffset,
                               _KeepMap(Usd_NamespaceMap::ForArc(*node.map, targetPath, site, internal))};
        _AddArc(graph, owner, arcType, target, siblingNum++, primPath);
    }
}

void Usd_PrimIndexBuilder::_AddClassArcs(Usd_IndexGraph* graph, int owner, Usd_ArcType arcType,
                                         const TfToken& field, const SdfPath& primPath)
{
    const Usd_IndexNode node = graph->nodes[owner];
    const SdfPath site = node.path.StripAllVariantSelections();
    int siblingNum = 0;
    for (const AuthoredItem<SdfPath>& authored : ComposeListField<SdfPath>(*node.layerStack, node.path, field)) {
        const SdfPath classPath = authored.item.MakeAbsolutePath(site);
        if (!IsPlainPrimPath(classPath)) {
            TF_WARN("<%s>: the %s of <%s> is ignored: not a prim path", primPath.GetText(), ArcName(arcType),
                    authored.item.GetText());
            continue;
        }
        // Class arcs stay in the owner's layer stack, so paths outside the
        // class still mean the same prims.
        const ArcTarget target{node.layerStack, classPath, node.offset,
                               _KeepMap(Usd_NamespaceMap::ForArc(*node.map, classPath, site, true))};
        _AddArc(graph, owner, arcType, target, siblingNum++, primPath);
    }
}

void Usd_PrimIndexBuilder::_AddVariantArcs(Usd_IndexGraph* graph, const SdfPath& primPath)
{
    // A selection may come from any site of the prim, the strongest first,
    // and variants may bring more sites, with more variant sets: settle the
    // sets one site at a time in strength order until none is left.
    const auto settled = [graph]() {
        return std::all_of(graph->nodes.begin(), graph->nodes.end(),
                           [](const Usd_IndexNode& node) { return node.variantsDone; });
    };
    while (!settled()) {
        std::vector<int> order = graph->GetStrengthOrder();
        const int owner = *std::find_if(order.begin(), order.end(),
                                        [graph](int i) { return !graph->nodes[i].variantsDone; });
        graph->nodes[owner].variantsDone = true;
        const Usd_IndexNode node = graph->nodes[owner];
        const std::vector<AuthoredItem<std::string>> sets =
            ComposeListField<std::string>(*node.layerStack, node.path, SdfFieldKeys->VariantSetNames);
        int siblingNum = 0;
        for (const AuthoredItem<std::string>& set : sets) {
            const std::string selection = _FindVariantSelection(*graph, order, set.item);
            const int thisSibling = siblingNum++;
            if (selection.empty()) continue;
            const SdfPath variantPath = node.path.AppendVariantSelection(set.item, selection);
            if (variantPath.IsEmpty()) continue;
            const size_t before = graph->nodes.size();
            _AddArc(graph, owner, Usd_ArcType::Variant, {node.layerStack, variantPath, node.offset, node.map},
                    thisSibling, primPath);
            if (graph->nodes.size() != before) {
                order = graph->GetStrengthOrder();
            }
        }
    }
}

std::string Usd_PrimIndexBuilder::_FindVariantSelection(const Usd_IndexGraph& graph,
                                                        const std::vector<int>& order,
                                                        const std::string& variantSet)
{
    for (const int i : order) {
        const Usd_IndexNode& node = graph.nodes[i];
        if (!node.hasSpecs) continue;
        for (const Usd_LayerStackEntry& entry : node.layerStack->GetLayers()) {
            const VtValue* value = entry.layer->GetData().GetFieldValue(node.path, SdfFieldKeys->VariantSelection);
            if (!value || !value->IsHolding<SdfVariantSelectionMap>()) continue;
            const SdfVariantSelectionMap& selections = value->UncheckedGet<SdfVariantSelectionMap>();
            const auto found = selections.find(variantSet);
            if (found != selections.end()) {
                return found->second;
            }
        }
    }
    return std::string();
}

void Usd_PrimIndexBuilder::_AddArc(Usd_IndexGraph* graph, int owner, Usd_ArcType arcType,
                                   const ArcTarget& target, int siblingNum, const SdfPath& primPath)
{
    if (graph->nodes.size() >= kMaxNodesPerPrim) {
        TF_WARN("<%s>: more than %zu composition arcs; the %s to <%s> is ignored", primPath.GetText(),
                kMaxNodesPerPrim, ArcName(arcType), target.path.GetText());
        return;
    }
    if (arcType != Usd_ArcType::Variant && IsCycle(*graph, owner, target.layerStack, target.path)) {
        TF_WARN("<%s>: the %s to <%s> is ignored: it would make a composition cycle", primPath.GetText(),
                ArcName(arcType), target.path.GetText());
        return;
    }
    Usd_IndexNode node;
    node.layerStack = target.layerStack;
    node.path = target.path;
    node.offset = target.offset;
    node.map = target.map;
    node.parent = owner;
    node.namespaceDepth = static_cast<int>(graph->nodes[owner].path.StripAllVariantSelections().GetPathElementCount());
    node.siblingNum = siblingNum;
    node.arc = arcType;
    SummarizeSite(&node);
    node.direct = true;
    node.variantsDone = !node.hasArcs;
    if (!node.hasSpecs && (arcType == Usd_ArcType::Reference || arcType == Usd_ArcType::Payload)) {
        TF_WARN("<%s>: the %s target <%s> has no spec in '%s'", primPath.GetText(), ArcName(arcType),
                target.path.GetText(), node.layerStack->GetRootLayer()->GetIdentifier().c_str());
    }
    graph->nodes.push_back(node);
    _AddDirectArcs(graph, static_cast<int>(graph->nodes.size()) - 1, primPath);
}

void Usd_PrimIndexBuilder::AppendOpinions(const Usd_IndexGraph& graph, std::vector<Usd_Opinion>* opinions)
{
    for (const int i : graph.GetStrengthOrder()) {
        const Usd_IndexNode& node = graph.nodes[i];
        if (!node.hasSpecs) continue;
        for (const Usd_LayerStackEntry& entry : node.layerStack->GetLayers()) {
            if (const SdfData::FieldVector* fields = entry.layer->GetData().GetFields(node.path)) {
                opinions->push_back({entry.layer.operator->(), node.path, node.offset * entry.offset, node.map, fields});
            }
        }
    }
}

PXR_NAMESPACE_CLOSE_SCOPE
