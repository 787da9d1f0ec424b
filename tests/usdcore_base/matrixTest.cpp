#include "usdcore/gf/math.h"
#include "usdcore/gf/matrix2d.h"
#include "usdcore/gf/matrix3d.h"
#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/matrix4f.h"

#include <gtest/gtest.h>

#include <cfloat>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

void ExpectClose(const GfMatrix4d& a, const GfMatrix4d& b)
{
    EXPECT_TRUE(GfIsClose(a, b, 1e-9)) << a << "\n vs \n" << b;
}

} // namespace

TEST(GfMatrix, RowVectorsComposeLeftToRight)
{
    // Scale by 2, then translate by (1, 0, 0): the point (1, 1, 1) goes to
    // (2, 2, 2) and then to (3, 2, 2). The product lists them in that order.
    GfMatrix4d scale, translate;
    scale.SetScale(2.0);
    translate.SetTranslate(GfVec3d(1, 0, 0));
    const GfMatrix4d scaleThenTranslate = scale * translate;
    EXPECT_EQ(scaleThenTranslate.Transform(GfVec3d(1, 1, 1)), GfVec3d(3, 2, 2));
    EXPECT_EQ((translate * scale).Transform(GfVec3d(1, 1, 1)), GfVec3d(4, 2, 2));
    // The translation lives in row 3.
    EXPECT_EQ(scaleThenTranslate.GetRow(3), GfVec4d(1, 0, 0, 1));
    EXPECT_EQ(scaleThenTranslate.ExtractTranslation(), GfVec3d(1, 0, 0));
    // Directions ignore the translation.
    EXPECT_EQ(scaleThenTranslate.TransformDir(GfVec3d(0, 1, 0)), GfVec3d(0, 2, 0));
    // Row vector times matrix is the same transform.
    EXPECT_EQ(GfVec4d(1, 1, 1, 1) * scaleThenTranslate, GfVec4d(3, 2, 2, 1));
}

TEST(GfMatrix, ProductOfExplicitEntries)
{
    const GfMatrix2d a(1, 2, 3, 4), b(5, 6, 7, 8);
    // [1 2][5 6]   [1*5+2*7 1*6+2*8]   [19 22]
    // [3 4][7 8] = [3*5+4*7 3*6+4*8] = [43 50]
    EXPECT_EQ(a * b, GfMatrix2d(19, 22, 43, 50));
    EXPECT_EQ(a.GetTranspose(), GfMatrix2d(1, 3, 2, 4));
    EXPECT_EQ(a.GetDeterminant(), -2.0);
    EXPECT_EQ(a + b, GfMatrix2d(6, 8, 10, 12));
    EXPECT_EQ(a * 2.0, GfMatrix2d(2, 4, 6, 8));
    EXPECT_EQ(GfLerp(0.5, a, b), GfMatrix2d(3, 4, 5, 6));
}

TEST(GfMatrix, InverseUndoesTheTransform)
{
    GfMatrix4d rotate, translate, scale;
    rotate.SetRotate(GfRotation(GfVec3d(0, 0, 1), 90));
    translate.SetTranslate(GfVec3d(5, -2, 1));
    scale.SetScale(GfVec3d(2, 4, 0.5));
    const GfMatrix4d m = scale * rotate * translate;
    double det = 0;
    const GfMatrix4d inverse = m.GetInverse(&det);
    EXPECT_NEAR(det, 4.0, 1e-12); // 2 * 4 * 0.5, a rotation keeps volume
    ExpectClose(m * inverse, GfMatrix4d(1));
    ExpectClose(inverse * m, GfMatrix4d(1));
    const GfVec3d p(1, 2, 3);
    EXPECT_TRUE(GfIsClose(inverse.Transform(m.Transform(p)), p, 1e-12));
    // A pure translation inverts to the opposite translation.
    ExpectClose(translate.GetInverse(), GfMatrix4d().SetTranslate(GfVec3d(-5, 2, -1)));
}

TEST(GfMatrix, InverseNeedsPivoting)
{
    // Zero in the top-left corner: elimination without row swaps would fail.
    const GfMatrix3d m(0, 1, 0, 1, 0, 0, 0, 0, 1);
    EXPECT_EQ(m.GetDeterminant(), -1.0);
    EXPECT_EQ(m.GetInverse(), m);
    EXPECT_TRUE(m.IsLeftHanded());
}

TEST(GfMatrix, SingularInverseIsFlaggedNotNan)
{
    GfMatrix4d flat(1);
    flat[2][2] = 0;
    double det = 1;
    const GfMatrix4d inverse = flat.GetInverse(&det);
    EXPECT_EQ(det, 0.0);
    EXPECT_EQ(inverse[0][0], FLT_MAX);
    EXPECT_EQ(inverse[0][1], 0.0);
}

