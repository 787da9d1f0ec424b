#include <gtest/gtest.h>

#include <cmath>

#include "host/CTavrinMatrix.h"

using namespace Tavrin;

namespace {

const double pi = 3.14159265358979323846;

void ExpectPoint(const CTavrin3DVertex& p, double x, double y, double z)
{
    EXPECT_NEAR(p.X(), x, 1e-12);
    EXPECT_NEAR(p.Y(), y, 1e-12);
    EXPECT_NEAR(p.Z(), z, 1e-12);
}

void ExpectMatrixNear(const CTavrinMatrix& a, const CTavrinMatrix& b, double tolerance)
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            EXPECT_NEAR(a.M(r, c), b.M(r, c), tolerance) << "at " << r << "," << c;
}

} // namespace

TEST(Matrix, ValuesAreGivenRowByRowWithTranslationInLastColumn)
{
    const CTavrinMatrix m(1, 0, 0, 5, 0, 1, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1);
    ExpectPoint(m.TransformPoint({1, 2, 3}), 6, 8, 10);
    EXPECT_EQ(m.M(0, 3), 5);
    EXPECT_EQ(m.M(2, 3), 7);
}

TEST(Matrix, ProductAppliesTheRightFactorFirst)
{
    const CTavrinMatrix translate = CTavrinMatrix::CreateTranslation(1, 0, 0);
    const CTavrinMatrix scale = CTavrinMatrix::CreateScalling(2, 2, 2);
    // Scale (1,1,1) to (2,2,2), then move by x+1.
    ExpectPoint((translate * scale).TransformPoint({1, 1, 1}), 3, 2, 2);
    // Move to (2,1,1), then scale.
    ExpectPoint((scale * translate).TransformPoint({1, 1, 1}), 4, 2, 2);

    CTavrinMatrix inPlace = translate;
    inPlace *= scale;
    EXPECT_EQ(inPlace, translate * scale);
}

TEST(Matrix, RotationAroundXTakesYUpToZUp)
{
    const CTavrinMatrix standUp = CTavrinMatrix::CreateRotaionAroundX(pi / 2);
    ExpectPoint(standUp.TransformPoint({0, 1, 0}), 0, 0, 1);
    ExpectPoint(standUp.TransformPoint({0, 0, 1}), 0, -1, 0);
}

TEST(Matrix, RotationAboutAnAxisIsRightHanded)
{
    ExpectPoint(CTavrinMatrix::DefineByRotation(pi / 2, 0, 0, 1).TransformPoint({1, 0, 0}), 0, 1, 0);
    // A third of a turn about the diagonal cycles the axes x -> y -> z.
    ExpectPoint(CTavrinMatrix::DefineByRotation(2 * pi / 3, 1, 1, 1).TransformPoint({1, 0, 0}), 0, 1, 0);
}

TEST(Matrix, ShearingsAddOneCoordinateToAnother)
{
    ExpectPoint(CTavrinMatrix::CreateShearingYX(2).TransformPoint({1, 1, 1}), 1, 3, 1);
    ExpectPoint(CTavrinMatrix::CreateShearingZX(2).TransformPoint({1, 1, 1}), 1, 1, 3);
    ExpectPoint(CTavrinMatrix::CreateShearingZY(2).TransformPoint({1, 5, 1}), 1, 5, 11);
}

TEST(Matrix, InverseUndoesTranslationAndScale)
{
    const CTavrinMatrix m = CTavrinMatrix::CreateTranslation(1, 2, 3) * CTavrinMatrix::CreateScalling(2, 4, 8);
    // m takes (1,1,1) to (2+1, 4+2, 8+3).
    ExpectPoint(m.Inverse().TransformPoint({3, 6, 11}), 1, 1, 1);
    ExpectMatrixNear(m * m.Inverse(), CTavrinMatrix(), 1e-15);
}

