#include "usdcore/gf/math.h"
#include "usdcore/gf/matrix3d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/quatf.h"
#include "usdcore/gf/quath.h"
#include "usdcore/gf/rotation.h"
#include "usdcore/gf/vec3f.h"

#include <gtest/gtest.h>

#include <cmath>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

const double kHalfSqrt2 = std::sqrt(0.5);

bool SameRotation(const GfQuatd& a, const GfQuatd& b)
{
    return std::fabs(std::fabs(GfDot(a, b)) - 1.0) < 1e-12;
}

} // namespace

TEST(GfQuat, RealComesFirst)
{
    const GfQuatf q(0.5f, 1, 2, 3);
    EXPECT_EQ(q.GetReal(), 0.5f);
    EXPECT_EQ(q.GetImaginary(), GfVec3f(1, 2, 3));
    EXPECT_EQ(GfQuatd::GetIdentity(), GfQuatd(1, 0, 0, 0));
}

TEST(GfQuat, HamiltonProduct)
{
    // i * j = k, j * i = -k, i * i = -1.
    const GfQuatd i(0, 1, 0, 0), j(0, 0, 1, 0);
    EXPECT_EQ(i * j, GfQuatd(0, 0, 0, 1));
    EXPECT_EQ(j * i, GfQuatd(0, 0, 0, -1));
    EXPECT_EQ(i * i, GfQuatd(-1, 0, 0, 0));
}

TEST(GfQuat, InverseConjugateAndLength)
{
    const GfQuatd q(1, 2, 3, 4); // length sqrt(30)
    EXPECT_DOUBLE_EQ(q.GetLength(), std::sqrt(30.0));
    EXPECT_EQ(q.GetConjugate(), GfQuatd(1, -2, -3, -4));
    const GfQuatd product = q * q.GetInverse();
    EXPECT_NEAR(product.GetReal(), 1.0, 1e-15);
    EXPECT_NEAR(product.GetImaginary().GetLength(), 0.0, 1e-15);
    EXPECT_DOUBLE_EQ(q.GetNormalized().GetLength(), 1.0);
    EXPECT_EQ(GfQuatd(0, 0, 0, 0).GetNormalized(), GfQuatd::GetIdentity());
}

TEST(GfQuat, TransformRotatesAPoint)
{
    const GfQuatd z90(kHalfSqrt2, 0, 0, kHalfSqrt2); // 90 degrees about Z
    EXPECT_TRUE(GfIsClose(z90.Transform(GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0), 1e-12));
}

TEST(GfQuat, SlerpMidpointIsTheHalfAngle)
{
    // Identity to 90 degrees about Z: halfway is 45 degrees about Z,
    // (cos 22.5, 0, 0, sin 22.5).
    const GfQuatd a = GfQuatd::GetIdentity();
    const GfQuatd b(kHalfSqrt2, 0, 0, kHalfSqrt2);
    const GfQuatd mid = GfSlerp(0.5, a, b);
    const double half = GfDegreesToRadians(22.5);
    EXPECT_NEAR(mid.GetReal(), std::cos(half), 1e-12);
    EXPECT_NEAR(mid.GetImaginary()[2], std::sin(half), 1e-12);
    EXPECT_NEAR(mid.GetLength(), 1.0, 1e-12); // unlike a plain lerp
    EXPECT_EQ(GfSlerp(a, b, 0.0), a);
    EXPECT_TRUE(SameRotation(GfSlerp(1.0, a, b), b));
}

TEST(GfQuat, SlerpTakesTheShortWay)
{
    // -b is the same rotation as b; interpolating towards it must not swing
    // through 270 degrees.
    const GfQuatd a = GfQuatd::GetIdentity();
    const GfQuatd minusB(-kHalfSqrt2, 0, 0, -kHalfSqrt2);
    const GfQuatd mid = GfSlerp(0.5, a, minusB);
    const double half = GfDegreesToRadians(22.5);
    EXPECT_TRUE(SameRotation(mid, GfQuatd(std::cos(half), 0, 0, std::sin(half))));
}

TEST(GfQuat, SlerpOfNearlyEqualQuaternionsStaysFinite)
{
    const GfQuatf a(1, 0, 0, 0);
    const GfQuatf b = GfQuatf(1, 0, 0, 1e-7f).GetNormalized();
    const GfQuatf mid = GfSlerp(0.5, a, b);
    EXPECT_FALSE(std::isnan(mid.GetReal()));
    EXPECT_NEAR(mid.GetImaginary()[2], 0.5e-7f, 1e-9f);
}

TEST(GfQuat, PrecisionConversions)
{
    static_assert(std::is_convertible<GfQuatf, GfQuatd>::value, "");
    static_assert(!std::is_convertible<GfQuatd, GfQuatf>::value, "");
    const GfQuath h(GfQuatf(1, 0.5f, 0.25f, 0));
    EXPECT_EQ(h.GetImaginary()[0].bits(), 0x3800);
    const GfQuatd d = GfQuatf(0.5f, 0, 0, 0);
    EXPECT_EQ(d.GetReal(), 0.5);
}

TEST(GfRotation, AxisAngleAndQuaternionAgree)
{
    const GfRotation r(GfVec3d(0, 0, 2), 90); // axis is normalised
    EXPECT_EQ(r.GetAxis(), GfVec3d(0, 0, 1));
    EXPECT_TRUE(SameRotation(r.GetQuat(), GfQuatd(kHalfSqrt2, 0, 0, kHalfSqrt2)));
    const GfRotation back(r.GetQuat());
    EXPECT_NEAR(back.GetAngle(), 90, 1e-12);
    EXPECT_TRUE(GfIsClose(back.GetAxis(), GfVec3d(0, 0, 1), 1e-12));
    EXPECT_TRUE(GfIsClose(r.TransformDir(GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0), 1e-12));
}

