#pragma once

// An axis-aligned box between two corners, for GfRange3d and GfRange3f.

#include "usdcore/gf/vec.h"
#include "usdcore/pxr.h"

#include <algorithm>
#include <cfloat>
#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

template <class S>
class Gf_Range3
{
public:
    using MinMaxType = Gf_Vec<S, 3>;
    using ScalarType = S;

    /// An empty range: its minimum is above its maximum.
    Gf_Range3() { SetEmpty(); }
    Gf_Range3(const MinMaxType& min, const MinMaxType& max) : _min(min), _max(max) {}

    const MinMaxType& GetMin() const { return _min; }
    const MinMaxType& GetMax() const { return _max; }
    void SetMin(const MinMaxType& min) { _min = min; }
    void SetMax(const MinMaxType& max) { _max = max; }

    /// Empty ranges are made with the float limits, whatever S, as OpenUSD
    /// does.
    void SetEmpty()
    {
        _min = MinMaxType(S(FLT_MAX));
        _max = MinMaxType(S(-FLT_MAX));
    }
    bool IsEmpty() const { return _min[0] > _max[0] || _min[1] > _max[1] || _min[2] > _max[2]; }

    /// max - min; zero or negative per axis when empty.
    MinMaxType GetSize() const { return _max - _min; }
    MinMaxType GetMidpoint() const { return (_min + _max) * S(0.5); }
    /// Corner \p i: bit 0 picks x's max, bit 1 y's, bit 2 z's.
    MinMaxType GetCorner(size_t i) const
    {
        if (i > 7) return _min;
        return MinMaxType((i & 1) ? _max[0] : _min[0], (i & 2) ? _max[1] : _min[1], (i & 4) ? _max[2] : _min[2]);
    }

    bool Contains(const MinMaxType& point) const
    {
        for (size_t i = 0; i < 3; ++i) {
            if (point[i] < _min[i] || point[i] > _max[i]) return false;
        }
        return true;
    }
    /// An empty range is inside every range.
    bool Contains(const Gf_Range3& range) const
    {
        return range.IsEmpty() || (Contains(range._min) && Contains(range._max));
    }

    Gf_Range3& UnionWith(const MinMaxType& point)
    {
        for (size_t i = 0; i < 3; ++i) {
            _min[i] = std::min(_min[i], point[i]);
            _max[i] = std::max(_max[i], point[i]);
        }
        return *this;
    }
    Gf_Range3& UnionWith(const Gf_Range3& range)
    {
        for (size_t i = 0; i < 3; ++i) {
            _min[i] = std::min(_min[i], range._min[i]);
            _max[i] = std::max(_max[i], range._max[i]);
        }
        return *this;
    }
    Gf_Range3& IntersectWith(const Gf_Range3& range)
    {
        for (size_t i = 0; i < 3; ++i) {
            _min[i] = std::max(_min[i], range._min[i]);
            _max[i] = std::min(_max[i], range._max[i]);
        }
        return *this;
    }
    static Gf_Range3 GetUnion(const Gf_Range3& a, const Gf_Range3& b) { return Gf_Range3(a).UnionWith(b); }
    static Gf_Range3 GetIntersection(const Gf_Range3& a, const Gf_Range3& b)
    {
        return Gf_Range3(a).IntersectWith(b);
    }

    /// The squared distance from \p point to the nearest point of the range.
    double GetDistanceSquared(const MinMaxType& point) const
    {
        double distance = 0.0;
        for (size_t i = 0; i < 3; ++i) {
            const double below = double(_min[i]) - point[i];
            const double above = double(point[i]) - _max[i];
            const double outside = std::max({below, above, 0.0});
            distance += outside * outside;
        }
        return distance;
    }

    bool operator==(const Gf_Range3& o) const { return _min == o._min && _max == o._max; }
    bool operator!=(const Gf_Range3& o) const { return !(*this == o); }

    friend std::ostream& operator<<(std::ostream& out, const Gf_Range3& range)
    {
        return out << '[' << range._min << "..." << range._max << ']';
    }

private:
    MinMaxType _min;
    MinMaxType _max;
};

PXR_NAMESPACE_CLOSE_SCOPE
