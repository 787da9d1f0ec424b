#include "usdcore/usdGeom/xformable.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomXformable::_GetStaticTypeName()
{
    static const TfToken name("Xformable");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
