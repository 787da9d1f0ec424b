#include "usdcore/usdShade/shader.h"

#include "usdcore/usdShade/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdShadeShader::_GetStaticTypeName()
{
    return UsdShadeTokens->Shader;
}

UsdAttribute UsdShadeShader::GetImplementationSourceAttr() const
{
    return GetPrim().GetAttribute(UsdShadeTokens->infoImplementationSource);
}

TfToken UsdShadeShader::GetImplementationSource() const
{
    TfToken source;
    if (GetImplementationSourceAttr().Get(&source)) return source;
    return UsdShadeTokens->id;
}

UsdAttribute UsdShadeShader::GetIdAttr() const
{
    return GetPrim().GetAttribute(UsdShadeTokens->infoId);
}

bool UsdShadeShader::GetShaderId(TfToken* id) const
{
    if (GetImplementationSource() != UsdShadeTokens->id) return false;
    return GetIdAttr().Get(id);
}

PXR_NAMESPACE_CLOSE_SCOPE