TEST(GfMatrix, RotationMatchesTheRightHandRule)
{
    // 90 degrees about Z takes X to Y and Y to -X.
    GfMatrix4d m;
    m.SetRotate(GfRotation(GfVec3d::ZAxis(), 90));
    EXPECT_TRUE(GfIsClose(m.TransformDir(GfVec3d(1, 0, 0)), GfVec3d(0, 1, 0), 1e-12));
    EXPECT_TRUE(GfIsClose(m.TransformDir(GfVec3d(0, 1, 0)), GfVec3d(-1, 0, 0), 1e-12));
    // 90 degrees about X takes Y to Z.
    m.SetRotate(GfRotation(GfVec3d::XAxis(), 90));
    EXPECT_TRUE(GfIsClose(m.TransformDir(GfVec3d(0, 1, 0)), GfVec3d(0, 0, 1), 1e-12));
    EXPECT_TRUE(m.IsRightHanded());
    GfMatrix3d r3;
    r3.SetRotate(GfRotation(GfVec3d::YAxis(), 90)); // Z to X
    EXPECT_TRUE(GfIsClose(GfVec3d(0, 0, 1) * r3, GfVec3d(1, 0, 0), 1e-12));
}

TEST(GfMatrix, ExtractsRotationAndTranslationOfTrs)
{
    const GfRotation rotation(GfVec3d(1, 1, 0), 60);
    GfMatrix4d rotate, translate, scale;
    rotate.SetRotate(rotation);
    translate.SetTranslate(GfVec3d(7, 8, 9));
    scale.SetScale(3.0);
    const GfMatrix4d trs = scale * rotate * translate;
    EXPECT_TRUE(GfIsClose(trs.ExtractTranslation(), GfVec3d(7, 8, 9), 1e-12));
    const GfQuatd q = trs.ExtractRotationQuat();
    const GfQuatd expected = rotation.GetQuat();
    EXPECT_NEAR(std::fabs(GfDot(q, expected)), 1.0, 1e-12);
    const GfRotation extracted = trs.ExtractRotation();
    EXPECT_NEAR(extracted.GetAngle(), 60, 1e-9);
    EXPECT_TRUE(GfIsClose(extracted.GetAxis(), GfVec3d(1, 1, 0).GetNormalized(), 1e-9));
}

TEST(GfMatrix, SetRotateOnlyKeepsTranslation)
{
    GfMatrix4d m;
    m.SetTranslate(GfVec3d(1, 2, 3));
    m.SetRotateOnly(GfQuatd(0, 0, 0, 1)); // 180 degrees about Z
    EXPECT_TRUE(GfIsClose(m.Transform(GfVec3d(1, 0, 0)), GfVec3d(0, 2, 3), 1e-12));
}

TEST(GfMatrix, FloatAndDoubleConvertExplicitly)
{
    GfMatrix4d d;
    d.SetTranslate(GfVec3d(0.1, 0, 0));
    const GfMatrix4f f(d);
    EXPECT_EQ(f[3][0], 0.1f);
    EXPECT_EQ(GfMatrix4d(f)[3][0], double(0.1f));
    EXPECT_EQ(f.Transform(GfVec3f(1, 0, 0)), GfVec3f(1.1f, 0, 0));
    static_assert(!std::is_convertible<GfMatrix4d, GfMatrix4f>::value, "");
}

TEST(GfMatrix, ProjectiveTransformDividesByW)
{
    GfMatrix4d m(1);
    m[3][3] = 2; // w of every point becomes 2
    EXPECT_EQ(m.Transform(GfVec3d(2, 4, 6)), GfVec3d(1, 2, 3));
    EXPECT_EQ(m.TransformAffine(GfVec3d(2, 4, 6)), GfVec3d(2, 4, 6));
}

TEST(GfMatrix, TransformIsRotationThenTranslation)
{
    // 90 degrees about Z takes (1, 0, 0) to (0, 1, 0); then + (10, 0, 0).
    const GfMatrix4d m(GfRotation(GfVec3d::ZAxis(), 90), GfVec3d(10, 0, 0));
    EXPECT_TRUE(GfIsClose(m.Transform(GfVec3d(1, 0, 0)), GfVec3d(10, 1, 0), 1e-12));
    GfMatrix4f f;
    f.SetTransform(GfRotation(GfVec3d::ZAxis(), 90), GfVec3f(0, 0, 5));
    EXPECT_TRUE(GfIsClose(f.Transform(GfVec3f(1, 0, 0)), GfVec3f(0, 1, 5), 1e-6));
}

TEST(GfMatrix, SetEntriesAndRows)
{
    GfMatrix3d m;
    m.Set(1, 2, 3, 4, 5, 6, 7, 8, 10);
    EXPECT_EQ(m.GetRow(2), GfVec3d(7, 8, 10));
    EXPECT_EQ(m.GetColumn(1), GfVec3d(2, 5, 8));
    // 1*(50-48) - 2*(40-42) + 3*(32-35) = 2 + 4 - 9
    EXPECT_NEAR(m.GetDeterminant(), -3.0, 1e-12);
    GfMatrix4d t(1);
    t.SetRow3(3, GfVec3d(4, 5, 6));
    EXPECT_EQ(t.GetRow3(3), GfVec3d(4, 5, 6));
    EXPECT_EQ(t.ExtractTranslation(), GfVec3d(4, 5, 6));
    EXPECT_EQ(t[3][3], 1.0);
}
