#include "host/CTavrinQuaternion.h"

#include <cmath>

namespace Tavrin {

void CTavrinQuaternion::FromMatrix(const CTavrinMatrix& m)
{
    // Shepperd's method: divide by the largest of the four candidates.
    const double trace = m.M(0, 0) + m.M(1, 1) + m.M(2, 2);
    if (trace > 0.0) {
        const double s = 2.0 * std::sqrt(trace + 1.0);
        m_w = 0.25 * s;
        m_x = (m.M(2, 1) - m.M(1, 2)) / s;
        m_y = (m.M(0, 2) - m.M(2, 0)) / s;
        m_z = (m.M(1, 0) - m.M(0, 1)) / s;
    } else if (m.M(0, 0) > m.M(1, 1) && m.M(0, 0) > m.M(2, 2)) {
        const double s = 2.0 * std::sqrt(1.0 + m.M(0, 0) - m.M(1, 1) - m.M(2, 2));
        m_w = (m.M(2, 1) - m.M(1, 2)) / s;
        m_x = 0.25 * s;
        m_y = (m.M(0, 1) + m.M(1, 0)) / s;
        m_z = (m.M(0, 2) + m.M(2, 0)) / s;
    } else if (m.M(1, 1) > m.M(2, 2)) {
        const double s = 2.0 * std::sqrt(1.0 + m.M(1, 1) - m.M(0, 0) - m.M(2, 2));
        m_w = (m.M(0, 2) - m.M(2, 0)) / s;
        m_x = (m.M(0, 1) + m.M(1, 0)) / s;
        m_y = 0.25 * s;
        m_z = (m.M(1, 2) + m.M(2, 1)) / s;
    } else {
        const double s = 2.0 * std::sqrt(1.0 + m.M(2, 2) - m.M(0, 0) - m.M(1, 1));
        m_w = (m.M(1, 0) - m.M(0, 1)) / s;
        m_x = (m.M(0, 2) + m.M(2, 0)) / s;
        m_y = (m.M(1, 2) + m.M(2, 1)) / s;
        m_z = 0.25 * s;
    }
}

CTavrinMatrix CTavrinQuaternion::ToMatrix() const
{
    const double w = m_w, x = m_x, y = m_y, z = m_z;
    return {1 - 2 * (y * y + z * z), 2 * (x * y - w * z),     2 * (x * z + w * y),     0,
            2 * (x * y + w * z),     1 - 2 * (x * x + z * z), 2 * (y * z - w * x),     0,
            2 * (x * z - w * y),     2 * (y * z + w * x),     1 - 2 * (x * x + y * y), 0,
            0,                       0,                       0,                       1};
}

CTavrinQuaternion CTavrinQuaternion::Squad(const CTavrinQuaternion& other, double t) const
{
    double cosine = m_w * other.m_w + m_x * other.m_x + m_y * other.m_y + m_z * other.m_z;
    // q and -q are the same rotation; flipping keeps the shorter arc.
    const double sign = cosine < 0.0 ? -1.0 : 1.0;
    cosine *= sign;
    double a;
    double b;
    if (cosine > 1.0 - 1e-9) {
        // Nearly equal: the linear blend is exact to rounding and avoids 0/0.
        a = 1.0 - t;
        b = t;
    } else {
        const double angle = std::acos(cosine);
        const double sine = std::sin(angle);
        a = std::sin((1.0 - t) * angle) / sine;
        b = std::sin(t * angle) / sine;
    }
    b *= sign;
    CTavrinQuaternion result(a * m_w + b * other.m_w, a * m_x + b * other.m_x, a * m_y + b * other.m_y,
                             a * m_z + b * other.m_z);
    const double length = std::sqrt(result.m_w * result.m_w + result.m_x * result.m_x +
                                    result.m_y * result.m_y + result.m_z * result.m_z);
    if (length > 0.0) {
        result.m_w /= length;
        result.m_x /= length;
        result.m_y /= length;
        result.m_z /= length;
    }
    return result;
}

} // namespace Tavrin
