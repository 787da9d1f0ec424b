// GfMatrix4d::Factor: r * s * transpose(r) * u * t for row vectors.

#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/matrix4f.h"
#include "usdcore/gf/rotation.h"

#include <gtest/gtest.h>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

void ExpectMatrixNear(const GfMatrix4d& actual, const GfMatrix4d& expected, double tolerance = 1e-9)
{
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(actual[i][j], expected[i][j], tolerance) << "[" << i << "][" << j << "]";
}

GfMatrix4d Scale(double x, double y, double z)
{
    return GfMatrix4d(1.0).SetScale(GfVec3d(x, y, z));
}

GfMatrix4d Rotate(const GfVec3d& axis, double degrees)
{
    return GfMatrix4d(1.0).SetRotate(GfRotation(axis, degrees));
}

// r * diag(s) * transpose(r) * u * translate(t).
GfMatrix4d Recompose(const GfMatrix4d& r, const GfVec3d& s, const GfMatrix4d& u, const GfVec3d& t)
{
    return r * Scale(s[0], s[1], s[2]) * r.GetTranspose() * u * GfMatrix4d(1.0).SetTranslate(t);
}

} // namespace

TEST(MatrixFactor, ScaleRotateTranslateComeApart)
{
    // Scale (2, 3, 4), a quarter turn about Z, then a move by (1, 2, 3).
    const GfMatrix4d rotation = Rotate(GfVec3d::ZAxis(), 90);
    const GfMatrix4d m = Scale(2, 3, 4) * rotation * GfMatrix4d(1.0).SetTranslate(GfVec3d(1, 2, 3));
    GfMatrix4d r, u, p(7.0);
    GfVec3d s, t;
    EXPECT_TRUE(m.Factor(&r, &s, &u, &t, &p));
    // The scaled axes are the coordinate axes already: r is the identity
    // and the scales stay in axis order.
    ExpectMatrixNear(r, GfMatrix4d(1.0));
    EXPECT_NEAR(s[0], 2, 1e-12);
    EXPECT_NEAR(s[1], 3, 1e-12);
    EXPECT_NEAR(s[2], 4, 1e-12);
    ExpectMatrixNear(u, rotation);
    EXPECT_EQ(t, GfVec3d(1, 2, 3));
    // No projection part is taken out.
    EXPECT_EQ(p, GfMatrix4d(7.0));
}

TEST(MatrixFactor, MirrorBecomesNegativeScales)
{
    // diag(-1, 1, 1) = (-1) * a half turn about X.
    GfMatrix4d r, u, p;
    GfVec3d s, t;
    EXPECT_TRUE(Scale(-1, 1, 1).Factor(&r, &s, &u, &t, &p));
    EXPECT_EQ(s, GfVec3d(-1, -1, -1));
    ExpectMatrixNear(u, Scale(1, -1, -1));
    EXPECT_NEAR(u.GetDeterminant3(), 1.0, 1e-12);
}

TEST(MatrixFactor, ShearedMatrixRecomposes)
{
    // A shear has no axis-aligned scale: r turns to the stretch axes.
    GfMatrix4d shear(1.0);
    shear[1][0] = 0.75;
    const GfMatrix4d m = shear * Rotate(GfVec3d(1, 2, 3), 40) * GfMatrix4d(1.0).SetTranslate(GfVec3d(-4, 5, 6));
    GfMatrix4d r, u, p;
    GfVec3d s, t;
    EXPECT_TRUE(m.Factor(&r, &s, &u, &t, &p));
    ExpectMatrixNear(Recompose(r, s, u, t), m);
    ExpectMatrixNear(r * r.GetTranspose(), GfMatrix4d(1.0));
    ExpectMatrixNear(u * u.GetTranspose(), GfMatrix4d(1.0));
    EXPECT_NEAR(u.GetDeterminant3(), 1.0, 1e-9);
    // A shear keeps volume: the scales multiply to 1.
    EXPECT_NEAR(s[0] * s[1] * s[2], 1.0, 1e-9);
}

TEST(MatrixFactor, SingularMatrixFailsWithClampedScale)
{
    GfMatrix4d r, u, p;
    GfVec3d s, t;
    EXPECT_FALSE(Scale(0, 2, 2).Factor(&r, &s, &u, &t, &p, 1e-6));
    EXPECT_EQ(s, GfVec3d(1e-6, 2, 2));
}

TEST(MatrixFactor, SinglePrecision)
{
    const GfMatrix4f m(Scale(2, 2, 2) * GfMatrix4d(1.0).SetTranslate(GfVec3d(1, 0, 0)));
    GfMatrix4f r, u, p;
    GfVec3f s, t;
    EXPECT_TRUE(m.Factor(&r, &s, &u, &t, &p));
    EXPECT_EQ(s, GfVec3f(2, 2, 2));
    EXPECT_EQ(t, GfVec3f(1, 0, 0));
}
