// Blending two transform key frames: the eased fraction of every mode pair,
// the linear cases, the ends of the pair, and rotation about a pivot.

#include "TavrinAnimation/src/TavrinTransformInterpolation.h"
#include "MatrixExpectations.h"

#include <cmath>

using namespace Tavrin;

namespace {

constexpr double kPi = 3.14159265358979323846;

CTavrinMatrix RotationZ(double angle) {
    return CTavrinMatrix::DefineByRotation(angle, 0, 0, 1);
}

} // namespace

TEST(EasedFraction, AccelerateThenDecelerateMeetInTheMiddle) {
    // n = 10, a = b = 5: k(k+1)/50 up to k = 5, 1 - (10-k)(11-k)/50 after.
    EXPECT_NEAR(EasedFraction(10, 1, 1, 2), 0.04, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 5, 1, 2), 0.6, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 6, 1, 2), 0.6, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 9, 1, 2), 0.96, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 3, 3, 3), 0.24, 1e-12); // 12 / 50
    EXPECT_NEAR(EasedFraction(10, 8, 3, 3), 0.88, 1e-12); // 1 - 6 / 50
}

TEST(EasedFraction, OddSpanSplitsAtTheIntegerHalf) {
    // n = 5, a = b = 2: k = 1 -> 2/10; k = 3 -> 1 - 2*3/(5*3).
    EXPECT_NEAR(EasedFraction(5, 1, 1, 2), 0.2, 1e-12);
    EXPECT_NEAR(EasedFraction(5, 3, 1, 2), 0.6, 1e-12);
}

TEST(EasedFraction, AccelerateTheWholeWay) {
    // a = b = n = 10: k(k+1)/100.
    EXPECT_NEAR(EasedFraction(10, 3, 1, 0), 0.12, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 9, 3, 0), 0.9, 1e-12);
}

TEST(EasedFraction, DecelerateTheWholeWay) {
    // a = b = 0: 1 - (10-k)(11-k)/100.
    EXPECT_NEAR(EasedFraction(10, 1, 0, 2), 0.1, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 5, 0, 3), 0.7, 1e-12);
}

TEST(EasedFraction, PairsWithoutPhasesRunAtConstantSpeed) {
    EXPECT_NEAR(EasedFraction(10, 3, 1, 1), 0.3, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 3, 2, 2), 0.3, 1e-12);
    EXPECT_NEAR(EasedFraction(10, 7, 3, 1), 0.7, 1e-12);
    EXPECT_NEAR(EasedFraction(4, 1, 7, 9), 0.25, 1e-12);
}

TEST(EasedFraction, EndsOfTheSpan) {
    EXPECT_EQ(EasedFraction(10, 0, 1, 2), 0.0);
    EXPECT_EQ(EasedFraction(10, 10, 1, 2), 1.0);
    EXPECT_EQ(EasedFraction(0, 0, 1, 2), 1.0);
}

TEST(InterpolateTransformMatrix, LinearTranslationBetweenTwoKeys) {
    // Frame 7 of keys at 5 and 10: t = 2/5 of 10 units.
    const CTavrinMatrix result =
        InterpolateTransformMatrix(Translation(0, 0, 0), Translation(10, 0, 0), CTavrin3DVertex(), 7, 5, 10, 0, 0);
    ExpectMatrixNear(result, Translation(4, 0, 0));
}

TEST(InterpolateTransformMatrix, ModesThatStayLinear) {
    const CTavrinMatrix a = Translation(0, 0, 0);
    const CTavrinMatrix b = Translation(0, 10, 0);
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 7, 5, 10, 0, 1), Translation(0, 4, 0));
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 7, 5, 10, 2, 0), Translation(0, 4, 0));
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 7, 5, 10, 2, 1), Translation(0, 4, 0));
}

TEST(InterpolateTransformMatrix, EasedModesUseTheEasedFraction) {
    // Keys at 5 and 15 with ease-out 1 and ease-in 2: frame 6 is 0.04 of the way.
    const CTavrinMatrix result = InterpolateTransformMatrix(Translation(0, 0, 0), Translation(10, 0, 0),
                                                            CTavrin3DVertex(), 6, 5, 15, 1, 2);
    ExpectMatrixNear(result, Translation(0.4, 0, 0));
    // Ease-out 2 with ease-in 2 is not in the linear set: constant speed.
    ExpectMatrixNear(InterpolateTransformMatrix(Translation(0, 0, 0), Translation(10, 0, 0), CTavrin3DVertex(), 6,
                                                5, 15, 2, 2),
                     Translation(1, 0, 0));
}

TEST(InterpolateTransformMatrix, AtAndBeyondTheKeysReturnTheirMatrices) {
    const CTavrinMatrix a = RotationZ(0.3) * Translation(1, 2, 3);
    const CTavrinMatrix b = CTavrinMatrix::CreateScalling(2, 3, 4) * Translation(-5, 0, 1);
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 10, 5, 10, 1, 2), b, 0.0);
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 12, 5, 10, 1, 2), b, 0.0);
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 5, 5, 10, 1, 2), a, 0.0);
    ExpectMatrixNear(InterpolateTransformMatrix(a, b, CTavrin3DVertex(), 3, 5, 10, 1, 2), a, 0.0);
}

TEST(InterpolateTransformMatrix, RotationHalfWay) {
    const CTavrinMatrix result =
        InterpolateTransformMatrix(CTavrinMatrix(), RotationZ(kPi / 2), CTavrin3DVertex(), 1, 0, 2, 0, 0);
    ExpectMatrixNear(result, RotationZ(kPi / 4), 1e-9);
}

TEST(InterpolateTransformMatrix, ScaleHalfWay) {
    const CTavrinMatrix result = InterpolateTransformMatrix(CTavrinMatrix(), CTavrinMatrix::CreateScalling(3, 1, 5),
                                                            CTavrin3DVertex(), 1, 0, 2, 0, 0);
    ExpectMatrixNear(result, CTavrinMatrix::CreateScalling(2, 1, 3), 1e-9);
}

TEST(InterpolateTransformMatrix, RotatesAboutThePivot) {
    // B turns a quarter about the pivot (1, 0, 0); half way the origin has
    // swung an eighth turn about it: (1 - cos 45°, -sin 45°, 0), not the
    // straight-line midpoint (0.5, -0.5, 0).
    const CTavrinMatrix toPivot = Translation(1, 0, 0);
    const CTavrinMatrix b = toPivot * RotationZ(kPi / 2) * toPivot.Inverse();
    const CTavrinMatrix result =
        InterpolateTransformMatrix(CTavrinMatrix(), b, CTavrin3DVertex(1, 0, 0), 1, 0, 2, 0, 0);
    const double half = std::sqrt(0.5);
    EXPECT_NEAR(result.M(0, 3), 1 - half, 1e-9);
    EXPECT_NEAR(result.M(1, 3), -half, 1e-9);
    EXPECT_NEAR(result.M(2, 3), 0, 1e-9);
}

TEST(InterpolateDecomposedMatrix, EndsReproduceTheirMatrices) {
    const CTavrinMatrix target = Translation(1, -2, 3) * RotationZ(0.5) * CTavrinMatrix::CreateScalling(2, 2, 2);
    ExpectMatrixNear(InterpolateDecomposedMatrix(CTavrinMatrix(), target, 1.0), target, 1e-9);
    ExpectMatrixNear(InterpolateDecomposedMatrix(target, CTavrinMatrix(), 1.0), CTavrinMatrix(), 1e-9);
}
