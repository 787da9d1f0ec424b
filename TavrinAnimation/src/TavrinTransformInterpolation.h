#pragma once
// Blending of two transform key frames: the decomposed-matrix interpolation
// and the eased fraction that the ease modes of the two key frames select.

#include "host/CTavrinMatrix.h"
#include "host/CTavrin3DVertex.h"

namespace Tavrin {

// Fraction of the way travelled after k of n frames when the motion
// accelerates uniformly over [0, a], runs at constant speed over [a, b] and
// decelerates over [b, n]; the two ease modes choose a and b. Mode pairs
// without their own phases run at constant speed (a = 0, b = n: linear).
double EasedFraction(int n, int k, int easeOut, int easeIn);
// The same with the phase limits given: a and b are kept within [0, n] and
// b is not below a.
double PhasedFraction(int n, int k, int a, int b);
// The fraction from key frame A to key frame B at frame: 0 up to the
// earlier frame, 1 from the later one on, linear in between unless the ease
// modes ask for eased phases.
double TransitionFraction(int frame, int frameA, int frameB, int easeOutA, int easeInB);

// Blends two matrices at fraction t: translation, scale and shear linearly,
// rotation by quaternion squad.
CTavrinMatrix InterpolateDecomposedMatrix(const CTavrinMatrix& from, const CTavrinMatrix& to, double t);

// The matrix between key frame A (frameA, matrixA) and key frame B at frame,
// rotating about pivot; before/after the pair the nearer matrix is returned.
CTavrinMatrix InterpolateTransformMatrix(const CTavrinMatrix& matrixA, const CTavrinMatrix& matrixB,
                                         const CTavrin3DVertex& pivot, int frame, int frameA, int frameB,
                                         int easeOutA, int easeInB);

} // namespace Tavrin
