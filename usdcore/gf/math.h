#pragma once

#include "usdcore/pxr.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

inline double GfDegreesToRadians(double degrees) { return degrees * (M_PI / 180.0); }
inline double GfRadiansToDegrees(double radians) { return radians * (180.0 / M_PI); }

/// True if \p a and \p b differ by less than \p epsilon.
inline bool GfIsClose(double a, double b, double epsilon) { return std::fabs(a - b) < epsilon; }

inline double GfClamp(double value, double min, double max)
{
    return value < min ? min : (value > max ? max : value);
}

/// Linear interpolation: \p a at alpha 0, \p b at alpha 1.
template <class T>
inline T GfLerp(double alpha, const T& a, const T& b)
{
    return T((1.0 - alpha) * a + alpha * b);
}

PXR_NAMESPACE_CLOSE_SCOPE
