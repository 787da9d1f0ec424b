#include "usdcore/usdGeom/imageable.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomImageable::_GetStaticTypeName()
{
    static const TfToken name("Imageable");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
