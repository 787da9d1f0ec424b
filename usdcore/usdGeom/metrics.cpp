#include "usdcore/usdGeom/metrics.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"
#include "usdcore/usdGeom/tokens.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

TfToken UsdGeomGetFallbackUpAxis()
{
    return UsdGeomTokens->y;
}

TfToken UsdGeomGetStageUpAxis(const UsdStageWeakPtr& stage)
{
    if (!stage) {
        TF_CODING_ERROR("Invalid stage");
        return TfToken();
    }
    TfToken upAxis;
    if (stage->GetMetadata(UsdGeomTokens->upAxis, &upAxis)) return upAxis;
    return UsdGeomGetFallbackUpAxis();
}

double UsdGeomGetStageMetersPerUnit(const UsdStageWeakPtr& stage)
{
    if (!stage) {
        TF_CODING_ERROR("Invalid stage");
        return UsdGeomLinearUnits::centimeters;
    }
    double metersPerUnit = 0.0;
    if (stage->GetMetadata(UsdGeomTokens->metersPerUnit, &metersPerUnit)) return metersPerUnit;
    return UsdGeomLinearUnits::centimeters;
}

bool UsdGeomLinearUnitsAre(double authoredUnits, double standardUnits, double epsilon)
{
    const double difference = std::fabs(authoredUnits - standardUnits);
    return difference / authoredUnits < epsilon && difference / standardUnits < epsilon;
}

PXR_NAMESPACE_CLOSE_SCOPE
