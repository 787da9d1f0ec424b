#include "usdcore/usdShade/output.h"

#include "usdcore/tf/stringUtils.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

TfToken UsdShadeOutput::GetBaseName() const
{
    const std::string& name = GetFullName().GetString();
    return TfStringStartsWith(name, UsdShadeTokens->outputs.GetString()) ? TfToken(name.substr(UsdShadeTokens->outputs.size())) : GetFullName();
}

bool UsdShadeOutput::IsOutput(const UsdAttribute& attr)
{
    return attr && attr.IsDefined() && TfStringStartsWith(attr.GetName().GetString(), UsdShadeTokens->outputs.GetString());
}

bool UsdShadeOutput::GetConnectedSource(UsdShadeConnectableAPI* source, TfToken* sourceName,
                                        UsdShadeAttributeType* sourceType) const
{
    return UsdShadeConnectableAPI::GetConnectedSource(_attr, source, sourceName, sourceType);
}

bool UsdShadeOutput::GetRawConnectedSourcePaths(SdfPathVector* sourcePaths) const
{
    return UsdShadeConnectableAPI::GetRawConnectedSourcePaths(_attr, sourcePaths);
}

bool UsdShadeOutput::HasConnectedSource() const
{
    return UsdShadeConnectableAPI::HasConnectedSource(_attr);
}

PXR_NAMESPACE_CLOSE_SCOPE
