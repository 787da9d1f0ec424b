#include "usdcore/usd/property.h"

#include "usdcore/sdf/schema.h"
#include "usdcore/tf/stringUtils.h"

PXR_NAMESPACE_OPEN_SCOPE

TfToken UsdProperty::GetBaseName() const
{
    const std::string& name = _propName.GetString();
    const size_t colon = name.rfind(':');
    return colon == std::string::npos ? _propName : TfToken(name.substr(colon + 1));
}

TfToken UsdProperty::GetNamespace() const
{
    const std::string& name = _propName.GetString();
    const size_t colon = name.rfind(':');
    return colon == std::string::npos ? TfToken() : TfToken(name.substr(0, colon));
}

std::vector<std::string> UsdProperty::SplitName() const
{
    return TfStringSplit(_propName.GetString(), ":");
}

bool UsdProperty::IsDefined() const
{
    return _prim && _GetDefiningSpecType() != SdfSpecTypeUnknown;
}

bool UsdProperty::IsAuthored() const
{
    return _prim && _GetAuthoredSpecType() != SdfSpecTypeUnknown;
}

bool UsdProperty::IsCustom() const
{
    bool custom = false;
    return GetMetadata(SdfFieldKeys->Custom, &custom) && custom;
}

PXR_NAMESPACE_CLOSE_SCOPE
