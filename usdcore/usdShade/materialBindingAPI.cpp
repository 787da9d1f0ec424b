#include "usdcore/usdShade/materialBindingAPI.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"

#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

TfToken DirectBindingRelName(const TfToken& materialPurpose)
{
    if (materialPurpose.IsEmpty()) return UsdShadeTokens->materialBinding;
    return TfToken(UsdShadeTokens->materialBinding.GetString() + ":" + materialPurpose.GetString());
}

/// The purpose a binding relationship's name carries: what follows
/// "material:binding:", or the empty all-purpose token.
TfToken MaterialPurposeOf(const UsdRelationship& bindingRel)
{
    const std::string& name = bindingRel.GetName().GetString();
    const std::string prefix = UsdShadeTokens->materialBinding.GetString() + ":";
    if (name.size() > prefix.size() && name.compare(0, prefix.size(), prefix) == 0) {
        return TfToken(name.substr(prefix.size()));
    }
    return UsdShadeTokens->allPurpose;
}

} // namespace

UsdShadeMaterialBindingAPI::DirectBinding::DirectBinding(const UsdRelationship& bindingRel)
    : _bindingRel(bindingRel), _materialPurpose(MaterialPurposeOf(bindingRel))
{
    SdfPathVector targets;
    if (_bindingRel) _bindingRel.GetTargets(&targets);
    if (targets.size() == 1 && targets.front().IsPrimPath()) _materialPath = targets.front();
}

UsdShadeMaterial UsdShadeMaterialBindingAPI::DirectBinding::GetMaterial() const
{
    if (_materialPath.IsEmpty()) return UsdShadeMaterial();
    return UsdShadeMaterial(_bindingRel.GetStage()->GetPrimAtPath(_materialPath));
}

UsdRelationship UsdShadeMaterialBindingAPI::GetDirectBindingRel(const TfToken& materialPurpose) const
{
    return GetPrim().GetRelationship(DirectBindingRelName(materialPurpose));
}

TfToken UsdShadeMaterialBindingAPI::GetMaterialBindingStrength(const UsdRelationship& bindingRel)
{
    TfToken strength;
    bindingRel.GetMetadata(UsdShadeTokens->bindMaterialAs, &strength);
    return strength.IsEmpty() ? UsdShadeTokens->weakerThanDescendants : strength;
}

UsdShadeMaterial UsdShadeMaterialBindingAPI::ComputeBoundMaterial(const TfToken& materialPurpose,
                                                                  UsdRelationship* bindingRel) const
{
    if (!GetPrim()) {
        TF_CODING_ERROR("Invalid prim");
        return UsdShadeMaterial();
    }
    std::vector<TfToken> purposes{materialPurpose};
    if (!materialPurpose.IsEmpty()) purposes.push_back(UsdShadeTokens->allPurpose);

    for (const TfToken& purpose : purposes) {
        UsdShadeMaterial bound;
        UsdRelationship winner;
        // From the prim upwards: a nearer binding is kept unless an ancestor
        // insists on being stronger than its descendants.
        for (UsdPrim prim = GetPrim(); prim && !prim.IsPseudoRoot(); prim = prim.GetParent()) {
            const DirectBinding binding = UsdShadeMaterialBindingAPI(prim).GetDirectBinding(purpose);
            const UsdShadeMaterial material = binding.GetMaterial();
            if (!material) continue;
            if (!bound || GetMaterialBindingStrength(binding.GetBindingRel()) ==
                              UsdShadeTokens->strongerThanDescendants) {
                bound = material;
                winner = binding.GetBindingRel();
            }
        }
        if (bound) {
            if (bindingRel) *bindingRel = winner;
            return bound;
        }
    }
    return UsdShadeMaterial();
}

PXR_NAMESPACE_CLOSE_SCOPE
