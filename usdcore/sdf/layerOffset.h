#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/timeCode.h"

#include <cstddef>
#include <iosfwd>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

/// The time mapping of a sublayer, reference or payload: a time t of the
/// target layer appears at scale * t + offset in the layer that points at it.
class SdfLayerOffset
{
public:
    explicit SdfLayerOffset(double offset = 0.0, double scale = 1.0)
        : _offset(offset), _scale(scale)
    {
    }

    double GetOffset() const { return _offset; }
    double GetScale() const { return _scale; }
    void SetOffset(double newOffset) { _offset = newOffset; }
    void SetScale(double newScale) { _scale = newScale; }

    bool IsIdentity() const;
    /// Both offset and scale are finite.
    bool IsValid() const;

    /// The mapping back: GetInverse() * (*this) is the identity. A zero
    /// scale has no inverse; its inverse scale is infinite.
    SdfLayerOffset GetInverse() const;

    /// The mapping that applies \p rhs first, then this one.
    SdfLayerOffset operator*(const SdfLayerOffset& rhs) const;
    double operator*(double rhs) const { return _scale * rhs + _offset; }
    SdfTimeCode operator*(const SdfTimeCode& rhs) const
    {
        return SdfTimeCode(*this * rhs.GetValue());
    }

    size_t GetHash() const;

    /// Equal within 1e-6 in offset and scale, as OpenUSD compares them, so
    /// that an offset composed with its inverse is the identity.
    bool operator==(const SdfLayerOffset& rhs) const;
    bool operator!=(const SdfLayerOffset& rhs) const { return !(*this == rhs); }
    bool operator<(const SdfLayerOffset& rhs) const;

private:
    double _offset;
    double _scale;
};

using SdfLayerOffsetVector = std::vector<SdfLayerOffset>;

inline size_t hash_value(const SdfLayerOffset& offset) { return offset.GetHash(); }

std::ostream& operator<<(std::ostream& out, const SdfLayerOffset& offset);

PXR_NAMESPACE_CLOSE_SCOPE
