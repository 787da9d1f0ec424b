#include "usdcore/gf/rotation.h"

#include "usdcore/gf/math.h"

#include <algorithm>
#include <cmath>
#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

GfRotation& GfRotation::SetAxisAngle(const GfVec3d& axis, double angle)
{
    _axis = axis;
    _angle = angle;
    // An axis of nearly unit length is kept as given, as OpenUSD keeps it, so
    // that rotations made from the same numbers match it bit for bit.
    if (!GfIsClose(GfDot(_axis, _axis), 1.0, 1e-10)) {
        _axis.Normalize();
    }
    return *this;
}

GfRotation& GfRotation::SetQuat(const GfQuatd& quat)
{
    // As OpenUSD reads a quaternion, without normalising it first: files
    // carry quaternions a little off unit length, and the rotation they
    // stand for is the one OpenUSD shows, not that of the normalised one.
    const double length = quat.GetImaginary().GetLength();
    if (!(length > 1e-10)) {
        return SetIdentity();
    }
    const double halfAngle = std::acos(GfClamp(quat.GetReal(), -1.0, 1.0));
    return SetAxisAngle(quat.GetImaginary() / length, 2.0 * GfRadiansToDegrees(halfAngle));
}

GfRotation& GfRotation::SetRotateInto(const GfVec3d& rotateFrom, const GfVec3d& rotateTo)
{
    const GfVec3d from = rotateFrom.GetNormalized();
    const GfVec3d to = rotateTo.GetNormalized();
    const double cosAngle = std::clamp(GfDot(from, to), -1.0, 1.0);
    GfVec3d axis = GfCross(from, to);
    if (axis.GetLength() < 1e-10) {
        if (cosAngle > 0.0) {
            return SetIdentity();
        }
        // Opposite directions: any perpendicular axis turns one into the other.
        axis = GfCross(from, GfVec3d::XAxis());
        if (axis.GetLength() < 1e-10) {
            axis = GfCross(from, GfVec3d::YAxis());
        }
    }
    return SetAxisAngle(axis, GfRadiansToDegrees(std::acos(cosAngle)));
}

GfQuatd GfRotation::GetQuat() const
{
    const double halfAngle = GfDegreesToRadians(_angle) / 2.0;
    return GfQuatd(std::cos(halfAngle), _axis * std::sin(halfAngle)).GetNormalized();
}

GfRotation& GfRotation::operator*=(const GfRotation& r)
{
    // This rotation first, then r: in quaternions r.q * this.q. A product
    // of no rotation keeps this rotation's axis, as OpenUSD's does.
    const GfQuatd q = (r.GetQuat() * GetQuat()).GetNormalized();
    const double length = q.GetImaginary().GetLength();
    if (length > 1e-10) {
        _axis = q.GetImaginary() / length;
        _angle = 2.0 * GfRadiansToDegrees(std::acos(q.GetReal()));
    } else {
        _angle = 0.0;
    }
    return *this;
}

std::ostream& operator<<(std::ostream& out, const GfRotation& r)
{
    return out << '[' << r.GetAxis() << ' ' << r.GetAngle() << ']';
}

GfQuatd Gf_RotationRowsToQuat(const double m[3][3])
{
    // Pick the largest of w, x, y, z to divide by, for stability
    // (Shepperd's method); m[j][i] is the column-vector matrix entry (i, j).
    const double trace = m[0][0] + m[1][1] + m[2][2];
    double w, x, y, z;
    if (trace > 0.0) {
        const double s = 2.0 * std::sqrt(1.0 + trace);
        w = s / 4.0;
        x = (m[1][2] - m[2][1]) / s;
        y = (m[2][0] - m[0][2]) / s;
        z = (m[0][1] - m[1][0]) / s;
    } else if (m[0][0] > m[1][1] && m[0][0] > m[2][2]) {
        const double s = 2.0 * std::sqrt(1.0 + m[0][0] - m[1][1] - m[2][2]);
        w = (m[1][2] - m[2][1]) / s;
        x = s / 4.0;
        y = (m[1][0] + m[0][1]) / s;
        z = (m[2][0] + m[0][2]) / s;
    } else if (m[1][1] > m[2][2]) {
        const double s = 2.0 * std::sqrt(1.0 + m[1][1] - m[0][0] - m[2][2]);
        w = (m[2][0] - m[0][2]) / s;
        x = (m[1][0] + m[0][1]) / s;
        y = s / 4.0;
        z = (m[2][1] + m[1][2]) / s;
    } else {
        const double s = 2.0 * std::sqrt(1.0 + m[2][2] - m[0][0] - m[1][1]);
        w = (m[0][1] - m[1][0]) / s;
        x = (m[2][0] + m[0][2]) / s;
        y = (m[2][1] + m[1][2]) / s;
        z = s / 4.0;
    }
    return GfQuatd(w, x, y, z).GetNormalized();
}

PXR_NAMESPACE_CLOSE_SCOPE
