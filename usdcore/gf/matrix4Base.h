#pragma once

// The transform operations of GfMatrix4d and GfMatrix4f. Row 3 holds the
// translation; points are (x, y, z, 1) row vectors multiplied on the left.

#include "usdcore/gf/matrixBase.h"
#include "usdcore/gf/matrixFactor.h"
#include "usdcore/gf/quat.h"
#include "usdcore/gf/rotation.h"
#include "usdcore/pxr.h"

#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

template <class Derived, class S>
class Gf_Matrix4Base : public Gf_MatrixBase<Derived, S, 4>
{
    using Base = Gf_MatrixBase<Derived, S, 4>;

public:
    using Vec3 = Gf_Vec<S, 3>;
    using Quat = Gf_Quat<S>;
    using Base::Base;
    Gf_Matrix4Base() = default;
    /// Rotation, then translation.
    Gf_Matrix4Base(const GfRotation& rotate, const Vec3& translate) { SetTransform(rotate, translate); }

    /// Rotation, then translation, replacing the whole matrix.
    Derived& SetTransform(const GfRotation& rotate, const Vec3& translate)
    {
        SetRotate(rotate);
        return SetTranslateOnly(translate);
    }

    Derived& SetTranslate(const Vec3& t)
    {
        this->SetIdentity();
        return SetTranslateOnly(t);
    }
    Derived& SetTranslateOnly(const Vec3& t)
    {
        for (size_t c = 0; c < 3; ++c) this->_m[3][c] = t[c];
        return this->_Self();
    }
    Derived& SetScale(S s) { return this->SetDiagonal(Gf_Vec<S, 4>(s, s, s, S(1))); }
    Derived& SetScale(const Vec3& s) { return this->SetDiagonal(Gf_Vec<S, 4>(s[0], s[1], s[2], S(1))); }

    Derived& SetRotate(const Quat& q)
    {
        this->SetIdentity();
        return SetRotateOnly(q);
    }
    Derived& SetRotate(const GfRotation& r)
    {
        this->SetIdentity();
        return SetRotateOnly(r);
    }
    /// Replaces the upper 3x3 block only, keeping the translation. The
    /// quaternion is used as given: one not of unit length also scales.
    Derived& SetRotateOnly(const Quat& q) { return _SetRotationBlock(q); }
    Derived& SetRotateOnly(const GfRotation& r) { return _SetRotationBlock(Quat(r.GetQuat())); }

    /// The first three entries of a row (row 3 holds the translation).
    Vec3 GetRow3(size_t row) const { return Vec3(this->_m[row][0], this->_m[row][1], this->_m[row][2]); }
    void SetRow3(size_t row, const Vec3& v)
    {
        for (size_t c = 0; c < 3; ++c) this->_m[row][c] = v[c];
    }

    Vec3 ExtractTranslation() const { return Vec3(this->_m[3][0], this->_m[3][1], this->_m[3][2]); }

    /// The rotation of the upper 3x3 block. Rows are normalised first so
    /// that a scale composed with the rotation does not disturb it.
    Quat ExtractRotationQuat() const
    {
        double rows[3][3];
        for (size_t r = 0; r < 3; ++r) {
            Gf_Vec<double, 3> row(this->_m[r][0], this->_m[r][1], this->_m[r][2]);
            row.Normalize();
            for (size_t c = 0; c < 3; ++c) rows[r][c] = row[c];
        }
        return Quat(Gf_RotationRowsToQuat(rows));
    }
    GfRotation ExtractRotation() const { return GfRotation(GfQuatd(ExtractRotationQuat())); }

