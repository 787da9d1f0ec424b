#include "usdcore/usdGeom/plane.h"

#include "usdcore/usdGeom/axisExtent.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomPlane::_GetStaticTypeName()
{
    static const TfToken name("Plane");
    return name;
}

bool UsdGeomPlane::ComputeExtent(double width, double length, const TfToken& axis, VtVec3fArray* extent)
{
    return UsdGeom_ComputeExtentAlongAxis(axis, GfVec3f(float(width * 0.5), float(length * 0.5), 0.0f), extent);
}

PXR_NAMESPACE_CLOSE_SCOPE
