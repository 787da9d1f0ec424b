#include "usdcore/usdGeom/scope.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomScope::_GetStaticTypeName()
{
    static const TfToken name("Scope");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
