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
    explicit GfRotation(const GfQuatd& quat) { SetQuat(quat); }
    /// The smallest rotation taking direction \p rotateFrom to \p rotateTo.
    GfRotation(const GfVec3d& rotateFrom, const GfVec3d& rotateTo)
    {
        SetRotateInto(rotateFrom, rotateTo);
    }

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

/// The 3x3 rotation block, row-vector convention, of the unit quaternion
/// \p q; shared by the 3x3 and 4x4 matrices.
void Gf_QuatToRotationRows(const GfQuatd& q, double rows[3][3]);
/// The unit quaternion of an orthonormal 3x3 row-vector rotation block.
GfQuatd Gf_RotationRowsToQuat(const double rows[3][3]);

PXR_NAMESPACE_CLOSE_SCOPE
