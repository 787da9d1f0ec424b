#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/usd/property.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// Named links from a prim to other prims or properties.
class UsdRelationship : public UsdProperty
{
public:
    UsdRelationship() = default;

    /// The targets: list edits of every spec applied from the weakest to
    /// the strongest, each path made absolute and mapped from the layer's
    /// namespace to the stage's (so a target inside a referenced model
    /// names the prim on the stage). True when targets are authored and all
    /// of them could be mapped.
    bool GetTargets(SdfPathVector* targets) const;
    bool HasAuthoredTargets() const;

private:
    friend class UsdPrim;
    UsdRelationship(const Usd_PrimData* prim, const TfToken& name) : UsdProperty(UsdTypeRelationship, prim, name) {}
};

using UsdRelationshipVector = std::vector<UsdRelationship>;

/// Targets or connections (the path list op in \p field) of the property
/// \p name of \p prim. Shared by relationships and attribute connections.
bool Usd_ComposePathListField(const Usd_PrimData& prim, const TfToken& name, const TfToken& field,
                              SdfPathVector* paths);

PXR_NAMESPACE_CLOSE_SCOPE
