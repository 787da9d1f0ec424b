#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/usdShade/types.h"

#include <string>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

class UsdShadeUtils
{
public:
    /// "inputs:" or "outputs:" for those kinds, else the empty string.
    static std::string GetPrefixForAttributeType(UsdShadeAttributeType sourceType);

    /// The name without its "inputs:" or "outputs:" prefix, and which of the
    /// two it had: ("diffuseColor", Input) for "inputs:diffuseColor". Other
    /// names come back whole, with Invalid.
    static std::pair<TfToken, UsdShadeAttributeType> GetBaseNameAndType(const TfToken& fullName);

    static UsdShadeAttributeType GetType(const TfToken& fullName) { return GetBaseNameAndType(fullName).second; }
};

PXR_NAMESPACE_CLOSE_SCOPE
