// Point instancer transforms and masks, as OpenUSD computes them.

#include "geomTestUtils.h"

#include "usdcore/gf/rotation.h"
#include "usdcore/usdGeom/pointInstancer.h"

#include <gmock/gmock.h>

using namespace geomtest;

namespace {

UsdGeomPointInstancer Instancer(const UsdStageRefPtr& stage)
{
    return UsdGeomPointInstancer(stage->GetPrimAtPath(SdfPath("/P")));
}

const char* const kScene = R"(
def PointInstancer "P" (
    inactiveIds = [13]
)
{
    int[] protoIndices = [0, 1, 0, 1]
    int64[] ids = [10, 11, 12, 13]
    point3f[] positions = [(1, 2, 3), (4, 5, 6), (7, 8, 9), (0, 0, 0)]
    quath[] orientations = [(1, 0, 0, 0), (0, 0, 0, 1), (1, 0, 0, 0), (1, 0, 0, 0)]
    float3[] scales = [(1, 1, 1), (2, 3, 4), (1, 1, 1), (1, 1, 1)]
    int64[] invisibleIds = [12]
    rel prototypes = [</P/A>, </P/B>]
    def Xform "A" {
        double3 xformOp:translate = (0, 0, 100)
        uniform token[] xformOpOrder = ["xformOp:translate"]
    }
    def Xform "B" {}
}
)";

} // namespace

TEST(PointInstancer, TransformsAreScaleThenOrientationThenPosition)
{
    const auto stage = StageFromText(kScene);
    VtMatrix4dArray xforms;
    ASSERT_TRUE(Instancer(stage).ComputeInstanceTransformsAtTime(&xforms, UsdTimeCode(0), UsdTimeCode(0),
                                                                 UsdGeomPointInstancer::ExcludeProtoXform,
                                                                 UsdGeomPointInstancer::IgnoreMask));
    ASSERT_EQ(xforms.size(), 4u);
    EXPECT_EQ(xforms[0], GfMatrix4d(1.0).SetTranslate(GfVec3d(1, 2, 3)));
    // Half a turn about Z after scaling (2, 3, 4), then moved to (4, 5, 6).
    GfMatrix4d expected = GfMatrix4d(1.0).SetScale(GfVec3d(2, 3, 4)) *
                          GfMatrix4d(1.0).SetRotate(GfRotation(GfVec3d(0, 0, 1), 180.0));
    expected.SetTranslateOnly(GfVec3d(4, 5, 6));
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(xforms[1][row][column], expected[row][column], 1e-12) << row << "," << column;
}

TEST(PointInstancer, MaskHidesInvisibleAndInactiveIdsAndProtoXformsComeFirst)
{
    const auto stage = StageFromText(kScene);
    EXPECT_EQ(Instancer(stage).ComputeMaskAtTime(UsdTimeCode(0)), (std::vector<bool>{true, true, false, false}));
    VtMatrix4dArray xforms;
    ASSERT_TRUE(Instancer(stage).ComputeInstanceTransformsAtTime(&xforms, UsdTimeCode(0), UsdTimeCode(0)));
    ASSERT_EQ(xforms.size(), 2u);
    // Prototype A's own translate, then the instance's.
    EXPECT_EQ(xforms[0], GfMatrix4d(1.0).SetTranslate(GfVec3d(1, 2, 103)));
}

TEST(PointInstancer, ArraysThatDisagreeOrIndicesPastThePrototypesGiveNothing)
{
    for (const char* body : {
             "def PointInstancer \"P\" { int[] protoIndices = [0, 0]\n point3f[] positions = [(0, 0, 0)]\n"
             " rel prototypes = </P/A>\n def Xform \"A\" {} }",
             "def PointInstancer \"P\" { int[] protoIndices = [0, 2]\n point3f[] positions = [(0, 0, 0), (1, 1, 1)]\n"
             " rel prototypes = </P/A>\n def Xform \"A\" {} }",
             "def PointInstancer \"P\" { int[] protoIndices = [-1]\n point3f[] positions = [(0, 0, 0)]\n"
             " rel prototypes = </P/A>\n def Xform \"A\" {} }",
         }) {
        TfDiagnosticCapture capture;
        const auto stage = StageFromText(body);
        VtMatrix4dArray xforms;
        EXPECT_FALSE(Instancer(stage).ComputeInstanceTransformsAtTime(&xforms, UsdTimeCode(0), UsdTimeCode(0)))
            << body;
        EXPECT_TRUE(xforms.empty());
        EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u) << body;
    }
}
