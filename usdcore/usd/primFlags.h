#pragma once

// Which prims a traversal or a child listing visits: a conjunction of
// conditions on the flags every prim carries from composition.

#include "usdcore/pxr.h"

#include <cstdint>

PXR_NAMESPACE_OPEN_SCOPE

class Usd_PrimData;

enum Usd_PrimFlags : uint32_t {
    Usd_PrimActiveFlag = 1u << 0,
    /// The prim and all its ancestors are loaded (no payload left unloaded).
    Usd_PrimLoadedFlag = 1u << 1,
    /// The prim and all its ancestors have a defining specifier (def, class).
    Usd_PrimDefinedFlag = 1u << 2,
    /// The prim or one of its ancestors is a class.
    Usd_PrimAbstractFlag = 1u << 3,
    Usd_PrimInstanceFlag = 1u << 4,
    Usd_PrimHasDefiningSpecifierFlag = 1u << 5,
    Usd_PrimHasPayloadFlag = 1u << 6,
    Usd_PrimPseudoRootFlag = 1u << 7,
    /// Below an instance: a prim of the instance's prototype, seen at the
    /// instance's place in namespace.
    Usd_PrimInstanceProxyFlag = 1u << 9,
};

/// One condition: a flag set, or with operator! a flag clear.
class Usd_Term
{
public:
    constexpr explicit Usd_Term(Usd_PrimFlags flag, bool negated = false) : _flag(flag), _negated(negated) {}
    constexpr Usd_Term operator!() const { return Usd_Term(_flag, !_negated); }
    constexpr Usd_PrimFlags GetFlag() const { return _flag; }
    constexpr bool IsNegated() const { return _negated; }

private:
    Usd_PrimFlags _flag;
    bool _negated;
};

/// Holds when every condition holds.
class Usd_PrimFlagsPredicate
{
public:
    /// Holds for every prim.
    constexpr Usd_PrimFlagsPredicate() = default;
    constexpr Usd_PrimFlagsPredicate(Usd_Term term)
        : _mask(term.GetFlag()), _values(term.IsNegated() ? 0u : uint32_t(term.GetFlag()))
    {
    }

    constexpr Usd_PrimFlagsPredicate operator&&(Usd_Term term) const
    {
        Usd_PrimFlagsPredicate result = *this;
        result._mask |= term.GetFlag();
        result._values = (result._values & ~uint32_t(term.GetFlag())) |
                         (term.IsNegated() ? 0u : uint32_t(term.GetFlag()));
        return result;
    }

    /// Instance proxies match only a predicate that asks for them.
    constexpr bool Matches(uint32_t flags) const
    {
        return (flags & _mask) == _values && (_traverseInstanceProxies || !(flags & Usd_PrimInstanceProxyFlag));
    }
    constexpr bool IncludesInstanceProxies() const { return _traverseInstanceProxies; }
    friend constexpr Usd_PrimFlagsPredicate UsdTraverseInstanceProxies(Usd_PrimFlagsPredicate predicate);
    bool operator()(const Usd_PrimData& prim) const;

    constexpr bool operator==(const Usd_PrimFlagsPredicate& o) const
    {
        return _mask == o._mask && _values == o._values && _traverseInstanceProxies == o._traverseInstanceProxies;
    }

private:
    uint32_t _mask = 0;
    uint32_t _values = 0;
    bool _traverseInstanceProxies = false;
};

/// \p predicate, also matching the prims below instances (instance proxies).
constexpr Usd_PrimFlagsPredicate UsdTraverseInstanceProxies(Usd_PrimFlagsPredicate predicate)
{
    predicate._traverseInstanceProxies = true;
    return predicate;
}

using Usd_PrimFlagsConjunction = Usd_PrimFlagsPredicate;

constexpr Usd_PrimFlagsPredicate operator&&(Usd_Term lhs, Usd_Term rhs)
{
    return Usd_PrimFlagsPredicate(lhs) && rhs;
}

inline constexpr Usd_Term UsdPrimIsActive{Usd_PrimActiveFlag};
inline constexpr Usd_Term UsdPrimIsLoaded{Usd_PrimLoadedFlag};
inline constexpr Usd_Term UsdPrimIsDefined{Usd_PrimDefinedFlag};
inline constexpr Usd_Term UsdPrimIsAbstract{Usd_PrimAbstractFlag};
inline constexpr Usd_Term UsdPrimIsInstance{Usd_PrimInstanceFlag};
inline constexpr Usd_Term UsdPrimHasDefiningSpecifier{Usd_PrimHasDefiningSpecifierFlag};

/// What Traverse and GetChildren visit unless told otherwise: active,
/// loaded, defined, non-abstract prims.
inline constexpr Usd_PrimFlagsPredicate UsdPrimDefaultPredicate =
    UsdPrimIsActive && UsdPrimIsDefined && UsdPrimIsLoaded && !UsdPrimIsAbstract;
inline constexpr Usd_PrimFlagsPredicate UsdPrimAllPrimsPredicate{};

/// The default predicate, also matching instance proxies.
constexpr Usd_PrimFlagsPredicate UsdTraverseInstanceProxies()
{
    return UsdTraverseInstanceProxies(UsdPrimDefaultPredicate);
}

PXR_NAMESPACE_CLOSE_SCOPE
