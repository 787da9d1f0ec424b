#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Only the prim's own direct binding counts: bindings inherited from
// ancestors, restricted to a purpose or made through collections do not. Every
// material the relationship names is converted, in order, into the same basic
// material, so the last one has the final word, on the name as well.
bool CTavrinUSDReaderHandler::ReadMaterialBinding(const UsdPrim& prim, CTavrinBasicGeneralMaterial* basicMaterial,
                                                  CTavrinString* name)
{
    const UsdRelationship binding = prim.GetRelationship(UsdShadeTokens->materialBinding);
    SdfPathVector targets;
    if (!binding || !binding.GetTargets(&targets) || targets.empty())
        return false;

    bool foundMaterial = false;
    for (const SdfPath& target : targets) {
        const UsdShadeMaterial material = UsdShadeMaterial::Get(stage, target);
        if (!material)
            continue;
        if (name)
            *name = CTavrinString(material.GetPath().GetName());
        ReadPreviewSurface(material, basicMaterial);
        foundMaterial = true;
    }
    return foundMaterial;
}

} // namespace Tavrin
