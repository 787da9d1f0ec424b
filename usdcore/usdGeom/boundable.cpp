#include "usdcore/usdGeom/boundable.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomBoundable::_GetStaticTypeName()
{
    static const TfToken name("Boundable");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
