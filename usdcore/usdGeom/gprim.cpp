#include "usdcore/usdGeom/gprim.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomGprim::_GetStaticTypeName()
{
    static const TfToken name("Gprim");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
