#include "usdcore/usdSkel/root.h"

#include "usdcore/usdSkel/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdSkelRoot::_GetStaticTypeName()
{
    return UsdSkelTokens->SkelRoot;
}

UsdSkelRoot UsdSkelRoot::Find(const UsdPrim& prim)
{
    for (UsdPrim p = prim; p && !p.IsPseudoRoot(); p = p.GetParent()) {
        if (p.IsA<UsdSkelRoot>()) return UsdSkelRoot(p);
    }
    return UsdSkelRoot();
}

PXR_NAMESPACE_CLOSE_SCOPE
