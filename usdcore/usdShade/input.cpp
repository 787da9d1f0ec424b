#include "usdcore/usdShade/input.h"

#include "usdcore/tf/stringUtils.h"
#include "usdcore/usdShade/connectableAPI.h"
#include "usdcore/usdShade/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

TfToken UsdShadeInput::GetBaseName() const
{
    const std::string& name = GetFullName().GetString();
    return IsInterfaceInputName(name) ? TfToken(name.substr(UsdShadeTokens->inputs.size())) : GetFullName();
}

bool UsdShadeInput::Get(VtValue* value, UsdTimeCode time) const
{
    return _attr && _attr.Get(value, time);
}

bool UsdShadeInput::IsInput(const UsdAttribute& attr)
{
    return attr && attr.IsDefined() && IsInterfaceInputName(attr.GetName().GetString());
}

bool UsdShadeInput::IsInterfaceInputName(const std::string& name)
{
    return TfStringStartsWith(name, UsdShadeTokens->inputs.GetString());
}

bool UsdShadeInput::GetConnectedSource(UsdShadeConnectableAPI* source, TfToken* sourceName,
                                       UsdShadeAttributeType* sourceType) const
{
    return UsdShadeConnectableAPI::GetConnectedSource(_attr, source, sourceName, sourceType);
}

bool UsdShadeInput::GetRawConnectedSourcePaths(SdfPathVector* sourcePaths) const
{
    return UsdShadeConnectableAPI::GetRawConnectedSourcePaths(_attr, sourcePaths);
}

bool UsdShadeInput::HasConnectedSource() const
{
    return UsdShadeConnectableAPI::HasConnectedSource(_attr);
}

PXR_NAMESPACE_CLOSE_SCOPE
