#include "usdcore/usdGeom/sphere.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomSphere::_GetStaticTypeName()
{
    static const TfToken name("Sphere");
    return name;
}

bool UsdGeomSphere::ComputeExtent(double radius, VtVec3fArray* extent)
{
    extent->resize(2);
    (*extent)[0] = GfVec3f(float(-radius));
    (*extent)[1] = GfVec3f(float(radius));
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
