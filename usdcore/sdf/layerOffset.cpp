#include "usdcore/sdf/layerOffset.h"

#include <cmath>
#include <functional>
#include <limits>
#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

constexpr double kEpsilon = 1e-6;

bool IsClose(double a, double b)
{
    return std::fabs(a - b) <= kEpsilon;
}

} // namespace

bool SdfLayerOffset::IsIdentity() const
{
    return *this == SdfLayerOffset();
}

bool SdfLayerOffset::IsValid() const
{
    return std::isfinite(_offset) && std::isfinite(_scale);
}

SdfLayerOffset SdfLayerOffset::GetInverse() const
{
    if (IsIdentity()) {
        return *this;
    }
    const double inverseScale =
        _scale != 0.0 ? 1.0 / _scale : std::numeric_limits<double>::infinity();
    return SdfLayerOffset(-inverseScale * _offset, inverseScale);
}

SdfLayerOffset SdfLayerOffset::operator*(const SdfLayerOffset& rhs) const
{
    return SdfLayerOffset(_scale * rhs._offset + _offset, _scale * rhs._scale);
}

size_t SdfLayerOffset::GetHash() const
{
    const size_t h = std::hash<double>()(_offset);
    return h ^ (std::hash<double>()(_scale) + 0x9e3779b9 + (h << 6) + (h >> 2));
}

bool SdfLayerOffset::operator==(const SdfLayerOffset& rhs) const
{
    // Invalid offsets (inf, nan) only equal themselves bit for bit.
    if (!IsValid() || !rhs.IsValid()) {
        return _offset == rhs._offset && _scale == rhs._scale;
    }
    return IsClose(_offset, rhs._offset) && IsClose(_scale, rhs._scale);
}

bool SdfLayerOffset::operator<(const SdfLayerOffset& rhs) const
{
    if (*this == rhs) {
        return false;
    }
    return _scale < rhs._scale || (_scale == rhs._scale && _offset < rhs._offset);
}

std::ostream& operator<<(std::ostream& out, const SdfLayerOffset& offset)
{
    return out << "SdfLayerOffset(" << offset.GetOffset() << ", " << offset.GetScale() << ")";
}

PXR_NAMESPACE_CLOSE_SCOPE
