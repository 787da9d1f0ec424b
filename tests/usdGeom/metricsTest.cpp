// Up axis and linear units of a stage: authored or OpenUSD's fallbacks.

#include "geomTestUtils.h"

#include "usdcore/usdGeom/metrics.h"
#include "usdcore/usdGeom/tokens.h"

using namespace geomtest;

TEST(StageMetrics, UnauthoredMetricsAreYUpCentimetres)
{
    const UsdStageRefPtr stage = StageFromText("def \"A\" {}\n");
    EXPECT_EQ(UsdGeomGetStageUpAxis(stage), UsdGeomTokens->y);
    EXPECT_EQ(UsdGeomGetStageMetersPerUnit(stage), 0.01);
    EXPECT_EQ(UsdGeomGetFallbackUpAxis(), TfToken("Y"));
}

TEST(StageMetrics, AuthoredMetricsAreRead)
{
    const UsdStageRefPtr stage = StageFromText("(\n    upAxis = \"Z\"\n    metersPerUnit = 1\n)\n");
    EXPECT_EQ(UsdGeomGetStageUpAxis(stage), UsdGeomTokens->z);
    EXPECT_EQ(UsdGeomGetStageMetersPerUnit(stage), 1.0);

    const UsdStageRefPtr inches = StageFromText("(\n    metersPerUnit = 0.0254\n)\n");
    EXPECT_EQ(UsdGeomGetStageUpAxis(inches), UsdGeomTokens->y);
    EXPECT_EQ(UsdGeomGetStageMetersPerUnit(inches), 0.0254);
    EXPECT_TRUE(UsdGeomLinearUnitsAre(UsdGeomGetStageMetersPerUnit(inches), UsdGeomLinearUnits::inches));
    EXPECT_FALSE(UsdGeomLinearUnitsAre(0.0254, UsdGeomLinearUnits::centimeters));
}

TEST(StageMetrics, NullStageIsACodingErrorWithFallbacks)
{
    TfDiagnosticCapture capture;
    EXPECT_EQ(UsdGeomGetStageMetersPerUnit(UsdStagePtr()), 0.01);
    EXPECT_TRUE(UsdGeomGetStageUpAxis(UsdStagePtr()).IsEmpty());
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 2u);
}