    /// Transforms a point, dividing by the resulting w.
    template <class V>
    Gf_Vec<V, 3> Transform(const Gf_Vec<V, 3>& p) const
    {
        const Gf_Vec<double, 4> h = _Apply(p, 1.0);
        return Gf_Vec<V, 3>(V(h[0] / h[3]), V(h[1] / h[3]), V(h[2] / h[3]));
    }
    /// Transforms a point assuming the last column is (0, 0, 0, 1).
    template <class V>
    Gf_Vec<V, 3> TransformAffine(const Gf_Vec<V, 3>& p) const
    {
        const Gf_Vec<double, 4> h = _Apply(p, 1.0);
        return Gf_Vec<V, 3>(V(h[0]), V(h[1]), V(h[2]));
    }
    /// Transforms a direction: the translation does not apply.
    template <class V>
    Gf_Vec<V, 3> TransformDir(const Gf_Vec<V, 3>& d) const
    {
        const Gf_Vec<double, 4> h = _Apply(d, 0.0);
        return Gf_Vec<V, 3>(V(h[0]), V(h[1]), V(h[2]));
    }

    /// Determinant of the upper 3x3 block.
    double GetDeterminant3() const
    {
        const auto& m = this->_m;
        return double(m[0][0]) * (double(m[1][1]) * m[2][2] - double(m[1][2]) * m[2][1]) -
               double(m[0][1]) * (double(m[1][0]) * m[2][2] - double(m[1][2]) * m[2][0]) +
               double(m[0][2]) * (double(m[1][0]) * m[2][1] - double(m[1][1]) * m[2][0]);
    }
    /// 1 for right-handed, -1 for left-handed (mirroring), 0 when degenerate.
    double GetHandedness() const
    {
        const double det = GetDeterminant3();
        return det > 0.0 ? 1.0 : (det < 0.0 ? -1.0 : 0.0);
    }
    bool IsRightHanded() const { return GetHandedness() == 1.0; }
    bool IsLeftHanded() const { return GetHandedness() == -1.0; }

    /// Factors the matrix as r * s * transpose(r) * u * t for row vectors:
    /// t the translation, u a rotation, s the scales along the axes given
    /// by r's columns (negative for a mirroring matrix). \p p, for a
    /// projection part, is left untouched. False when the matrix is
    /// singular; scales below \p eps are then clamped to \p eps.
    bool Factor(Derived* r, Vec3* s, Derived* u, Vec3* t, Derived* p, S eps = _FactorEpsilon()) const
    {
        (void)p;
        double m[4][4], rd[4][4], ud[4][4], sd[3], td[3];
        for (size_t i = 0; i < 4; ++i)
            for (size_t j = 0; j < 4; ++j) m[i][j] = double(this->_m[i][j]);
        const bool regular = Gf_FactorMatrix4(m, rd, sd, ud, td, double(eps));
        for (size_t i = 0; i < 4; ++i)
            for (size_t j = 0; j < 4; ++j) {
                (*r)[i][j] = S(rd[i][j]);
                (*u)[i][j] = S(ud[i][j]);
            }
        *s = Vec3(S(sd[0]), S(sd[1]), S(sd[2]));
        *t = Vec3(S(td[0]), S(td[1]), S(td[2]));
        return regular;
    }

private:
    static constexpr S _FactorEpsilon() { return std::is_same<S, float>::value ? S(1e-5) : S(1e-10); }

    Derived& _SetRotationBlock(const Quat& q)
    {
        S rows[3][3];
        Gf_QuatToRotationRows(q, rows);
        for (size_t r = 0; r < 3; ++r)
            for (size_t c = 0; c < 3; ++c) this->_m[r][c] = rows[r][c];
        return this->_Self();
    }

    template <class V>
    Gf_Vec<double, 4> _Apply(const Gf_Vec<V, 3>& v, double w) const
    {
        Gf_Vec<double, 4> out;
        for (size_t c = 0; c < 4; ++c) {
            out[c] = double(v[0]) * this->_m[0][c] + double(v[1]) * this->_m[1][c] +
                     double(v[2]) * this->_m[2][c] + w * this->_m[3][c];
        }
        return out;
    }
};

PXR_NAMESPACE_CLOSE_SCOPE
