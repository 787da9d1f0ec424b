// How a prim's operations compose into its local transformation: the order
// of xformOpOrder, inverted operations, resets of the transform stack, and
// operations sampled over time.

#include "geomTestUtils.h"

#include "usdcore/usdGeom/mesh.h"
#include "usdcore/usdGeom/xform.h"

#include <gmock/gmock.h>

using namespace geomtest;
using ::testing::ElementsAre;

namespace {

const char* const kScene = R"(
def Xform "Ordered" {
    double3 xformOp:translate = (10, 0, 0)
    double xformOp:rotateZ = 90
    double3 xformOp:scale = (2, 2, 2)
    uniform token[] xformOpOrder = ["xformOp:translate", "xformOp:rotateZ", "xformOp:scale"]
}
def Xform "Pivot" {
    double3 xformOp:translate:pivot = (1, 0, 0)
    double xformOp:rotateZ = 90
    uniform token[] xformOpOrder = ["xformOp:translate:pivot", "xformOp:rotateZ", "!invert!xformOp:translate:pivot"]
}
def Xform "Inverted" {
    double3 xformOp:translate = (1, 2, 3)
    float3 xformOp:scale = (2, 4, 8)
    float3 xformOp:rotateXYZ = (90, 90, 0)
    quatf xformOp:orient = (0.70710677, 0, 0, 0.70710677)
    matrix4d xformOp:transform = ((1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (4, 5, 6, 1))
    uniform token[] xformOpOrder = ["!invert!xformOp:translate"]
}
def Xform "Cancelling" {
    matrix4d xformOp:transform = ((0, 0, 0, 0), (0, 0, 0, 0), (0, 0, 0, 0), (0, 0, 0, 0))
    uniform token[] xformOpOrder = ["xformOp:transform", "!invert!xformOp:transform"]
}
def Xform "Reset" {
    double3 xformOp:translate.timeSamples = {
        0: (0, 0, 0),
        10: (10, 0, 0),
    }
    double3 xformOp:scale = (3, 3, 3)
    uniform token[] xformOpOrder = ["xformOp:translate", "!resetXformStack!", "xformOp:scale"]
}
def Xform "ResetFirst" {
    double3 xformOp:translate = (1, 0, 0)
    uniform token[] xformOpOrder = ["!resetXformStack!", "xformOp:translate"]
}
def Xform "Animated" {
    double3 xformOp:translate.timeSamples = {
        0: (0, 0, 0),
        10: (10, 0, 0),
    }
    double xformOp:rotateZ.timeSamples = {
        5: 0,
        20: 90,
    }
    double3 xformOp:scale.timeSamples = {
        7: (1, 1, 1),
    }
    uniform token[] xformOpOrder = ["xformOp:translate", "xformOp:rotateZ", "xformOp:scale"]
}
def Xform "MissingOp" {
    double3 xformOp:translate = (1, 0, 0)
    uniform token[] xformOpOrder = ["xformOp:translate", "xformOp:translate:missing"]
}
def Xform "NoOrder" {
    double3 xformOp:translate = (1, 0, 0)
}
def Mesh "MeshWithOps" {
    double3 xformOp:translate = (0, 0, 5)
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
def Scope "NotXformable" {}
)";

class Xformable : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }
    UsdGeomXformable Prim(const char* path) const { return UsdGeomXformable::Get(stage, SdfPath(path)); }

    GfMatrix4d Local(const char* path, UsdTimeCode time = UsdTimeCode::Default(), bool* resets = nullptr) const
    {
        GfMatrix4d matrix;
        bool reset = false;
        EXPECT_TRUE(Prim(path).GetLocalTransformation(&matrix, &reset, time));
        if (resets) *resets = reset;
        return matrix;
    }

    UsdStageRefPtr stage = StageFromText(kScene);
};

void ExpectNear(const GfVec3d& actual, const GfVec3d& expected)
{
    for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-6) << "component " << i;
}

std::vector<std::string> OpNames(const std::vector<UsdGeomXformOp>& ops)
{
    std::vector<std::string> names;
    for (const UsdGeomXformOp& op : ops) names.push_back(op.GetOpName().GetString());
    return names;
}

} // namespace

