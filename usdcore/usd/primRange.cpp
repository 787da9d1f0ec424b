#include "usdcore/usd/primRange.h"

#include "usdcore/usd/primData.h"
#include "usdcore/usd/stage.h"

PXR_NAMESPACE_OPEN_SCOPE

namespace {

const Usd_PrimData* FirstMatching(const Usd_PrimData* prim, const Usd_PrimFlagsPredicate& predicate)
{
    while (prim && !predicate(*prim)) {
        prim = prim->nextSibling;
    }
    return prim;
}

} // namespace

UsdPrimRange::UsdPrimRange(const UsdPrim& start, const Usd_PrimFlagsPredicate& predicate)
{
    if (!start.IsValid()) return;
    const Usd_PrimData* prim = start._prim;
    const Usd_PrimFlagsPredicate below = Usd_PredicateBelow(*prim, predicate);
    if (below(*prim)) {
        _first = prim;
        _top = prim;
        _predicate = below;
    }
}

UsdPrimRange UsdPrimRange::Stage(const UsdStagePtr& stage, const Usd_PrimFlagsPredicate& predicate)
{
    if (!stage) return UsdPrimRange();
    const UsdPrim root = stage->GetPseudoRoot();
    const Usd_PrimData* top = root._prim;
    return UsdPrimRange(FirstMatching(top->firstChild, predicate), top, predicate);
}

UsdPrimRange::iterator& UsdPrimRange::iterator::operator++()
{
    const bool prune = _pruneChildren;
    _pruneChildren = false;
    if (!prune) {
        if (const Usd_PrimData* child = FirstMatching(_prim->firstChild, _predicate)) {
            _prim = child;
            return *this;
        }
    }
    for (const Usd_PrimData* prim = _prim; prim != _top; prim = prim->parent) {
        if (const Usd_PrimData* sibling = FirstMatching(prim->nextSibling, _predicate)) {
            _prim = sibling;
            return *this;
        }
    }
    _prim = nullptr;
    return *this;
}

PXR_NAMESPACE_CLOSE_SCOPE
