#pragma once

// The polar decomposition behind GfMatrix4d::Factor, in double precision
// for both matrix types.

#include "usdcore/pxr.h"

PXR_NAMESPACE_OPEN_SCOPE

/// Factors \p m as r * s * transpose(r) * u * t (row vectors): t the
/// translation (row 3), s the scales along the axes that r's columns name,
/// u a rotation. A mirroring matrix gives negative scales. False when the
/// upper 3x3 block is singular; scales of magnitude below \p eps are then
/// clamped to \p eps so that u can still be formed.
bool Gf_FactorMatrix4(const double m[4][4], double r[4][4], double s[3], double u[4][4], double t[3], double eps);

PXR_NAMESPACE_CLOSE_SCOPE
