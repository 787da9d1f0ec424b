#include "usdcore/usd/typed.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdTyped::_GetStaticTypeName()
{
    static const TfToken name("Typed");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
