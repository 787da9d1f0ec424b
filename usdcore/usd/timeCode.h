#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/timeCode.h"

#include <cmath>
#include <iosfwd>
#include <limits>

PXR_NAMESPACE_OPEN_SCOPE

/// The time at which a value is read: a number on the stage's time line, or
/// the special "default" time that reads only non-animated values.
class UsdTimeCode
{
public:
    constexpr UsdTimeCode(double t = 0.0) noexcept : _value(t) {}
    constexpr UsdTimeCode(const SdfTimeCode& timeCode) noexcept : _value(timeCode.GetValue()) {}

    /// Reads default values, never time samples. Held as a quiet NaN, as
    /// OpenUSD does, so that it differs from every real time.
    static constexpr UsdTimeCode Default() { return UsdTimeCode(std::numeric_limits<double>::quiet_NaN()); }
    static constexpr UsdTimeCode EarliestTime() { return UsdTimeCode(std::numeric_limits<double>::lowest()); }

    bool IsDefault() const { return std::isnan(_value); }
    bool IsNumeric() const { return !IsDefault(); }
    bool IsEarliestTime() const { return IsNumeric() && _value == std::numeric_limits<double>::lowest(); }
    double GetValue() const { return _value; }

    bool operator==(const UsdTimeCode& rhs) const
    {
        return IsDefault() == rhs.IsDefault() && (IsDefault() || _value == rhs._value);
    }
    bool operator!=(const UsdTimeCode& rhs) const { return !(*this == rhs); }
    /// Default sorts before every numeric time.
    bool operator<(const UsdTimeCode& rhs) const
    {
        return (IsDefault() && rhs.IsNumeric()) || (IsNumeric() && rhs.IsNumeric() && _value < rhs._value);
    }

private:
    double _value;
};

std::ostream& operator<<(std::ostream& out, const UsdTimeCode& time);

PXR_NAMESPACE_CLOSE_SCOPE
