#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/staticTokens.h"

PXR_NAMESPACE_OPEN_SCOPE

// Attribute, relationship and type names of the skeleton schemas.
#define USDSKEL_TOKENS(X)                                                     \
    X(bindTransforms, "bindTransforms")                                       \
    X(blendShapes, "blendShapes")                                             \
    X(blendShapeWeights, "blendShapeWeights")                                 \
    X(classicLinear, "classicLinear")                                         \
    X(dualQuaternion, "dualQuaternion")                                       \
    X(jointNames, "jointNames")                                               \
    X(joints, "joints")                                                       \
    X(normalOffsets, "normalOffsets")                                         \
    X(offsets, "offsets")                                                     \
    X(pointIndices, "pointIndices")                                           \
    X(primvarsSkelGeomBindTransform, "primvars:skel:geomBindTransform")       \
    X(primvarsSkelJointIndices, "primvars:skel:jointIndices")                 \
    X(primvarsSkelJointWeights, "primvars:skel:jointWeights")                 \
    X(primvarsSkelSkinningMethod, "primvars:skel:skinningMethod")             \
    X(restTransforms, "restTransforms")                                       \
    X(rotations, "rotations")                                                 \
    X(scales, "scales")                                                       \
    X(skelAnimationSource, "skel:animationSource")                            \
    X(skelBlendShapes, "skel:blendShapes")                                    \
    X(skelBlendShapeTargets, "skel:blendShapeTargets")                        \
    X(skelJoints, "skel:joints")                                              \
    X(skelSkeleton, "skel:skeleton")                                          \
    X(translations, "translations")                                           \
    X(weight, "weight")                                                       \
    X(BlendShape, "BlendShape")                                               \
    X(SkelAnimation, "SkelAnimation")                                         \
    X(SkelBindingAPI, "SkelBindingAPI")                                       \
    X(Skeleton, "Skeleton")                                                   \
    X(SkelRoot, "SkelRoot")

TF_DECLARE_PUBLIC_TOKENS(UsdSkelTokens, USDSKEL_TOKENS);

PXR_NAMESPACE_CLOSE_SCOPE
