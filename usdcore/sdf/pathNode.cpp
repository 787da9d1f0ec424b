#include "usdcore/sdf/pathNode.h"

#include <deque>
#include <functional>
#include <mutex>
#include <unordered_set>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

size_t CombineHash(size_t seed, size_t value)
{
    return seed ^ (value + 0x9e3779b97f4a7c15ull + (seed << 6) + (seed >> 2));
}

size_t NodeKeyHash(const Sdf_PathNode* parent, Sdf_PathNodeType type, const TfToken& name,
                   const TfToken& variant, const Sdf_PathNode* target)
{
    size_t h = std::hash<const void*>()(parent);
    h = CombineHash(h, static_cast<size_t>(type));
    h = CombineHash(h, name.Hash());
    h = CombineHash(h, variant.Hash());
    return CombineHash(h, std::hash<const void*>()(target));
}

struct NodeHash {
    size_t operator()(const Sdf_PathNode* node) const { return node->hash; }
};

struct NodeEqual {
    bool operator()(const Sdf_PathNode* a, const Sdf_PathNode* b) const
    {
        return a->parent == b->parent && a->type == b->type && a->name == b->name &&
               a->variant == b->variant && a->target == b->target;
    }
};

// Readers may build paths from several threads; sharding by hash keeps them
// from queueing on one lock. Nodes live in deques so their addresses never
// move, and are never freed: a path stays valid for the whole run.
constexpr size_t kShardCount = 64;

struct Shard {
    std::mutex mutex;
    std::unordered_set<const Sdf_PathNode*, NodeHash, NodeEqual> index;
    std::deque<Sdf_PathNode> nodes;
};

struct NodeTable {
    Shard shards[kShardCount];
    Sdf_PathNode absoluteRoot;
    Sdf_PathNode relativeRoot;

    NodeTable()
    {
        absoluteRoot.name = TfToken("/");
        absoluteRoot.absolute = true;
        absoluteRoot.hash = 1;
        relativeRoot.name = TfToken(".");
        relativeRoot.hash = 2;
    }
};

NodeTable& Table()
{
    static NodeTable* table = new NodeTable;
    return *table;
}

} // namespace

const Sdf_PathNode* Sdf_AbsoluteRootNode()
{
    return &Table().absoluteRoot;
}

const Sdf_PathNode* Sdf_RelativeRootNode()
{
    return &Table().relativeRoot;
}

const Sdf_PathNode* Sdf_FindOrCreatePathNode(const Sdf_PathNode* parent, Sdf_PathNodeType type,
                                             const TfToken& name, const TfToken& variant,
                                             const Sdf_PathNode* target)
{
    Sdf_PathNode key;
    key.parent = parent;
    key.type = type;
    key.name = name;
    key.variant = variant;
    key.target = target;
    key.hash = NodeKeyHash(parent, type, name, variant, target);

    Shard& shard = Table().shards[key.hash % kShardCount];
    std::lock_guard<std::mutex> lock(shard.mutex);
    auto found = shard.index.find(&key);
    if (found != shard.index.end()) {
        return *found;
    }
    Sdf_PathNode& node = shard.nodes.emplace_back();
    node.parent = parent;
    node.type = type;
    node.name = name;
    node.variant = variant;
    node.target = target;
    node.hash = key.hash;
    node.elementCount = parent->elementCount + 1;
    node.absolute = parent->absolute;
    node.containsVariantSelection = parent->containsVariantSelection ||
                                    type == Sdf_PathNodeType::PrimVariantSelection;
    node.containsTarget = parent->containsTarget || target != nullptr;
    shard.index.insert(&node);
    return &node;
}

std::string Sdf_PathNodeElementString(const Sdf_PathNode* node)
{
    switch (node->type) {
    case Sdf_PathNodeType::Root:
    case Sdf_PathNodeType::Prim:
        return node->name.GetString();
    case Sdf_PathNodeType::PrimProperty:
    case Sdf_PathNodeType::RelationalAttribute:
    case Sdf_PathNodeType::MapperArg:
        return "." + node->name.GetString();
    case Sdf_PathNodeType::PrimVariantSelection:
        return "{" + node->name.GetString() + "=" + node->variant.GetString() + "}";
    case Sdf_PathNodeType::Target:
        return "[" + Sdf_PathNodeText(node->target) + "]";
    case Sdf_PathNodeType::Mapper:
        return ".mapper[" + Sdf_PathNodeText(node->target) + "]";
    case Sdf_PathNodeType::Expression:
        return ".expression";
    }
    return std::string();
}

namespace {

std::string BuildText(const Sdf_PathNode* node)
{
    if (node->type == Sdf_PathNodeType::Root) {
        return node->name.GetString();
    }
    std::vector<const Sdf_PathNode*> chain;
    for (const Sdf_PathNode* n = node; n->type != Sdf_PathNodeType::Root; n = n->parent) {
        chain.push_back(n);
    }
    std::string text = node->absolute ? "/" : "";
    const Sdf_PathNode* previous = nullptr;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        const Sdf_PathNode* n = *it;
        // Prim names are separated by '/', except directly after a root or a
        // variant selection ("/A{v=x}B").
        if (n->type == Sdf_PathNodeType::Prim && previous &&
            previous->type == Sdf_PathNodeType::Prim) {
            text += '/';
        }
        text += Sdf_PathNodeElementString(n);
        previous = n;
    }
    return text;
}

} // namespace

const std::string& Sdf_PathNodeText(const Sdf_PathNode* node)
{
    const std::string* text = node->text.load(std::memory_order_acquire);
    if (text) {
        return *text;
    }
    const std::string* built = new std::string(BuildText(node));
    if (node->text.compare_exchange_strong(text, built, std::memory_order_acq_rel)) {
        return *built;
    }
    // Another thread stored the same text first.
    delete built;
    return *text;
}

PXR_NAMESPACE_CLOSE_SCOPE
