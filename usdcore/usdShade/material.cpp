#include "usdcore/usdShade/material.h"

#include "usdcore/usdShade/shader.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdShadeMaterial::_GetStaticTypeName()
{
    return UsdShadeTokens->Material;
}

UsdShadeOutput UsdShadeMaterial::_GetTerminal(const TfToken& renderContext, const TfToken& terminal) const
{
    if (renderContext.IsEmpty()) return GetOutput(terminal);
    return GetOutput(TfToken(renderContext.GetString() + ":" + terminal.GetString()));
}

UsdShadeShader UsdShadeMaterial::ComputeSurfaceSource(const TfToken& renderContext, TfToken* sourceName,
                                                      UsdShadeAttributeType* sourceType) const
{
    const UsdShadeOutput output = GetSurfaceOutput(renderContext);
    if (!output && !renderContext.IsEmpty()) {
        return ComputeOutputSource(UsdShadeTokens->surface, sourceName, sourceType);
    }
    return ComputeOutputSource(output.GetBaseName(), sourceName, sourceType);
}

PXR_NAMESPACE_CLOSE_SCOPE
