#include "usdcore/usdGeom/capsule.h"

#include "usdcore/usdGeom/axisExtent.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomCapsule::_GetStaticTypeName()
{
    static const TfToken name("Capsule");
    return name;
}

bool UsdGeomCapsule::ComputeExtent(double height, double radius, const TfToken& axis, VtVec3fArray* extent)
{
    // The hemispheres reach a radius beyond either end of the cylinder.
    const float halfLength = float(height * 0.5 + radius);
    return UsdGeom_ComputeExtentAlongAxis(axis, GfVec3f(float(radius), float(radius), halfLength), extent);
}

PXR_NAMESPACE_CLOSE_SCOPE
