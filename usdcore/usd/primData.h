#pragma once

// A composed prim as the stage keeps it: where it is, what composition
// decided about it, and its place among its siblings. Prims are made once
// when the stage opens and never change; the handles (UsdPrim, UsdAttribute)
// point here.

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/primFlags.h"
#include "usdcore/usd/primIndex.h"

#include <cstdint>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

class UsdStage;

class Usd_PrimData
{
public:
    UsdStage* stage = nullptr;
    SdfPath path;
    TfToken typeName;
    SdfSpecifier specifier = SdfSpecifierOver;
    uint32_t flags = 0;
    Usd_PrimData* parent = nullptr;
    Usd_PrimData* firstChild = nullptr;
    Usd_PrimData* nextSibling = nullptr;

    bool Has(Usd_PrimFlags flag) const { return (flags & flag) != 0; }

    /// The prim's specs, strongest first.
    const Usd_Opinion* OpinionsBegin() const { return _opinions->data() + _firstOpinion; }
    const Usd_Opinion* OpinionsEnd() const { return OpinionsBegin() + _opinionCount; }

    void SetOpinions(const std::vector<Usd_Opinion>* store, uint32_t first, uint32_t count)
    {
        _opinions = store;
        _firstOpinion = first;
        _opinionCount = count;
    }

private:
    const std::vector<Usd_Opinion>* _opinions = nullptr;
    uint32_t _firstOpinion = 0;
    uint32_t _opinionCount = 0;
};

inline bool Usd_PrimFlagsPredicate::operator()(const Usd_PrimData& prim) const
{
    return Matches(prim.flags);
}

/// \p predicate for what is below \p prim: a walk that starts at an
/// instance proxy is already inside an instance, and sees the proxies there.
inline Usd_PrimFlagsPredicate Usd_PredicateBelow(const Usd_PrimData& prim, const Usd_PrimFlagsPredicate& predicate)
{
    return prim.Has(Usd_PrimInstanceProxyFlag) ? UsdTraverseInstanceProxies(predicate) : predicate;
}

/// The strongest value of \p field among the prim's specs, or null.
const VtValue* Usd_FindPrimField(const Usd_PrimData& prim, const TfToken& field);

PXR_NAMESPACE_CLOSE_SCOPE
