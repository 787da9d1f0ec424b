#include "usdcore/usdGeom/cube.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomCube::_GetStaticTypeName()
{
    static const TfToken name("Cube");
    return name;
}

bool UsdGeomCube::ComputeExtent(double size, VtVec3fArray* extent)
{
    extent->resize(2);
    (*extent)[0] = GfVec3f(float(size * -0.5));
    (*extent)[1] = GfVec3f(float(size * 0.5));
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
