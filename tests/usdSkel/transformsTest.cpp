// Joint-local matrices from translation, rotation and scale: row vectors,
// scale first, then rotation (quaternion real part first), then translation.

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usdSkel/utils.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace usdcore;

namespace {

const float kHalfSqrt2 = static_cast<float>(std::sqrt(0.5));

/// \p point as a row vector (x, y, z, 1) times \p m.
GfVec3d Transform(const GfVec3d& point, const GfMatrix4d& m)
{
    GfVec3d result;
    for (size_t c = 0; c < 3; ++c) {
        result[c] = point[0] * m[0][c] + point[1] * m[1][c] + point[2] * m[2][c] + m[3][c];
    }
    return result;
}

void ExpectNear(const GfVec3d& actual, const GfVec3d& expected, double tolerance = 1e-6)
{
    for (size_t c = 0; c < 3; ++c) EXPECT_NEAR(actual[c], expected[c], tolerance) << "component " << c;
}

GfMatrix4d Make(const GfVec3f& t, const GfQuatf& q, const GfVec3h& s)
{
    GfMatrix4d m(0.0);
    UsdSkelMakeTransform(t, q, s, &m);
    return m;
}

} // namespace

TEST(SkelMakeTransform, IdentityComponentsGiveTheIdentity)
{
    EXPECT_EQ(Make(GfVec3f(0, 0, 0), GfQuatf(1, 0, 0, 0), GfVec3h(1, 1, 1)), GfMatrix4d(1.0));
}

TEST(SkelMakeTransform, TranslationFillsTheLastRow)
{
    const GfMatrix4d m = Make(GfVec3f(1, 2, 3), GfQuatf(1, 0, 0, 0), GfVec3h(1, 1, 1));
    EXPECT_EQ(m, GfMatrix4d(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1));
}

TEST(SkelMakeTransform, HalfTurnAboutZWithScaleAndTranslation)
{
    // q = (0, 0, 0, 1) turns x and y around; every entry is exact.
    const GfMatrix4d m = Make(GfVec3f(1, 2, 3), GfQuatf(0, 0, 0, 1), GfVec3h(2, 3, 4));
    EXPECT_EQ(m, GfMatrix4d(-2, 0, 0, 0, 0, -3, 0, 0, 0, 0, 4, 0, 1, 2, 3, 1));
    // (1, 1, 1) scaled (2, 3, 4), turned (-2, -3, 4), moved (-1, -1, 7).
    ExpectNear(Transform(GfVec3d(1, 1, 1), m), GfVec3d(-1, -1, 7));
}

TEST(SkelMakeTransform, QuarterTurnAboutZTakesXToY)
{
    const GfMatrix4d m = Make(GfVec3f(0, 0, 0), GfQuatf(kHalfSqrt2, 0, 0, kHalfSqrt2), GfVec3h(1, 1, 1));
    ExpectNear(Transform(GfVec3d(1, 0, 0), m), GfVec3d(0, 1, 0));
    ExpectNear(Transform(GfVec3d(0, 1, 0), m), GfVec3d(-1, 0, 0));
}

TEST(SkelMakeTransform, QuarterTurnAboutXTakesYToZ)
{
    const GfMatrix4d m = Make(GfVec3f(0, 0, 0), GfQuatf(kHalfSqrt2, kHalfSqrt2, 0, 0), GfVec3h(1, 1, 1));
    ExpectNear(Transform(GfVec3d(0, 1, 0), m), GfVec3d(0, 0, 1));
}

TEST(SkelMakeTransform, QuarterTurnAboutYTakesZToX)
{
    const GfMatrix4d m = Make(GfVec3f(0, 0, 0), GfQuatf(kHalfSqrt2, 0, kHalfSqrt2, 0), GfVec3h(1, 1, 1));
    ExpectNear(Transform(GfVec3d(0, 0, 1), m), GfVec3d(1, 0, 0));
}

TEST(SkelMakeTransform, ScaleAppliesBeforeRotation)
{
    // Stretching x by 2 and then turning x onto y gives (0, 2, 0); turning
    // first and stretching x afterwards would leave (0, 1, 0).
    const GfMatrix4d m = Make(GfVec3f(0, 0, 0), GfQuatf(kHalfSqrt2, 0, 0, kHalfSqrt2), GfVec3h(2, 1, 1));
    ExpectNear(Transform(GfVec3d(1, 0, 0), m), GfVec3d(0, 2, 0));
}