TEST_F(Xformable, FirstListedOperationIsOutermost)
{
    // The point is scaled, then rotated, then translated: (1, 0, 0) ->
    // (2, 0, 0) -> (0, 2, 0) -> (10, 2, 0). As a matrix, S * R * T.
    const GfMatrix4d local = Local("/Ordered");
    ExpectNear(local.Transform(GfVec3d(1, 0, 0)), GfVec3d(10, 2, 0));
    EXPECT_NEAR(local[0][1], 2.0, 1e-12);
    EXPECT_NEAR(local[0][0], 0.0, 1e-12);
    EXPECT_EQ(local.GetRow(3), GfVec4d(10, 0, 0, 1));
}

TEST_F(Xformable, OrderedOpsFollowXformOpOrder)
{
    bool resets = true;
    const std::vector<UsdGeomXformOp> ops = Prim("/Pivot").GetOrderedXformOps(&resets);
    EXPECT_FALSE(resets);
    EXPECT_THAT(OpNames(ops),
                ElementsAre("xformOp:translate:pivot", "xformOp:rotateZ", "!invert!xformOp:translate:pivot"));
    EXPECT_TRUE(ops[0].HasSuffix(TfToken("pivot")));
    EXPECT_TRUE(ops[2].IsInverseOp());
    EXPECT_EQ(ops[2].GetOpType(), UsdGeomXformOp::TypeTranslate);
    // The same matrix from the ops as from the prim.
    GfMatrix4d fromOps;
    EXPECT_TRUE(UsdGeomXformable::GetLocalTransformation(&fromOps, ops));
    EXPECT_EQ(fromOps, Local("/Pivot"));
}

TEST_F(Xformable, InvertedPivotRotatesAboutThePivot)
{
    // (2, 0, 0) - pivot = (1, 0, 0) -> turned (0, 1, 0) -> + pivot (1, 1, 0).
    const GfMatrix4d local = Local("/Pivot");
    ExpectNear(local.Transform(GfVec3d(2, 0, 0)), GfVec3d(1, 1, 0));
    ExpectNear(local.Transform(GfVec3d(1, 0, 0)), GfVec3d(1, 0, 0));
}

TEST_F(Xformable, EveryKindInvertsToItsInverse)
{
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/Inverted"));
    const auto inverted = [&prim](const char* name) {
        return UsdGeomXformOp(prim.GetAttribute(TfToken(name)), true).GetOpTransform(UsdTimeCode::Default());
    };
    ExpectNear(inverted("xformOp:translate").Transform(GfVec3d(1, 1, 1)), GfVec3d(0, -1, -2));
    ExpectNear(inverted("xformOp:scale").Transform(GfVec3d(1, 1, 1)), GfVec3d(0.5, 0.25, 0.125));
    // Forward, X then Y takes (0, 1, 0) to (0, 0, 1) and then (1, 0, 0); the
    // inverse brings (1, 0, 0) back.
    ExpectNear(inverted("xformOp:rotateXYZ").Transform(GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0));
    // A quarter turn about Z undone: (0, 1, 0) back to (1, 0, 0).
    ExpectNear(inverted("xformOp:orient").Transform(GfVec3d(0, 1, 0)), GfVec3d(1, 0, 0));
    ExpectNear(inverted("xformOp:transform").Transform(GfVec3d(4, 5, 6)), GfVec3d(0, 0, 0));

    ExpectNear(Local("/Inverted").Transform(GfVec3d(0, 0, 0)), GfVec3d(-1, -2, -3));
}

TEST_F(Xformable, AdjacentOpAndItsInverseCancelWithoutEvaluation)
{
    // The zero matrix has no inverse; next to each other the pair is never
    // evaluated, so there is no complaint and the result is the identity.
    TfDiagnosticCapture capture;
    EXPECT_EQ(Local("/Cancelling"), GfMatrix4d(1.0));
    EXPECT_EQ(capture.GetDiagnostics().size(), 0u);

    bool resets = false;
    GfMatrix4d fromOps;
    EXPECT_TRUE(UsdGeomXformable::GetLocalTransformation(&fromOps, Prim("/Cancelling").GetOrderedXformOps(&resets)));
    EXPECT_EQ(fromOps, GfMatrix4d(1.0));
    EXPECT_EQ(capture.GetDiagnostics().size(), 0u);
}

