#pragma once

#include "host/CTavrinMatrix.h"

namespace Tavrin {

// Unit quaternion w + xi + yj + zk for rotations of column vectors.
class CTavrinQuaternion {
public:
    CTavrinQuaternion() = default;
    CTavrinQuaternion(double w, double x, double y, double z) : m_w(w), m_x(x), m_y(y), m_z(z) {}

    double W() const { return m_w; }
    double X() const { return m_x; }
    double Y() const { return m_y; }
    double Z() const { return m_z; }

    // The rotation of the matrix's upper-left 3x3 (assumed orthonormal).
    void FromMatrix(const CTavrinMatrix& matrix);
    CTavrinMatrix ToMatrix() const;
    // Spherical interpolation from this rotation (t = 0) to other (t = 1)
    // along the shorter arc.
    CTavrinQuaternion Squad(const CTavrinQuaternion& other, double t) const;

private:
    double m_w = 1.0;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

} // namespace Tavrin
