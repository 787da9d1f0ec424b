#include "usdcore/sdf/pathNode.h"

#include <deque>
#include <functional>
#include <mutex>
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
    h = CombineHash(h, std::hash<const void*>()(target));
    // Final avalanche (from MurmurHash3): node addresses differ only in a
    // few middle bits, and both the shard and the bucket are taken from
    // the hash modulo small numbers.
    h ^= h >> 33;
    h *= 0xff51afd7ed558ccdull;
    h ^= h >> 33;
    h *= 0xc4ceb9fe1a85ec53ull;
    h ^= h >> 33;
    return h;
}

bool SameKey(const Sdf_PathNode& a, const Sdf_PathNode& b)
{
    return a.parent == b.parent && a.type == b.type && a.name == b.name &&
           a.variant == b.variant && a.target == b.target;
}

// Open addressing with linear probing over (hash, node) slots: a lookup
// touches one or two cache lines of slots and the node it finds, where a
// node-based hash set chases a pointer per step.
class NodeIndex
{
public:
    const Sdf_PathNode* Find(const Sdf_PathNode& key) const
    {
        if (_slots.empty()) {
            return nullptr;
        }
        for (size_t i = key.hash & _mask;; i = (i + 1) & _mask) {
            const Slot& slot = _slots[i];
            if (!slot.node) {
                return nullptr;
            }
            if (slot.hash == key.hash && SameKey(*slot.node, key)) {
                return slot.node;
            }
        }
    }

    void Insert(const Sdf_PathNode* node)
    {
        // Kept at most half full, so probes stay short.
        if (2 * (_count + 1) > _slots.size()) {
            Grow();
        }
        Place(node);
        ++_count;
    }

private:
    struct Slot {
        size_t hash = 0;
        const Sdf_PathNode* node = nullptr;
    };

    void Place(const Sdf_PathNode* node)
    {
        size_t i = node->hash & _mask;
        while (_slots[i].node) {
            i = (i + 1) & _mask;
        }
        _slots[i] = Slot{node->hash, node};
    }

    void Grow()
    {
        std::vector<Slot> old = std::move(_slots);
        _slots.assign(old.empty() ? 64 : old.size() * 2, Slot());
        _mask = _slots.size() - 1;
        for (const Slot& slot : old) {
            if (slot.node) {
                Place(slot.node);
            }
        }
    }

    std::vector<Slot> _slots;
    size_t _mask = 0;
    size_t _count = 0;
};

// Readers may build paths from several threads; sharding by hash keeps them
// from queueing on one lock. Nodes live in deques so their addresses never
// move, and are never freed: a path stays valid for the whole run.
constexpr size_t kShardCount = 64;

struct Shard {
    std::mutex mutex;
    NodeIndex index;
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

namespace {

// The node for the key, made when missing if \p create, else null.
const Sdf_PathNode* Lookup(const Sdf_PathNode* parent, Sdf_PathNodeType type, const TfToken& name,
                           const TfToken& variant, const Sdf_PathNode* target, bool create)
{
    Sdf_PathNode key;
    key.parent = parent;
    key.type = type;
    key.name = name;
    key.variant = variant;
    key.target = target;
    key.hash = NodeKeyHash(parent, type, name, variant, target);

    Shard& shard = Table().shards[(key.hash >> 58) % kShardCount];
    std::lock_guard<std::mutex> lock(shard.mutex);
    if (const Sdf_PathNode* found = shard.index.Find(key)) {
        return found;
    }
    if (!create) {
        return nullptr;
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
    shard.index.Insert(&node);
    return &node;
}

} // namespace

const Sdf_PathNode* Sdf_FindPathNode(const Sdf_PathNode* parent, Sdf_PathNodeType type,
                                     const TfToken& name, const TfToken& variant,
                                     const Sdf_PathNode* target)
{
    return Lookup(parent, type, name, variant, target, false);
}

const Sdf_PathNode* Sdf_FindOrCreatePathNode(const Sdf_PathNode* parent, Sdf_PathNodeType type,
                                             const TfToken& name, const TfToken& variant,
                                             const Sdf_PathNode* target)
{
    return Lookup(parent, type, name, variant, target, true);
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
