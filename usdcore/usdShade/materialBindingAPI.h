#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/apiSchemaBase.h"
#include "usdcore/usd/prim.h"
#include "usdcore/usd/relationship.h"
#include "usdcore/usdShade/material.h"
#include "usdcore/usdShade/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The materials bound to a prim through its "material:binding"
/// relationships. Collection-based bindings are not read.
class UsdShadeMaterialBindingAPI : public UsdAPISchemaBase
{
public:
    explicit UsdShadeMaterialBindingAPI(const UsdPrim& prim = UsdPrim()) : UsdAPISchemaBase(prim) {}
    explicit UsdShadeMaterialBindingAPI(const UsdSchemaBase& schemaObj) : UsdAPISchemaBase(schemaObj) {}

    static UsdShadeMaterialBindingAPI Get(const UsdStagePtr& stage, const SdfPath& path)
    {
        return UsdShadeMaterialBindingAPI(Usd_SchemaGetPrim(stage, path));
    }

    /// One direct-binding relationship and the material it names: its single
    /// target, when it has exactly one and that is a prim path.
    class DirectBinding
    {
    public:
        DirectBinding() = default;
        explicit DirectBinding(const UsdRelationship& bindingRel);

        /// The material at the target; invalid when there is no single
        /// target or no Material there.
        UsdShadeMaterial GetMaterial() const;
        const SdfPath& GetMaterialPath() const { return _materialPath; }
        const UsdRelationship& GetBindingRel() const { return _bindingRel; }
        /// "" for "material:binding", "preview" for
        /// "material:binding:preview"...
        const TfToken& GetMaterialPurpose() const { return _materialPurpose; }

    private:
        UsdRelationship _bindingRel;
        SdfPath _materialPath;
        TfToken _materialPurpose;
    };

    /// "material:binding", or "material:binding:<purpose>" for a restricted
    /// purpose; invalid when the prim has no such relationship.
    UsdRelationship GetDirectBindingRel(const TfToken& materialPurpose = UsdShadeTokens->allPurpose) const;
    DirectBinding GetDirectBinding(const TfToken& materialPurpose = UsdShadeTokens->allPurpose) const
    {
        return DirectBinding(GetDirectBindingRel(materialPurpose));
    }

    /// The "bindMaterialAs" metadatum of \p bindingRel, with the fallback
    /// "weakerThanDescendants".
    static TfToken GetMaterialBindingStrength(const UsdRelationship& bindingRel);

    /// The material that applies to the prim: the nearest direct binding on
    /// the prim or an ancestor, unless an ancestor further up binds with
    /// "strongerThanDescendants". Bindings of \p materialPurpose are tried
    /// first, then all-purpose ones. \p bindingRel, when given, receives the
    /// winning relationship.
    UsdShadeMaterial ComputeBoundMaterial(const TfToken& materialPurpose = UsdShadeTokens->allPurpose,
                                          UsdRelationship* bindingRel = nullptr) const;
};

PXR_NAMESPACE_CLOSE_SCOPE