TEST(GfRotation, ProductAppliesLeftFirst)
{
    // X by 90 takes Y to Z; then Z by 90 takes Z to Z. The other order:
    // Z by 90 takes Y to -X; X by 90 leaves -X.
    const GfRotation x90(GfVec3d::XAxis(), 90), z90(GfVec3d::ZAxis(), 90);
    EXPECT_TRUE(GfIsClose((x90 * z90).TransformDir(GfVec3d(0, 1, 0)), GfVec3d(0, 0, 1), 1e-12));
    EXPECT_TRUE(GfIsClose((z90 * x90).TransformDir(GfVec3d(0, 1, 0)), GfVec3d(-1, 0, 0), 1e-12));
    EXPECT_TRUE(GfIsClose((z90 * z90.GetInverse()).TransformDir(GfVec3d(1, 2, 3)), GfVec3d(1, 2, 3), 1e-12));
}

TEST(GfRotation, RotateIntoAndDegenerateAxes)
{
    const GfRotation into(GfVec3d(1, 0, 0), GfVec3d(0, 0, 5));
    EXPECT_TRUE(GfIsClose(into.TransformDir(GfVec3d(1, 0, 0)), GfVec3d(0, 0, 1), 1e-12));
    const GfRotation opposite(GfVec3d(1, 0, 0), GfVec3d(-1, 0, 0));
    EXPECT_NEAR(opposite.GetAngle(), 180, 1e-9);
    EXPECT_TRUE(GfIsClose(opposite.TransformDir(GfVec3d(1, 0, 0)), GfVec3d(-1, 0, 0), 1e-12));
    // A zero axis stays zero, as in OpenUSD: the angle turns about nothing.
    const GfRotation none(GfVec3d(0, 0, 0), 45);
    EXPECT_EQ(none.GetAxis(), GfVec3d(0, 0, 0));
    EXPECT_EQ(none.TransformDir(GfVec3d(1, 2, 3)), GfVec3d(1, 2, 3));
}

TEST(GfRotation, QuaternionsAreReadAsOpenUsdReadsThemWithoutNormalising)
{
    // Worked by hand from OpenUSD's reading: axis = imaginary / |imaginary|,
    // angle = 2 acos(real clamped to [-1, 1]).
    const struct {
        GfQuatd quat;
        GfVec3d axis;
        double angle;
    } cases[] = {
        // Files carry (0.707, 0, 0, 0.707): 2 acos(0.707) = 89.9771... degrees,
        // not the 90 of the normalised quaternion.
        {GfQuatd(0.707, 0, 0, 0.707), GfVec3d(0, 0, 1), 2.0 * GfRadiansToDegrees(std::acos(0.707))},
        // A real part past 1 is clamped: no turn at all.
        {GfQuatd(2, 2, 0, 0), GfVec3d(1, 0, 0), 0.0},
        {GfQuatd(-3, 0, 4, 0), GfVec3d(0, 1, 0), 360.0},
        // The imaginary part's length does not matter, its direction does.
        {GfQuatd(0.5, 0, 3, 4), GfVec3d(0, 0.6, 0.8), 120.0},
        {GfQuatd(0.5, 0, 0, 0), GfVec3d(1, 0, 0), 0.0},
    };
    for (const auto& c : cases) {
        const GfRotation rotation(c.quat);
        EXPECT_TRUE(GfIsClose(rotation.GetAxis(), c.axis, 1e-15)) << c.quat << " " << rotation.GetAxis();
        EXPECT_NEAR(rotation.GetAngle(), c.angle, 1e-12) << c.quat;
    }
}

TEST(GfRotation, MatrixOfANonUnitQuaternionIsThatOfOpenUsdsRotation)
{
    // (0.707, 0, 0, 0.707) is a turn about Z by 2 acos(0.707); the rotation
    // gives back the unit quaternion (c, 0, 0, s), c = 0.707 and
    // s = sqrt(1 - c^2), whose block is [[2c^2 - 1, 2cs], [-2cs, 2c^2 - 1]]:
    // 0.000302 off the quarter turn that normalising first would give.
    const double c = 0.707;
    const double s = std::sqrt(1.0 - c * c);
    GfMatrix4d m;
    m.SetRotate(GfRotation(GfQuatd(c, 0, 0, c)));
    const double expected[4][4] = {
        {2 * c * c - 1, 2 * c * s, 0, 0}, {-2 * c * s, 2 * c * c - 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(m[row][column], expected[row][column], 1e-15) << row << ", " << column;
    EXPECT_NEAR(m[0][0], -0.000302, 1e-15);

    // A quaternion set on a matrix directly is used as given, as OpenUSD
    // uses it: the same numbers scale as well as turn.
    GfMatrix3d direct;
    direct.SetRotate(GfQuatd(c, 0, 0, c));
    EXPECT_NEAR(direct[0][0], 1 - 2 * c * c, 1e-15);
    EXPECT_NEAR(direct[0][1], 2 * c * c, 1e-15);
    EXPECT_NEAR(direct[1][0], -2 * c * c, 1e-15);
    GfMatrix4d twice;
    twice.SetRotate(GfQuatd(0, 0, 0, 2));
    EXPECT_EQ(twice.GetRow(0), GfVec4d(-7, 0, 0, 0));
}
