#pragma once

#include "usdcore/gf/matrixBase.h"
#include "usdcore/gf/quatd.h"
#include "usdcore/gf/rotation.h"
#include "usdcore/gf/vec3d.h"

PXR_NAMESPACE_OPEN_SCOPE

class GfMatrix3d : public Gf_MatrixBase<GfMatrix3d, double, 3>
{
public:
    using Gf_MatrixBase::Gf_MatrixBase;
    GfMatrix3d() = default;
    explicit GfMatrix3d(const GfRotation& r) { SetRotate(r); }

    /// The quaternion is used as given: one not of unit length also scales.
    GfMatrix3d& SetRotate(const GfQuatd& q)
    {
        Gf_QuatToRotationRows(q, _m);
        return *this;
    }
    GfMatrix3d& SetRotate(const GfRotation& r) { return SetRotate(r.GetQuat()); }
    GfMatrix3d& SetScale(double s) { return SetDiagonal(s); }
    GfMatrix3d& SetScale(const GfVec3d& s) { return SetDiagonal(s); }
    GfQuatd ExtractRotationQuat() const { return Gf_RotationRowsToQuat(_m); }
    GfRotation ExtractRotation() const { return GfRotation(ExtractRotationQuat()); }

    /// 1 for right-handed, -1 for left-handed (mirroring), 0 when degenerate.
    double GetHandedness() const
    {
        const double det = GetDeterminant();
        return det > 0.0 ? 1.0 : (det < 0.0 ? -1.0 : 0.0);
    }
    bool IsRightHanded() const { return GetHandedness() == 1.0; }
    bool IsLeftHanded() const { return GetHandedness() == -1.0; }
};

PXR_NAMESPACE_CLOSE_SCOPE
