#pragma once

#include "usdcore/gf/vec3f.h"
#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/usdGeom/tokens.h"
#include "usdcore/vt/types.h"

#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

/// The extent of a shape built along an axis, from its maximum corner for
/// axis "Z": for "X" or "Y" that axis's component trades places with Z's
/// (so a cylinder's height and a plane's length go where the schemas put
/// them). False, and the extent left alone, for any other axis.
inline bool UsdGeom_ComputeExtentAlongAxis(const TfToken& axis, GfVec3f maxForZ, VtVec3fArray* extent)
{
    GfVec3f max = maxForZ;
    if (axis == UsdGeomTokens->x)
        std::swap(max[0], max[2]);
    else if (axis == UsdGeomTokens->y)
        std::swap(max[1], max[2]);
    else if (axis != UsdGeomTokens->z)
        return false;
    extent->resize(2);
    (*extent)[0] = -max;
    (*extent)[1] = max;
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
