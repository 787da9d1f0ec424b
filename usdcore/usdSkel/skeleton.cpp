#include "usdcore/usdSkel/skeleton.h"

#include "usdcore/usdSkel/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdSkelSkeleton::_GetStaticTypeName()
{
    return UsdSkelTokens->Skeleton;
}

UsdAttribute UsdSkelSkeleton::GetJointsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->joints);
}

UsdAttribute UsdSkelSkeleton::GetJointNamesAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->jointNames);
}

UsdAttribute UsdSkelSkeleton::GetBindTransformsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->bindTransforms);
}

UsdAttribute UsdSkelSkeleton::GetRestTransformsAttr() const
{
    return GetPrim().GetAttribute(UsdSkelTokens->restTransforms);
}

PXR_NAMESPACE_CLOSE_SCOPE
