#pragma once

#include "usdcore/pxr.h"
#include "usdcore/tf/token.h"
#include "usdcore/usd/common.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The stage's "upAxis" metadata ("Y" or "Z"), or "Y" when the root layer
/// does not author it.
TfToken UsdGeomGetStageUpAxis(const UsdStageWeakPtr& stage);
/// The up axis of stages that do not author one: "Y".
TfToken UsdGeomGetFallbackUpAxis();

/// The stage's "metersPerUnit" metadata, or 0.01 (centimetres) when the
/// root layer does not author it.
double UsdGeomGetStageMetersPerUnit(const UsdStageWeakPtr& stage);
/// True when \p authoredUnits and \p standardUnits differ by less than
/// \p epsilon relative to each of them.
bool UsdGeomLinearUnitsAre(double authoredUnits, double standardUnits, double epsilon = 1e-5);

/// Common values of metersPerUnit.
struct UsdGeomLinearUnits {
    static constexpr double nanometers = 1e-9;
    static constexpr double micrometers = 1e-6;
    static constexpr double millimeters = 0.001;
    static constexpr double centimeters = 0.01;
    static constexpr double meters = 1.0;
    static constexpr double kilometers = 1000.0;
    static constexpr double lightYears = 9.4607304725808e15;
    static constexpr double inches = 0.0254;
    static constexpr double feet = 0.3048;
    static constexpr double yards = 0.9144;
    static constexpr double miles = 1609.344;
};

PXR_NAMESPACE_CLOSE_SCOPE
