#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/staticTokens.h"

#define HD_TOKENS(X)                                                          \
    X(leftHanded, "leftHanded")                                               \
    X(rightHanded, "rightHanded")

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_PUBLIC_TOKENS(HdTokens, HD_TOKENS);

PXR_NAMESPACE_CLOSE_SCOPE
