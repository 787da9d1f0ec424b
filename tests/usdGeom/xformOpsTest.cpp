// Each kind of transform operation on its own: the matrix it gives and
// where it moves a point, worked out by hand for row vectors (p' = p * M),
// angles in degrees, positive angles counter-clockwise about the axis.
//
// The quarter turns used below move a point (x, y, z) to
//   about X: (x, -z, y)    about Y: (z, y, -x)    about Z: (-y, x, z)

#include "geomTestUtils.h"

#include "usdcore/usdGeom/xform.h"

#include <cmath>

using namespace geomtest;

namespace {

const char* const kScene = R"(
def Xform "Translate" {
    double3 xformOp:translate = (1, 2, 3)
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
def Xform "Scale" {
    float3 xformOp:scale = (2, 3, 4)
    uniform token[] xformOpOrder = ["xformOp:scale"]
}
def Xform "HalfScale" {
    half3 xformOp:scale = (2, 2, 2)
    uniform token[] xformOpOrder = ["xformOp:scale"]
}
def Xform "RotateX" {
    double xformOp:rotateX = 90
    uniform token[] xformOpOrder = ["xformOp:rotateX"]
}
def Xform "RotateY" {
    float xformOp:rotateY = 90
    uniform token[] xformOpOrder = ["xformOp:rotateY"]
}
def Xform "RotateZ" {
    half xformOp:rotateZ = 90
    uniform token[] xformOpOrder = ["xformOp:rotateZ"]
}
def Xform "RotateXYZ" {
    float3 xformOp:rotateXYZ = (90, 90, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateXYZ"]
}
def Xform "RotateXZY" {
    float3 xformOp:rotateXZY = (90, 90, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateXZY"]
}
def Xform "RotateYXZ" {
    float3 xformOp:rotateYXZ = (90, 90, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateYXZ"]
}
def Xform "RotateYZX" {
    float3 xformOp:rotateYZX = (90, 90, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateYZX"]
}
def Xform "RotateZXY" {
    float3 xformOp:rotateZXY = (90, 90, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateZXY"]
}
def Xform "RotateZYX" {
    double3 xformOp:rotateZYX = (90, 90, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateZYX"]
}
def Xform "OnlyX" {
    float3 xformOp:rotateXYZ = (90, 0, 0)
    uniform token[] xformOpOrder = ["xformOp:rotateXYZ"]
}
def Xform "OnlyY" {
    float3 xformOp:rotateXYZ = (0, 90, 0)
    uniform token[] xformOpOrder = ["xformOp:rotateXYZ"]
}
def Xform "OnlyZ" {
    float3 xformOp:rotateXYZ = (0, 0, 90)
    uniform token[] xformOpOrder = ["xformOp:rotateXYZ"]
}
def Xform "Orient" {
    quatf xformOp:orient = (0.70710677, 0, 0, 0.70710677)
    uniform token[] xformOpOrder = ["xformOp:orient"]
}
def Xform "OrientLong" {
    quatd xformOp:orient = (2, 2, 0, 0)
    uniform token[] xformOpOrder = ["xformOp:orient"]
}
def Xform "OrientNearlyUnit" {
    quatd xformOp:orient = (0.707, 0, 0, 0.707)
    uniform token[] xformOpOrder = ["xformOp:orient"]
}
def Xform "OrientHalf" {
    quath xformOp:orient = (0, 0, 1, 0)
    uniform token[] xformOpOrder = ["xformOp:orient"]
}
def Xform "Transform" {
    matrix4d xformOp:transform = ((0, 1, 0, 0), (-1, 0, 0, 0), (0, 0, 1, 0), (5, 6, 7, 1))
    uniform token[] xformOpOrder = ["xformOp:transform"]
}
def Xform "OlderTypeNames" {
    Vec3f xformOp:translate = (2.5, 0, 0)
    Quatd xformOp:orient = (0, 0, 0, 1)
    uniform token[] xformOpOrder = ["xformOp:translate", "xformOp:orient"]
}
def Xform "WrongValueType" {
    float xformOp:translate = 3
    uniform token[] xformOpOrder = ["xformOp:translate"]
}
)";

class XformOps : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(stage); }

    /// Where the local transformation of \p path moves \p point.
    GfVec3d Moved(const char* path, const GfVec3d& point) const
    {
        GfMatrix4d matrix;
        bool resets = true;
        EXPECT_TRUE(UsdGeomXformable::Get(stage, SdfPath(path)).GetLocalTransformation(&matrix, &resets));
        EXPECT_FALSE(resets);
        return matrix.Transform(point);
    }

    UsdStageRefPtr stage = StageFromText(kScene);
};

void ExpectNear(const GfVec3d& actual, const GfVec3d& expected)
{
    for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-6) << "component " << i;
}

} // namespace

TEST_F(XformOps, TranslateIsTheLastRow)
{
    GfMatrix4d matrix;
    bool resets = true;
    EXPECT_TRUE(UsdGeomXform::Get(stage, SdfPath("/Translate")).GetLocalTransformation(&matrix, &resets));
    EXPECT_EQ(matrix.GetRow(3), GfVec4d(1, 2, 3, 1));
    EXPECT_EQ(matrix.GetRow(0), GfVec4d(1, 0, 0, 0));
    ExpectNear(Moved("/Translate", GfVec3d(1, 1, 1)), GfVec3d(2, 3, 4));
}

TEST_F(XformOps, ScaleInEveryPrecision)
{
    ExpectNear(Moved("/Scale", GfVec3d(1, 1, 1)), GfVec3d(2, 3, 4));
    ExpectNear(Moved("/HalfScale", GfVec3d(1, -1, 3)), GfVec3d(2, -2, 6));
}

TEST_F(XformOps, SingleAxisRotationsTurnCounterClockwise)
{
    ExpectNear(Moved("/RotateX", GfVec3d(0, 1, 0)), GfVec3d(0, 0, 1));
    ExpectNear(Moved("/RotateY", GfVec3d(0, 0, 1)), GfVec3d(1, 0, 0));
    ExpectNear(Moved("/RotateZ", GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0));
}

TEST_F(XformOps, ThreeAngleRotationTakesEachAngleForItsAxis)
{
    ExpectNear(Moved("/OnlyX", GfVec3d(0, 1, 0)), GfVec3d(0, 0, 1));
    ExpectNear(Moved("/OnlyY", GfVec3d(0, 0, 1)), GfVec3d(1, 0, 0));
    ExpectNear(Moved("/OnlyZ", GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0));
}

TEST_F(XformOps, ThreeAngleRotationsApplyTheAxesInTheOrderNamed)
{
    // (1, 2, 3) turned a quarter about each axis, in the named order.
    // XYZ: (1, -3, 2) -> (2, -3, -1) -> (3, 2, -1)
    ExpectNear(Moved("/RotateXYZ", GfVec3d(1, 2, 3)), GfVec3d(3, 2, -1));
    // XZY: (1, -3, 2) -> (3, 1, 2) -> (2, 1, -3)
    ExpectNear(Moved("/RotateXZY", GfVec3d(1, 2, 3)), GfVec3d(2, 1, -3));
    // YXZ: (3, 2, -1) -> (3, 1, 2) -> (-1, 3, 2)
    ExpectNear(Moved("/RotateYXZ", GfVec3d(1, 2, 3)), GfVec3d(-1, 3, 2));
    // YZX: (3, 2, -1) -> (-2, 3, -1) -> (-2, 1, 3)
    ExpectNear(Moved("/RotateYZX", GfVec3d(1, 2, 3)), GfVec3d(-2, 1, 3));
    // ZXY: (-2, 1, 3) -> (-2, -3, 1) -> (1, -3, 2)
    ExpectNear(Moved("/RotateZXY", GfVec3d(1, 2, 3)), GfVec3d(1, -3, 2));
    // ZYX: (-2, 1, 3) -> (3, 1, 2) -> (3, -2, 1)
    ExpectNear(Moved("/RotateZYX", GfVec3d(1, 2, 3)), GfVec3d(3, -2, 1));
}

TEST_F(XformOps, OrientQuaternionIsRealFirst)
{
    // (cos 45, 0, 0, sin 45): a quarter turn about Z.
    ExpectNear(Moved("/Orient", GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0));
    // Read as OpenUSD reads it, without normalising: (2, 2, 0, 0) turns by
    // twice the arc cosine of its real part clamped to 1, that is not at all.
    ExpectNear(Moved("/OrientLong", GfVec3d(0, 1, 0)), GfVec3d(0, 1, 0));
    // (0, 0, 1, 0): a half turn about Y.
    ExpectNear(Moved("/OrientHalf", GfVec3d(1, 0, 1)), GfVec3d(-1, 0, -1));
}

TEST_F(XformOps, OlderTypeNamesAreTheOpsOfTheirTypes)
{
    // The op written last applies first: a half turn about Z, then the move:
    // (1, 0, 0) -> (-1, 0, 0) -> (1.5, 0, 0).
    ExpectNear(Moved("/OlderTypeNames", GfVec3d(1, 0, 0)), GfVec3d(1.5, 0, 0));
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/OlderTypeNames"));
    const UsdGeomXformOp translate(prim.GetAttribute(TfToken("xformOp:translate")));
    EXPECT_EQ(translate.GetTypeName(), SdfValueTypeNames->Float3);
    EXPECT_EQ(translate.GetTypeName().GetAsToken(), TfToken("Vec3f"));
    EXPECT_EQ(translate.GetPrecision(), UsdGeomXformOp::PrecisionFloat);
    const UsdGeomXformOp orient(prim.GetAttribute(TfToken("xformOp:orient")));
    EXPECT_EQ(orient.GetPrecision(), UsdGeomXformOp::PrecisionDouble);
}

TEST_F(XformOps, OrientOfANonUnitQuaternionTurnsByTwiceTheArcCosineOfItsRealPart)
{
    // 2 acos(0.707) about Z takes X to (cos, sin) of that angle, which is
    // (2c^2 - 1, 2cs) for c = 0.707, s = sqrt(1 - c^2): not quite Y.
    const double c = 0.707;
    const double s = std::sqrt(1.0 - c * c);
    const GfVec3d moved = Moved("/OrientNearlyUnit", GfVec3d(1, 0, 0));
    EXPECT_NEAR(moved[0], 2 * c * c - 1, 1e-15);
    EXPECT_NEAR(moved[1], 2 * c * s, 1e-15);
    EXPECT_EQ(moved[2], 0.0);
    const UsdGeomXformOp inverse(stage->GetPrimAtPath(SdfPath("/OrientNearlyUnit")).GetAttribute(TfToken("xformOp:orient")),
                                 true);
    const GfVec3d back = inverse.GetOpTransform(UsdTimeCode::Default()).Transform(moved);
    EXPECT_NEAR(back[0], 1.0, 1e-15);
    EXPECT_NEAR(back[1], 0.0, 1e-15);
}

TEST_F(XformOps, TransformIsTheMatrixAsAuthored)
{
    GfMatrix4d matrix;
    bool resets = false;
    EXPECT_TRUE(UsdGeomXformable::Get(stage, SdfPath("/Transform")).GetLocalTransformation(&matrix, &resets));
    EXPECT_EQ(matrix, GfMatrix4d(0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1));
    // Rows are the images of the axes: X goes to Y, then the translation.
    ExpectNear(Moved("/Transform", GfVec3d(1, 0, 0)), GfVec3d(5, 7, 7));
}

TEST_F(XformOps, ValueOfTheWrongTypeGivesIdentityAndACodingError)
{
    TfDiagnosticCapture capture;
    ExpectNear(Moved("/WrongValueType", GfVec3d(1, 2, 3)), GfVec3d(1, 2, 3));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}

TEST_F(XformOps, OpDescribesItself)
{
    const UsdPrim prim = stage->GetPrimAtPath(SdfPath("/Scale"));
    const UsdGeomXformOp scale(prim.GetAttribute(TfToken("xformOp:scale")));
    EXPECT_TRUE(scale);
    EXPECT_EQ(scale.GetOpType(), UsdGeomXformOp::TypeScale);
    EXPECT_EQ(scale.GetPrecision(), UsdGeomXformOp::PrecisionFloat);
    EXPECT_FALSE(scale.IsInverseOp());
    EXPECT_EQ(scale.GetOpName(), TfToken("xformOp:scale"));

    const UsdGeomXformOp inverse(prim.GetAttribute(TfToken("xformOp:scale")), true);
    EXPECT_EQ(inverse.GetOpName(), TfToken("!invert!xformOp:scale"));
    EXPECT_NE(inverse, scale);

    const UsdGeomXformOp half(stage->GetPrimAtPath(SdfPath("/RotateZ")).GetAttribute(TfToken("xformOp:rotateZ")));
    EXPECT_EQ(half.GetPrecision(), UsdGeomXformOp::PrecisionHalf);
    EXPECT_EQ(half.GetOpType(), UsdGeomXformOp::TypeRotateZ);

    EXPECT_EQ(UsdGeomXformOp::GetOpName(UsdGeomXformOp::TypeTranslate, TfToken("pivot"), true),
              TfToken("!invert!xformOp:translate:pivot"));
    EXPECT_EQ(UsdGeomXformOp::GetOpTypeEnum(TfToken("rotateYZX")), UsdGeomXformOp::TypeRotateYZX);
    EXPECT_EQ(UsdGeomXformOp::GetOpTypeToken(UsdGeomXformOp::TypeOrient), TfToken("orient"));
    EXPECT_EQ(UsdGeomXformOp::GetValueTypeName(UsdGeomXformOp::TypeOrient, UsdGeomXformOp::PrecisionHalf),
              SdfValueTypeNames->Quath);
    EXPECT_TRUE(UsdGeomXformOp::IsXformOp(TfToken("xformOp:translate:pivot")));
    EXPECT_FALSE(UsdGeomXformOp::IsXformOp(TfToken("translate")));
}

TEST_F(XformOps, UnknownOpTypeMakesAFalseOp)
{
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString("#usda 1.0\ndef Xform \"X\" {\n"
                                                          "    double3 xformOp:shear = (1, 1, 1)\n}\n");
    const UsdStageRefPtr shear = UsdStage::Open(SdfLayerHandle(layer));
    TfDiagnosticCapture capture;
    const UsdGeomXformOp op(shear->GetPrimAtPath(SdfPath("/X")).GetAttribute(TfToken("xformOp:shear")));
    EXPECT_FALSE(op);
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
    EXPECT_FALSE(UsdGeomXformOp());
}
