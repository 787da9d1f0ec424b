#pragma once

#include "usdcore/pxr.h"

#include <cstddef>
#include <functional>
#include <iosfwd>

PXR_NAMESPACE_OPEN_SCOPE

/// A time value that layer offsets apply to when it is authored in a
/// referenced or sublayered layer (unlike a plain double).
class SdfTimeCode
{
public:
    constexpr SdfTimeCode(double time = 0.0) noexcept : _time(time) {}

    constexpr double GetValue() const noexcept { return _time; }
    explicit constexpr operator double() const noexcept { return _time; }

    size_t GetHash() const { return std::hash<double>()(_time); }

    friend constexpr bool operator==(const SdfTimeCode& a, const SdfTimeCode& b) { return a._time == b._time; }
    friend constexpr bool operator!=(const SdfTimeCode& a, const SdfTimeCode& b) { return a._time != b._time; }
    friend constexpr bool operator<(const SdfTimeCode& a, const SdfTimeCode& b) { return a._time < b._time; }
    friend constexpr bool operator>(const SdfTimeCode& a, const SdfTimeCode& b) { return a._time > b._time; }
    friend constexpr bool operator<=(const SdfTimeCode& a, const SdfTimeCode& b) { return a._time <= b._time; }
    friend constexpr bool operator>=(const SdfTimeCode& a, const SdfTimeCode& b) { return a._time >= b._time; }
    friend constexpr SdfTimeCode operator*(const SdfTimeCode& a, const SdfTimeCode& b) { return SdfTimeCode(a._time * b._time); }
    friend constexpr SdfTimeCode operator/(const SdfTimeCode& a, const SdfTimeCode& b) { return SdfTimeCode(a._time / b._time); }
    friend constexpr SdfTimeCode operator+(const SdfTimeCode& a, const SdfTimeCode& b) { return SdfTimeCode(a._time + b._time); }
    friend constexpr SdfTimeCode operator-(const SdfTimeCode& a, const SdfTimeCode& b) { return SdfTimeCode(a._time - b._time); }

private:
    double _time;
};

inline size_t hash_value(const SdfTimeCode& t) { return t.GetHash(); }

std::ostream& operator<<(std::ostream& out, const SdfTimeCode& timeCode);

PXR_NAMESPACE_CLOSE_SCOPE
