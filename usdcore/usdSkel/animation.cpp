#include "usdcore/usdSkel/animation.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdSkel/tokens.h"
#include "usdcore/usdSkel/utils.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdSkelAnimation::_GetStaticTypeName()
{
    return UsdSkelTokens->SkelAnimation;
}

UsdAttribute UsdSkelAnimation::GetJointsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->joints);
}

UsdAttribute UsdSkelAnimation::GetTranslationsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->translations);
}

UsdAttribute UsdSkelAnimation::GetRotationsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->rotations);
}

UsdAttribute UsdSkelAnimation::GetScalesAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->scales);
}

UsdAttribute UsdSkelAnimation::GetBlendShapesAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->blendShapes);
}

UsdAttribute UsdSkelAnimation::GetBlendShapeWeightsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->blendShapeWeights);
}

bool UsdSkelAnimation::GetTransforms(VtMatrix4dArray* xforms, UsdTimeCode time) const
{
    if (!xforms) {
        TF_CODING_ERROR("'xforms' pointer is null.");
        return false;
    }
    VtVec3fArray translations;
    VtQuatfArray rotations;
    VtVec3hArray scales;
    if (!GetTranslationsAttr().Get(&translations, time) || !GetRotationsAttr().Get(&rotations, time) ||
        !GetScalesAttr().Get(&scales, time)) {
        return false;
    }
    return UsdSkelMakeTransforms(translations, rotations, scales, xforms);
}

PXR_NAMESPACE_CLOSE_SCOPE