TEST(SkelMakeTransform, RotationBeforeTranslation)
{
    // Turning (1, 0, 0) onto y and then moving by (10, 0, 0).
    const GfMatrix4d m = Make(GfVec3f(10, 0, 0), GfQuatf(kHalfSqrt2, 0, 0, kHalfSqrt2), GfVec3h(1, 1, 1));
    ExpectNear(Transform(GfVec3d(1, 0, 0), m), GfVec3d(10, 1, 0));
}

TEST(SkelMakeTransform, QuaternionIsUsedWithoutNormalising)
{
    // (0, 0, 0, 2): the first entry is 1 - 2 * 2^2 = -7, as other readers of
    // the same data compute it.
    const GfMatrix4d m = Make(GfVec3f(0, 0, 0), GfQuatf(0, 0, 0, 2), GfVec3h(1, 1, 1));
    EXPECT_EQ(m[0][0], -7.0);
    EXPECT_EQ(m[1][1], -7.0);
    EXPECT_EQ(m[2][2], 1.0);
}

TEST(SkelMakeTransforms, OneMatrixPerJoint)
{
    const VtVec3fArray translations{GfVec3f(1, 0, 0), GfVec3f(0, 5, 0)};
    const VtQuatfArray rotations{GfQuatf(1, 0, 0, 0), GfQuatf(0, 0, 0, 1)};
    const VtVec3hArray scales{GfVec3h(1, 1, 1), GfVec3h(2, 2, 2)};
    VtMatrix4dArray xforms;
    ASSERT_TRUE(UsdSkelMakeTransforms(translations, rotations, scales, &xforms));
    ASSERT_EQ(xforms.size(), 2u);
    EXPECT_EQ(xforms[0], GfMatrix4d(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 1));
    EXPECT_EQ(xforms[1], GfMatrix4d(-2, 0, 0, 0, 0, -2, 0, 0, 0, 0, 2, 0, 0, 5, 0, 1));
}

TEST(SkelMakeTransforms, OutputIsResizedToTheJointCount)
{
    VtMatrix4dArray xforms(5, GfMatrix4d(0.0));
    ASSERT_TRUE(UsdSkelMakeTransforms(VtVec3fArray{GfVec3f(0, 0, 0)}, VtQuatfArray{GfQuatf(1, 0, 0, 0)},
                                      VtVec3hArray{GfVec3h(1, 1, 1)}, &xforms));
    ASSERT_EQ(xforms.size(), 1u);
    EXPECT_EQ(xforms[0], GfMatrix4d(1.0));
}

TEST(SkelMakeTransforms, NoJointsGiveNoMatrices)
{
    VtMatrix4dArray xforms(2, GfMatrix4d(1.0));
    EXPECT_TRUE(UsdSkelMakeTransforms(VtVec3fArray(), VtQuatfArray(), VtVec3hArray(), &xforms));
    EXPECT_TRUE(xforms.empty());
}

TEST(SkelMakeTransforms, SizeMismatchFailsWithAWarningAndKeepsTheOutput)
{
    const VtMatrix4dArray previous(3, GfMatrix4d(7.0));
    for (int mismatch = 0; mismatch < 2; ++mismatch) {
        VtMatrix4dArray xforms = previous;
        const VtQuatfArray rotations(mismatch == 0 ? 1 : 2, GfQuatf(1, 0, 0, 0));
        const VtVec3hArray scales(mismatch == 1 ? 3 : 2, GfVec3h(1, 1, 1));
        TfDiagnosticCapture capture;
        EXPECT_FALSE(UsdSkelMakeTransforms(VtVec3fArray(2, GfVec3f(0, 0, 0)), rotations, scales, &xforms));
        EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_WARNING_TYPE), 1u) << "mismatch " << mismatch;
        EXPECT_EQ(xforms, previous) << "mismatch " << mismatch;
    }
}

TEST(SkelMakeTransforms, NullOutputIsACodingError)
{
    TfDiagnosticCapture capture;
    EXPECT_FALSE(UsdSkelMakeTransforms(VtVec3fArray(), VtQuatfArray(), VtVec3hArray(), nullptr));
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 1u);
}
