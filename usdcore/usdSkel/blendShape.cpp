#include "usdcore/usdSkel/blendShape.h"

#include "usdcore/usdSkel/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdSkelBlendShape::_GetStaticTypeName()
{
    return UsdSkelTokens->BlendShape;
}

UsdAttribute UsdSkelBlendShape::GetOffsetsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->offsets);
}

UsdAttribute UsdSkelBlendShape::GetNormalOffsetsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->normalOffsets);
}

UsdAttribute UsdSkelBlendShape::GetPointIndicesAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->pointIndices);
}

PXR_NAMESPACE_CLOSE_SCOPE
