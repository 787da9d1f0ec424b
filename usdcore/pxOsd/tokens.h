#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/staticTokens.h"

// Subdivision schemes and windings, as OpenSubdiv's side of imaging names
// them.
#define PXOSD_OPENSUBDIV_TOKENS(X)                                            \
    X(bilinear, "bilinear")                                                   \
    X(catmullClark, "catmullClark")                                           \
    X(leftHanded, "leftHanded")                                               \
    X(loop, "loop")                                                           \
    X(none, "none")                                                           \
    X(rightHanded, "rightHanded")

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_PUBLIC_TOKENS(PxOsdOpenSubdivTokens, PXOSD_OPENSUBDIV_TOKENS);

PXR_NAMESPACE_CLOSE_SCOPE
