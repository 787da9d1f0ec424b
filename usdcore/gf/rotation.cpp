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
    // A zero axis leaves nothing to rotate about.
    if (_axis.Normalize() < 1e-10) {
        *this = GfRotation();
    }
    return *this;
}

GfRotation& GfRotation::SetQuat(const GfQuatd& quat)
{
    const GfQuatd q = quat.GetNormalized();
    const double sinHalf = q.GetImaginary().GetLength();
    if (sinHalf < 1e-10) {
        return SetIdentity();
    }
    _axis = q.GetImaginary() / sinHalf;
    _angle = GfRadiansToDegrees(2.0 * std::atan2(sinHalf, q.GetReal()));
    return *this;
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
    // This rotation first, then r: in quaternions r.q * this.q.
    return SetQuat(r.GetQuat() * GetQuat());
}

std::ostream& operator<<(std::ostream& out, const GfRotation& r)
{
    return out << '[' << r.GetAxis() << ' ' << r.GetAngle() << ']';
}

void Gf_QuatToRotationRows(const GfQuatd& q, double rows[3][3])
{
    const double w = q.GetReal();
    const double x = q.GetImaginary()[0];
    const double y = q.GetImaginary()[1];
    const double z = q.GetImaginary()[2];
    // Row i is the image of basis vector i (row vectors multiply on the
    // left), i.e. the transpose of the usual column-vector matrix.
    rows[0][0] = 1.0 - 2.0 * (y * y + z * z);
    rows[0][1] = 2.0 * (x * y + w * z);
    rows[0][2] = 2.0 * (x * z - w * y);
    rows[1][0] = 2.0 * (x * y - w * z);
    rows[1][1] = 1.0 - 2.0 * (x * x + z * z);
    rows[1][2] = 2.0 * (y * z + w * x);
    rows[2][0] = 2.0 * (x * z + w * y);
    rows[2][1] = 2.0 * (y * z - w * x);
    rows[2][2] = 1.0 - 2.0 * (x * x + y * y);
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
