#include "usdcore/usdShade/utils.h"

#include "usdcore/tf/stringUtils.h"
#include "usdcore/usdShade/tokens.h"

PXR_NAMESPACE_OPEN_SCOPE

std::string UsdShadeUtils::GetPrefixForAttributeType(UsdShadeAttributeType sourceType)
{
    switch (sourceType) {
    case UsdShadeAttributeType::Input:
        return UsdShadeTokens->inputs.GetString();
    case UsdShadeAttributeType::Output:
        return UsdShadeTokens->outputs.GetString();
    case UsdShadeAttributeType::Invalid:
        break;
    }
    return std::string();
}

std::pair<TfToken, UsdShadeAttributeType> UsdShadeUtils::GetBaseNameAndType(const TfToken& fullName)
{
    const std::string& name = fullName.GetString();
    for (const UsdShadeAttributeType type : {UsdShadeAttributeType::Input, UsdShadeAttributeType::Output}) {
        const std::string prefix = GetPrefixForAttributeType(type);
        if (TfStringStartsWith(name, prefix)) return {TfToken(name.substr(prefix.size())), type};
    }
    return {fullName, UsdShadeAttributeType::Invalid};
}

PXR_NAMESPACE_CLOSE_SCOPE
