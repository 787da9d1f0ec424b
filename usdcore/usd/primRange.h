#pragma once

#include "usdcore/pxr.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/primFlags.h"

#include <iterator>

PXR_NAMESPACE_OPEN_SCOPE

/// A prim and its descendants, depth first with parents before children,
/// limited to prims that pass a predicate: a prim that fails is skipped with
/// everything below it. Instances are visited, not entered.
class UsdPrimRange
{
public:
    class iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = UsdPrim;
        using difference_type = std::ptrdiff_t;
        using reference = UsdPrim;
        using pointer = void;

        iterator() = default;

        UsdPrim operator*() const { return UsdPrim(_prim); }
        iterator& operator++();
        iterator operator++(int)
        {
            iterator result = *this;
            ++*this;
            return result;
        }
        /// The next increment skips the current prim's descendants.
        void PruneChildren() { _pruneChildren = true; }

        bool operator==(const iterator& o) const { return _prim == o._prim; }
        bool operator!=(const iterator& o) const { return _prim != o._prim; }

    private:
        friend class UsdPrimRange;
        iterator(const Usd_PrimData* prim, const Usd_PrimData* top, const Usd_PrimFlagsPredicate& predicate)
            : _prim(prim), _top(top), _predicate(predicate)
        {
        }

        const Usd_PrimData* _prim = nullptr;
        const Usd_PrimData* _top = nullptr;
        Usd_PrimFlagsPredicate _predicate;
        bool _pruneChildren = false;
    };
    using const_iterator = iterator;

    UsdPrimRange() = default;
    explicit UsdPrimRange(const UsdPrim& start, const Usd_PrimFlagsPredicate& predicate = UsdPrimDefaultPredicate);

    /// Every prim of \p stage below its pseudo-root.
    static UsdPrimRange Stage(const UsdStagePtr& stage,
                              const Usd_PrimFlagsPredicate& predicate = UsdPrimDefaultPredicate);

    iterator begin() const { return iterator(_first, _top, _predicate); }
    iterator end() const { return iterator(); }
    bool empty() const { return _first == nullptr; }
    UsdPrim front() const { return UsdPrim(_first); }

private:
    UsdPrimRange(const Usd_PrimData* first, const Usd_PrimData* top, const Usd_PrimFlagsPredicate& predicate)
        : _first(first), _top(top), _predicate(predicate)
    {
    }
    const Usd_PrimData* _first = nullptr;
    /// The walk ends when it climbs back to this prim.
    const Usd_PrimData* _top = nullptr;
    Usd_PrimFlagsPredicate _predicate;
};

PXR_NAMESPACE_CLOSE_SCOPE
