#pragma once

// The interned nodes behind SdfPath. Internal to sdf/.

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// Node kinds, in the order OpenUSD sorts siblings of different kinds.
enum class Sdf_PathNodeType : uint8_t {
    Root,
    Prim,
    PrimProperty,
    PrimVariantSelection,
    Target,
    RelationalAttribute,
    Mapper,
    MapperArg,
    Expression,
};

struct Sdf_PathNode {
    const Sdf_PathNode* parent = nullptr;
    /// Prim, property, relational attribute or mapper-argument name; the
    /// variant set of a variant selection; "/" or "." for the two roots.
    TfToken name;
    /// The selected variant of a variant selection (may be empty).
    TfToken variant;
    /// The target path's node of a target or mapper element.
    const Sdf_PathNode* target = nullptr;
    size_t hash = 0;
    uint32_t elementCount = 0;
    Sdf_PathNodeType type = Sdf_PathNodeType::Root;
    bool absolute = false;
    bool containsVariantSelection = false;
    bool containsTarget = false;
    /// The path's text, built on first request and kept.
    mutable std::atomic<const std::string*> text{nullptr};

    bool IsPrimLike() const
    {
        return type == Sdf_PathNodeType::Root || type == Sdf_PathNodeType::Prim ||
               type == Sdf_PathNodeType::PrimVariantSelection;
    }
};

const Sdf_PathNode* Sdf_AbsoluteRootNode();
const Sdf_PathNode* Sdf_RelativeRootNode();

/// The unique node for (parent, type, name, variant, target), made on first use.
const Sdf_PathNode* Sdf_FindOrCreatePathNode(const Sdf_PathNode* parent, Sdf_PathNodeType type,
                                             const TfToken& name, const TfToken& variant,
                                             const Sdf_PathNode* target);

/// The node for (parent, type, name, variant, target) if one was ever made,
/// else null: a lookup that leaves the table as it was.
const Sdf_PathNode* Sdf_FindPathNode(const Sdf_PathNode* parent, Sdf_PathNodeType type,
                                     const TfToken& name, const TfToken& variant,
                                     const Sdf_PathNode* target);

/// The full text of the path ending in \p node.
const std::string& Sdf_PathNodeText(const Sdf_PathNode* node);

/// The text that \p node adds to its parent's ("A", ".x", "{set=v}", "[/T]"...),
/// without the '/' that separates prim names.
std::string Sdf_PathNodeElementString(const Sdf_PathNode* node);

PXR_NAMESPACE_CLOSE_SCOPE
