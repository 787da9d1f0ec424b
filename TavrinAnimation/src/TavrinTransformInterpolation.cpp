#include "TavrinAnimation/src/TavrinTransformInterpolation.h"

#include "host/CTavrinQuaternion.h"

#include <algorithm>

namespace Tavrin {

namespace {

// Ease mode bit that does not change the departure of a key frame on its own:
// an ease-out of 2 still leaves with constant speed.
constexpr int kEaseOutNeutralBit = 2;

struct EasePhases {
    int accelerationEnd;   // a
    int decelerationStart; // b
};

EasePhases PhasesFor(int n, int easeOut, int easeIn) {
    if ((easeOut == 1 || easeOut == 3) && easeIn == 0)
        return {n, n};
    if ((easeOut == 1 && easeIn == 2) || (easeOut == 3 && easeIn == 3))
        return {n / 2, n / 2};
    if (easeOut == 0 && (easeIn == 2 || easeIn == 3))
        return {0, 0};
    return {0, n};
}

struct Decomposed {
    CTavrin3DVertex translation;
    CTavrin3DVertex scale;
    CTavrin3DVertex shear;
    CTavrinQuaternion rotation;
};

Decomposed Decompose(CTavrinMatrix matrix) {
    Decomposed parts;
    parts.translation = CTavrin3DVertex(matrix.M(0, 3), matrix.M(1, 3), matrix.M(2, 3));
    matrix *= CTavrinMatrix::CreateTranslation(-parts.translation.X(), -parts.translation.Y(),
                                               -parts.translation.Z());
    CTavrin3DVertex angles, translationLeft;
    double mirror = 1.0;
    matrix.DecomposeMatrix(parts.scale, parts.shear, angles, translationLeft, mirror);
    CTavrinMatrix rotation;
    rotation *= CTavrinMatrix::DefineByRotation(angles.X(), 1, 0, 0);
    rotation *= CTavrinMatrix::DefineByRotation(angles.Y(), 0, 1, 0);
    rotation *= CTavrinMatrix::DefineByRotation(angles.Z(), 0, 0, 1);
    parts.rotation.FromMatrix(rotation);
    return parts;
}

CTavrin3DVertex Lerp(const CTavrin3DVertex& from, const CTavrin3DVertex& to, double t) {
    return CTavrin3DVertex(from.X() + (to.X() - from.X()) * t, from.Y() + (to.Y() - from.Y()) * t,
                           from.Z() + (to.Z() - from.Z()) * t);
}

} // namespace

double EasedFraction(int n, int k, int easeOut, int easeIn) {
    const EasePhases phases = PhasesFor(n, easeOut, easeIn);
    return PhasedFraction(n, k, phases.accelerationEnd, phases.decelerationStart);
}

double PhasedFraction(int n, int k, int a, int b) {
    if (n <= 0 || k >= n)
        return 1.0;
    if (k <= 0)
        return 0.0;
    a = std::clamp(a, 0, n);
    b = std::clamp(b, a, n);
    const double u = 1.0 / n;
    if (k <= a) {
        const long long triangle = static_cast<long long>(k) * (k + 1) / 2;
        return 2.0 * triangle / (static_cast<double>(n) * a);
    }
    if (k >= b) {
        const long long left = n - k;
        const long long triangle = left * (left + 1) / 2;
        return 1.0 - 2.0 * triangle / (static_cast<double>(n) * (n - b));
    }
    const double accelerationArea = a > 0 ? u * (a + 1) : 0.0;
    const double decelerationArea = b < n ? u * (n - b + 1) : 0.0;
    const double step = (1.0 - accelerationArea - decelerationArea) / (b - a);
    return accelerationArea + (k - a) * step;
}

CTavrinMatrix InterpolateDecomposedMatrix(const CTavrinMatrix& from, const CTavrinMatrix& to, double t) {
    const Decomposed start = Decompose(from);
    const Decomposed end = Decompose(to);
    const CTavrin3DVertex translation = Lerp(start.translation, end.translation, t);
    const CTavrin3DVertex scale = Lerp(start.scale, end.scale, t);
    const CTavrin3DVertex shear = Lerp(start.shear, end.shear, t);
    const CTavrinQuaternion rotation = start.rotation.Squad(end.rotation, t);

    CTavrinMatrix result;
    result *= CTavrinMatrix::CreateTranslation(translation.X(), translation.Y(), translation.Z());
    result *= CTavrinMatrix::CreateScalling(scale.X(), scale.Y(), scale.Z());
    result *= CTavrinMatrix::CreateShearingYX(shear.X());
    result *= CTavrinMatrix::CreateShearingZX(shear.Y());
    result *= CTavrinMatrix::CreateShearingZY(shear.Z());
    result *= rotation.ToMatrix();
    return result;
}

double TransitionFraction(int frame, int frameA, int frameB, int easeOutA, int easeInB) {
    const int lo = std::min(frameA, frameB);
    const int hi = std::max(frameA, frameB);
    if (frame >= hi)
        return 1.0;
    if (frame <= lo)
        return 0.0;
    const bool linear = (easeOutA & ~kEaseOutNeutralBit) == 0 && (easeInB == 0 || easeInB == 1);
    return linear ? (static_cast<double>(frame) - lo) / (static_cast<double>(hi) - lo)
                  : EasedFraction(hi - lo, frame - lo, easeOutA, easeInB);
}

CTavrinMatrix InterpolateTransformMatrix(const CTavrinMatrix& matrixA, const CTavrinMatrix& matrixB,
                                         const CTavrin3DVertex& pivot, int frame, int frameA, int frameB,
                                         int easeOutA, int easeInB) {
    const int lo = std::min(frameA, frameB);
    const int hi = std::max(frameA, frameB);
    if (frame >= hi)
        return matrixB;
    if (frame <= lo)
        return matrixA;

    const double t = TransitionFraction(frame, frameA, frameB, easeOutA, easeInB);
    const CTavrinMatrix toPivot = CTavrinMatrix::CreateTranslation(pivot.X(), pivot.Y(), pivot.Z());
    const CTavrinMatrix fromPivot = toPivot.Inverse();
    const CTavrinMatrix relative = fromPivot * matrixA.Inverse() * matrixB * toPivot;
    return matrixA * toPivot * InterpolateDecomposedMatrix(CTavrinMatrix(), relative, t) * fromPivot;
}

} // namespace Tavrin
