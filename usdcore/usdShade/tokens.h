#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/staticTokens.h"

PXR_NAMESPACE_OPEN_SCOPE

// Property names, prefixes and values of the shading schemas.
#define USDSHADE_TOKENS(X)                                                    \
    X(allPurpose, "")                                                         \
    X(bindMaterialAs, "bindMaterialAs")                                       \
    X(displacement, "displacement")                                           \
    X(full, "full")                                                           \
    X(id, "id")                                                               \
    X(infoId, "info:id")                                                      \
    X(infoImplementationSource, "info:implementationSource")                  \
    X(inputs, "inputs:")                                                      \
    X(materialBind, "materialBind")                                           \
    X(materialBinding, "material:binding")                                    \
    X(materialBindingCollection, "material:binding:collection")               \
    X(outputs, "outputs:")                                                    \
    X(outputsDisplacement, "outputs:displacement")                            \
    X(outputsSurface, "outputs:surface")                                      \
    X(outputsVolume, "outputs:volume")                                        \
    X(preview, "preview")                                                     \
    X(sourceAsset, "sourceAsset")                                             \
    X(sourceCode, "sourceCode")                                               \
    X(strongerThanDescendants, "strongerThanDescendants")                     \
    X(surface, "surface")                                                     \
    X(universalRenderContext, "")                                             \
    X(volume, "volume")                                                       \
    X(weakerThanDescendants, "weakerThanDescendants")                         \
    X(Material, "Material")                                                   \
    X(MaterialBindingAPI, "MaterialBindingAPI")                               \
    X(NodeGraph, "NodeGraph")                                                 \
    X(Shader, "Shader")

TF_DECLARE_PUBLIC_TOKENS(UsdShadeTokens, USDSHADE_TOKENS);

PXR_NAMESPACE_CLOSE_SCOPE
