#include "usdcore/usdGeom/pointBased.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomPointBased::_GetStaticTypeName()
{
    static const TfToken name("PointBased");
    return name;
}

TfToken UsdGeomPointBased::GetNormalsInterpolation() const
{
    TfToken interpolation;
    if (GetNormalsAttr().GetMetadata(UsdGeomTokens->interpolation, &interpolation)) return interpolation;
    return UsdGeomTokens->vertex;
}

PXR_NAMESPACE_CLOSE_SCOPE
