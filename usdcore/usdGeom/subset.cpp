#include "usdcore/usdGeom/subset.h"

PXR_NAMESPACE_OPEN_SCOPE

const TfToken& UsdGeomSubset::_GetStaticTypeName()
{
    static const TfToken name("GeomSubset");
    return name;
}

std::vector<UsdGeomSubset> UsdGeomSubset::GetAllGeomSubsets(const UsdGeomImageable& geom)
{
    std::vector<UsdGeomSubset> subsets;
    for (const UsdPrim& child : geom.GetPrim().GetChildren()) {
        if (child.IsA<UsdGeomSubset>()) subsets.emplace_back(child);
    }
    return subsets;
}

PXR_NAMESPACE_CLOSE_SCOPE