TEST(Matrix, InverseNeedsRowExchanges)
{
    // A permutation: its first pivot is zero without a row exchange.
    const CTavrinMatrix swapXY(0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
    EXPECT_EQ(swapXY.Inverse(), swapXY);
}

TEST(Matrix, SingularInverseIsIdentity)
{
    EXPECT_TRUE(CTavrinMatrix::CreateScalling(1, 0, 1).Inverse().IsIdentity());
}

TEST(Matrix, ResetToIdentity)
{
    CTavrinMatrix m = CTavrinMatrix::CreateTranslation(1, 2, 3);
    EXPECT_FALSE(m.IsIdentity());
    m.ResetToIdentity();
    EXPECT_TRUE(m.IsIdentity());
}

TEST(Matrix, CoordinatesTransformMapsAxesOntoAxes)
{
    // From the standard axes onto (y, z, x): x goes to y.
    const CTavrinMatrix m = CTavrinMatrix::CreateCoordinatesTransform({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 2, 0},
                                                                      {0, 0, 2}, {2, 0, 0}, true);
    ExpectPoint(m.TransformPoint({1, 2, 3}), 3, 1, 2);
}

TEST(MatrixDecomposition, SeparatesScaleAndRotation)
{
    const CTavrinMatrix m = CTavrinMatrix::CreateTranslation(7, 8, 9) * CTavrinMatrix::CreateScalling(2, 3, 4) *
                            CTavrinMatrix::DefineByRotation(pi / 2, 0, 0, 1);
    CTavrin3DVertex scale, shear, rotation, translation;
    double mirror = 0;
    ASSERT_TRUE(m.DecomposeMatrix(scale, shear, rotation, translation, mirror));
    ExpectPoint(scale, 2, 3, 4);
    ExpectPoint(shear, 0, 0, 0);
    ExpectPoint(rotation, 0, 0, pi / 2);
    ExpectPoint(translation, 7, 8, 9);
    EXPECT_EQ(mirror, 1.0);
}

TEST(MatrixDecomposition, RoundTripsEveryComponent)
{
    const CTavrin3DVertex scale(2, 3, 4), shear(0.5, -0.25, 0.75), rotation(0.3, -0.4, 1.1), translation(1, 2, 3);
    const CTavrinMatrix m = CTavrinMatrix::ComposeMatrix(scale, shear, rotation, translation);
    CTavrin3DVertex s, h, r, t;
    double mirror = 0;
    ASSERT_TRUE(m.DecomposeMatrix(s, h, r, t, mirror));
    ExpectPoint(s, 2, 3, 4);
    ExpectPoint(h, 0.5, -0.25, 0.75);
    ExpectPoint(r, 0.3, -0.4, 1.1);
    ExpectPoint(t, 1, 2, 3);
}

TEST(MatrixDecomposition, MirroredMatrixRecomposes)
{
    const CTavrinMatrix m = CTavrinMatrix::ComposeMatrix({-1, 2, 3}, {0.2, 0, 0}, {0.1, 0.2, 0.3}, {0, 0, 0});
    CTavrin3DVertex s, h, r, t;
    double mirror = 0;
    ASSERT_TRUE(m.DecomposeMatrix(s, h, r, t, mirror));
    EXPECT_EQ(mirror, -1.0);
    ExpectMatrixNear(CTavrinMatrix::ComposeMatrix(s, h, r, t), m, 1e-12);
}

TEST(MatrixDecomposition, GimbalLockRecomposes)
{
    const CTavrinMatrix m = CTavrinMatrix::ComposeMatrix({1, 1, 1}, {0, 0, 0}, {0.3, pi / 2, 0.2}, {0, 0, 0});
    CTavrin3DVertex s, h, r, t;
    double mirror = 0;
    ASSERT_TRUE(m.DecomposeMatrix(s, h, r, t, mirror));
    EXPECT_NEAR(r.Y(), pi / 2, 1e-6);
    ExpectMatrixNear(CTavrinMatrix::ComposeMatrix(s, h, r, t), m, 1e-9);
}

TEST(MatrixDecomposition, SingularMatrixFails)
{
    CTavrin3DVertex s, h, r, t;
    double mirror = 0;
    EXPECT_FALSE(CTavrinMatrix::CreateScalling(1, 1, 0).DecomposeMatrix(s, h, r, t, mirror));
}

TEST(Vertex, ArithmeticAndTransform)
{
    const CTavrin3DVertex x(1, 0, 0), y(0, 1, 0);
    ExpectPoint(x ^ y, 0, 0, 1);
    EXPECT_DOUBLE_EQ(CTavrin3DVertex(3, 4, 0).Length(), 5);
    EXPECT_DOUBLE_EQ(x.Distance(y), std::sqrt(2.0));
    CTavrin3DVertex v(0, 0, 2);
    v.Normalize();
    ExpectPoint(v, 0, 0, 1);
    v.ModifyByTransform(CTavrinMatrix::CreateTranslation(1, 1, 1));
    ExpectPoint(v, 1, 1, 2);
}
