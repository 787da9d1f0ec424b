#pragma once

// How paths of an arc's namespace appear on the stage: a reference that
// brings </Model> of another layer under </World/Chair> shows </Model/Seat>
// as </World/Chair/Seat>. Relationship targets and connections authored
// across arcs are moved to the stage's namespace through these maps.

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"

#include <utility>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class Usd_NamespaceMap
{
public:
    /// (source prefix in the arc's namespace, target prefix on the stage).
    using PrefixPair = std::pair<SdfPath, SdfPath>;

    /// Maps every path to itself: the map of the root layer stack.
    static Usd_NamespaceMap Identity();

    /// The map of an arc that brings \p source (in the arc's namespace) to
    /// \p target (in the namespace of the arc's owner, whose own map to the
    /// stage is \p ownerMap). With \p keepOutside, paths outside \p source
    /// pass through unchanged, as they do across class arcs and internal
    /// references, which stay in the same layer stack.
    static Usd_NamespaceMap ForArc(const Usd_NamespaceMap& ownerMap, const SdfPath& source,
                                   const SdfPath& target, bool keepOutside);

    /// \p path on the stage, or the empty path when the map does not reach
    /// it (a target outside a referenced model).
    SdfPath MapToStage(const SdfPath& path) const;

    const std::vector<PrefixPair>& GetPairs() const { return _pairs; }

private:
    std::vector<PrefixPair> _pairs;
};

PXR_NAMESPACE_CLOSE_SCOPE
