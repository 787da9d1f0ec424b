#include "usdcore/usdGeom/cone.h"

#include "usdcore/usdGeom/axisExtent.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomCone::_GetStaticTypeName()
{
    static const TfToken name("Cone");
    return name;
}

bool UsdGeomCone::ComputeExtent(double height, double radius, const TfToken& axis, VtVec3fArray* extent)
{
    return UsdGeom_ComputeExtentAlongAxis(axis, GfVec3f(float(radius), float(radius), float(height * 0.5)), extent);
}

PXR_NAMESPACE_CLOSE_SCOPE
