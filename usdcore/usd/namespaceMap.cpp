#include "usdcore/usd/namespaceMap.h"

PXR_NAMESPACE_OPEN_SCOPE

Usd_NamespaceMap Usd_NamespaceMap::Identity()
{
    Usd_NamespaceMap map;
    map._pairs.emplace_back(SdfPath::AbsoluteRootPath(), SdfPath::AbsoluteRootPath());
    return map;
}

Usd_NamespaceMap Usd_NamespaceMap::ForArc(const Usd_NamespaceMap& ownerMap, const SdfPath& source,
                                          const SdfPath& target, bool keepOutside)
{
    Usd_NamespaceMap map;
    const SdfPath onStage = ownerMap.MapToStage(target);
    if (!onStage.IsEmpty()) {
        map._pairs.emplace_back(source, onStage);
    }
    if (keepOutside) {
        // Paths outside the source reach the stage the way the owner's do.
        // An owner pair inside the source would shadow the arc's own pair
        // for deeper paths, so it is left out.
        for (const PrefixPair& pair : ownerMap._pairs) {
            if (!pair.first.HasPrefix(source)) {
                map._pairs.push_back(pair);
            }
        }
    }
    return map;
}

SdfPath Usd_NamespaceMap::MapToStage(const SdfPath& path) const
{
    // The longest matching source prefix decides.
    const PrefixPair* best = nullptr;
    for (const PrefixPair& pair : _pairs) {
        if (path.HasPrefix(pair.first) &&
            (!best || pair.first.GetPathElementCount() > best->first.GetPathElementCount())) {
            best = &pair;
        }
    }
    if (!best) {
        return SdfPath();
    }
    return path.ReplacePrefix(best->first, best->second);
}

PXR_NAMESPACE_CLOSE_SCOPE
