#pragma once

#include "usdcore/gf/quatd.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/pxr.h"

#include <iosfwd>

PXR_NAMESPACE_OPEN_SCOPE

/// A rotation by an angle in degrees about an axis (right-hand rule). A
/// product r1 * r2 rotates by r1 first, then r2, matching row-vector
/// matrices where M(r1 * r2) = M(r1) * M(r2).
class GfRotation
{
public:
    /// The identity rotation (angle 0 about X).
    GfRotation() : _axis(1.0, 0.0, 0.0), _angle(0.0) {}
    GfRotation(const GfVec3d& axis, double angle) { SetAxisAngle(axis, angle); }
    /// The axis is the imaginary part's direction and the angle twice the
    /// arc cosine of the real part, as OpenUSD reads a quaternion: one not
    /// of unit length is not normalised first.
    explicit GfRotation(const GfQuatd& quat) { SetQuat(quat); }
    /// The smallest rotation taking direction \p rotateFrom to \p rotateTo.
    GfRotation(const GfVec3d& rotateFrom, const GfVec3d& rotateTo)
    {
        SetRotateInto(rotateFrom, rotateTo);
    }

    /// An axis not of unit length is normalised.
    GfRotation& SetAxisAngle(const GfVec3d& axis, double angle);
    GfRotation& SetQuat(const GfQuatd& quat);
    GfRotation& SetRotateInto(const GfVec3d& rotateFrom, const GfVec3d& rotateTo);
    GfRotation& SetIdentity() { return *this = GfRotation(); }

    const GfVec3d& GetAxis() const { return _axis; }
    double GetAngle() const { return _angle; }
    GfQuatd GetQuat() const;
    GfRotation GetInverse() const { return GfRotation(_axis, -_angle); }

    GfVec3d TransformDir(const GfVec3d& vec) const { return GetQuat().Transform(vec); }

    GfRotation& operator*=(const GfRotation& r);
    GfRotation& operator*=(double scale)
    {
        _angle *= scale;
        return *this;
    }
    friend GfRotation operator*(GfRotation a, const GfRotation& b) { return a *= b; }

    bool operator==(const GfRotation& o) const { return _axis == o._axis && _angle == o._angle; }
    bool operator!=(const GfRotation& o) const { return !(*this == o); }

private:
    GfVec3d _axis;
    double _angle;
};

std::ostream& operator<<(std::ostream& out, const GfRotation& r);

/// The 3x3 rotation block, row-vector convention, of \p q, taken as given
/// (a quaternion not of unit length also scales); shared by the 3x3 and 4x4
/// matrices. Worked out in the quaternion's precision with OpenUSD's
/// expressions, operation for operation, so that the entries match its own
/// to the last bit: row i is the image of basis vector i.
template <class S>
void Gf_QuatToRotationRows(const Gf_Quat<S>& q, S rows[3][3])
{
    const S r = q.GetReal();
    const Gf_Vec<S, 3>& i = q.GetImaginary();
    rows[0][0] = S(1.0 - 2.0 * (i[1] * i[1] + i[2] * i[2]));
    rows[0][1] = S(2.0 * (i[0] * i[1] + i[2] * r));
    rows[0][2] = S(2.0 * (i[2] * i[0] - i[1] * r));
    rows[1][0] = S(2.0 * (i[0] * i[1] - i[2] * r));
    rows[1][1] = S(1.0 - 2.0 * (i[2] * i[2] + i[0] * i[0]));
    rows[1][2] = S(2.0 * (i[1] * i[2] + i[0] * r));
    rows[2][0] = S(2.0 * (i[2] * i[0] + i[1] * r));
    rows[2][1] = S(2.0 * (i[1] * i[2] - i[0] * r));
    rows[2][2] = S(1.0 - 2.0 * (i[1] * i[1] + i[0] * i[0]));
}
/// The unit quaternion of an orthonormal 3x3 row-vector rotation block.
GfQuatd Gf_RotationRowsToQuat(const double rows[3][3]);

PXR_NAMESPACE_CLOSE_SCOPE
