#pragma once

// Values between two time samples. Floating-point scalars, vectors and
// matrices (half, float, double) and their arrays blend linearly,
// quaternions by spherical interpolation; every other type is held.

#include "usdcore/pxr.h"
#include "usdcore/vt/value.h"

PXR_NAMESPACE_OPEN_SCOPE

/// The value at \p alpha (0 at \p lower, 1 at \p upper) in \p result. False
/// when the type does not interpolate, or the two samples differ in type
/// or array size: the caller then holds \p lower.
bool Usd_InterpolateValue(const VtValue& lower, const VtValue& upper, double alpha, VtValue* result);

PXR_NAMESPACE_CLOSE_SCOPE