TEST_F(Xformable, ResetDropsTheOperationsBeforeIt)
{
    bool resets = false;
    const GfMatrix4d local = Local("/Reset", UsdTimeCode(10.0), &resets);
    EXPECT_TRUE(resets);
    EXPECT_EQ(local, GfMatrix4d(1.0).SetScale(GfVec3d(3, 3, 3)));
    EXPECT_TRUE(Prim("/Reset").GetResetXformStack());
    EXPECT_THAT(OpNames(Prim("/Reset").GetOrderedXformOps(&resets)), ElementsAre("xformOp:scale"));
    EXPECT_TRUE(resets);
    // Only the dropped translation is animated.
    EXPECT_FALSE(Prim("/Reset").TransformMightBeTimeVarying());
    std::vector<double> times;
    EXPECT_TRUE(Prim("/Reset").GetTimeSamples(&times));
    EXPECT_TRUE(times.empty());

    EXPECT_EQ(Local("/ResetFirst", UsdTimeCode::Default(), &resets).GetRow(3), GfVec4d(1, 0, 0, 1));
    EXPECT_TRUE(resets);
    EXPECT_FALSE(Prim("/Ordered").GetResetXformStack());
}

TEST_F(Xformable, AnimatedOperationsSampleAndInterpolate)
{
    const UsdGeomXformable animated = Prim("/Animated");
    EXPECT_TRUE(animated.TransformMightBeTimeVarying());
    std::vector<double> times;
    EXPECT_TRUE(animated.GetTimeSamples(&times));
    EXPECT_THAT(times, ElementsAre(0.0, 5.0, 7.0, 10.0, 20.0));

    // At 5: translate (5, 0, 0), no turn yet.
    ExpectNear(Local("/Animated", UsdTimeCode(5.0)).Transform(GfVec3d(1, 0, 0)), GfVec3d(6, 0, 0));
    // At 15: translate held at (10, 0, 0); the turn is 10/15 of 90 = 60
    // degrees, taking (1, 0, 0) to (cos 60, sin 60, 0).
    ExpectNear(Local("/Animated", UsdTimeCode(15.0)).Transform(GfVec3d(1, 0, 0)),
               GfVec3d(10.5, std::sqrt(3.0) / 2, 0));
    // Before the first samples every op holds its first value.
    ExpectNear(Local("/Animated", UsdTimeCode(-3.0)).Transform(GfVec3d(1, 0, 0)), GfVec3d(1, 0, 0));

    EXPECT_FALSE(Prim("/Ordered").TransformMightBeTimeVarying());
    EXPECT_TRUE(Prim("/Ordered").GetTimeSamples(&times));
    EXPECT_TRUE(times.empty());
}

TEST_F(Xformable, OrderEntryWithoutAttributeIsSkippedWithAWarning)
{
    TfDiagnosticCapture capture;
    EXPECT_EQ(Local("/MissingOp").GetRow(3), GfVec4d(1, 0, 0, 1));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u);
    EXPECT_TRUE(capture.Contains("xformOp:translate:missing"));
    bool resets = false;
    EXPECT_THAT(OpNames(Prim("/MissingOp").GetOrderedXformOps(&resets)), ElementsAre("xformOp:translate"));
}

TEST_F(Xformable, OperationsOutsideTheOrderDoNotCount)
{
    bool resets = true;
    EXPECT_EQ(Local("/NoOrder", UsdTimeCode::Default(), &resets), GfMatrix4d(1.0));
    EXPECT_FALSE(resets);
    EXPECT_TRUE(Prim("/NoOrder").GetOrderedXformOps(&resets).empty());
    EXPECT_FALSE(Prim("/NoOrder").TransformMightBeTimeVarying());
}

TEST_F(Xformable, DerivedTypesAreXformable)
{
    EXPECT_TRUE(Prim("/MeshWithOps"));
    EXPECT_EQ(Local("/MeshWithOps").GetRow(3), GfVec4d(0, 0, 5, 1));
    EXPECT_FALSE(Prim("/NotXformable"));
}

TEST_F(Xformable, NullOutputsAreCodingErrors)
{
    TfDiagnosticCapture capture;
    GfMatrix4d matrix;
    bool resets = false;
    EXPECT_FALSE(Prim("/Ordered").GetLocalTransformation(nullptr, &resets));
    EXPECT_FALSE(Prim("/Ordered").GetLocalTransformation(&matrix, nullptr));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 2u);
}

TEST(XformableAttributes, TransformationDependsOnOrderAndOps)
{
    EXPECT_TRUE(UsdGeomXformable::IsTransformationAffectedByAttrNamed(TfToken("xformOpOrder")));
    EXPECT_TRUE(UsdGeomXformable::IsTransformationAffectedByAttrNamed(TfToken("xformOp:rotateX:tilt")));
    EXPECT_FALSE(UsdGeomXformable::IsTransformationAffectedByAttrNamed(TfToken("points")));
}
