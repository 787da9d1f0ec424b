#include "usdcore/usdGeom/xform.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomXform::_GetStaticTypeName()
{
    static const TfToken name("Xform");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
