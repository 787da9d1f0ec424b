#pragma once

// The one implementation behind GfQuatd, GfQuatf and GfQuath.

#include "usdcore/gf/traits.h"
#include "usdcore/gf/vec.h"
#include "usdcore/pxr.h"

#include <cmath>
#include <ostream>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

/// real + imaginary (i, j, k). The constructor takes the real part first,
/// as OpenUSD and the text format do.
template <class S>
class Gf_Quat
{
public:
    using ScalarType = S;
    using ImaginaryType = Gf_Vec<S, 3>;

    constexpr Gf_Quat() = default;
    constexpr explicit Gf_Quat(S real) : _real(real), _imaginary(S(0)) {}
    constexpr Gf_Quat(S real, S i, S j, S k) : _real(real), _imaginary(i, j, k) {}
    constexpr Gf_Quat(S real, const ImaginaryType& imaginary) : _real(real), _imaginary(imaginary) {}
    template <class U, std::enable_if_t<Gf_IsImplicitConversion<U, S>, int> = 0>
    Gf_Quat(const Gf_Quat<U>& o) : _real(S(o.GetReal())), _imaginary(o.GetImaginary())
    {
    }
    template <class U, std::enable_if_t<Gf_IsExplicitConversion<U, S>, int> = 0>
    explicit Gf_Quat(const Gf_Quat<U>& o)
        : _real(S(o.GetReal())), _imaginary(ImaginaryType(o.GetImaginary()))
    {
    }

    static Gf_Quat GetZero() { return Gf_Quat(S(0)); }
    static Gf_Quat GetIdentity() { return Gf_Quat(S(1)); }

    S GetReal() const { return _real; }
    void SetReal(S real) { _real = real; }
    const ImaginaryType& GetImaginary() const { return _imaginary; }
    void SetImaginary(const ImaginaryType& imaginary) { _imaginary = imaginary; }
    void SetImaginary(S i, S j, S k) { _imaginary = ImaginaryType(i, j, k); }

    S GetLength() const { return S(std::sqrt(double(GfDot(*this, *this)))); }

    /// Scales to unit length and returns the old length; below \p eps the
    /// quaternion becomes the identity.
    S Normalize(double eps = 1e-10)
    {
        const double length = double(GetLength());
        if (length < eps) {
            *this = GetIdentity();
        } else {
            *this /= length;
        }
        return S(length);
    }
    Gf_Quat GetNormalized(double eps = 1e-10) const
    {
        Gf_Quat q = *this;
        q.Normalize(eps);
        return q;
    }
    Gf_Quat GetConjugate() const { return Gf_Quat(_real, -_imaginary); }
    Gf_Quat GetInverse() const { return GetConjugate() / double(GfDot(*this, *this)); }

    /// Rotates \p point by this (unit) quaternion: q * (0, p) * q^-1.
    ImaginaryType Transform(const ImaginaryType& point) const
    {
        return (*this * Gf_Quat(S(0), point) * GetInverse()).GetImaginary();
    }

    bool operator==(const Gf_Quat& o) const { return _real == o._real && _imaginary == o._imaginary; }
    bool operator!=(const Gf_Quat& o) const { return !(*this == o); }

    Gf_Quat operator-() const { return Gf_Quat(S(-_real), -_imaginary); }
    /// Hamilton product: (this * q) applied to a vector rotates by q first.
    Gf_Quat& operator*=(const Gf_Quat& q)
    {
        const S real = S(_real * q._real - double(GfDot(_imaginary, q._imaginary)));
        _imaginary = _imaginary * double(q._real) + q._imaginary * double(_real) +
                     GfCross(_imaginary, q._imaginary);
        _real = real;
        return *this;
    }
    Gf_Quat& operator*=(double s)
    {
        _real = S(_real * s);
        _imaginary *= s;
        return *this;
    }
    Gf_Quat& operator/=(double s)
    {
        _real = S(_real / s);
        _imaginary /= s;
        return *this;
    }
    Gf_Quat& operator+=(const Gf_Quat& q)
    {
        _real = S(_real + q._real);
        _imaginary += q._imaginary;
        return *this;
    }
    Gf_Quat& operator-=(const Gf_Quat& q)
    {
        _real = S(_real - q._real);
        _imaginary -= q._imaginary;
        return *this;
    }
    friend Gf_Quat operator*(Gf_Quat a, const Gf_Quat& b) { return a *= b; }
    friend Gf_Quat operator*(Gf_Quat q, double s) { return q *= s; }
    friend Gf_Quat operator*(double s, Gf_Quat q) { return q *= s; }
    friend Gf_Quat operator/(Gf_Quat q, double s) { return q /= s; }
    friend Gf_Quat operator+(Gf_Quat a, const Gf_Quat& b) { return a += b; }
    friend Gf_Quat operator-(Gf_Quat a, const Gf_Quat& b) { return a -= b; }

    friend S GfDot(const Gf_Quat& a, const Gf_Quat& b)
    {
        return S(a._real * b._real + GfDot(a._imaginary, b._imaginary));
    }

private:
    S _real = S(0);
    ImaginaryType _imaginary;
};

/// Spherical linear interpolation along the shorter arc: \p q0 at alpha 0,
/// \p q1 at alpha 1.
template <class S>
Gf_Quat<S> GfSlerp(double alpha, const Gf_Quat<S>& q0, const Gf_Quat<S>& q1)
{
    double cosAngle = double(GfDot(q0, q1));
    // q and -q are the same rotation; going to -q1 when the quaternions point
    // apart takes the short way round.
    const double direction = cosAngle < 0.0 ? -1.0 : 1.0;
    cosAngle *= direction;
    double weight0 = 1.0 - alpha;
    double weight1 = alpha;
    // Nearly parallel: sin(angle) vanishes and the linear blend is exact
    // enough.
    if (cosAngle < 1.0 - 1e-5) {
        const double angle = std::acos(cosAngle);
        const double sinAngle = std::sin(angle);
        weight0 = std::sin((1.0 - alpha) * angle) / sinAngle;
        weight1 = std::sin(alpha * angle) / sinAngle;
    }
    return q0 * weight0 + q1 * (weight1 * direction);
}

template <class S>
Gf_Quat<S> GfSlerp(const Gf_Quat<S>& q0, const Gf_Quat<S>& q1, double alpha)
{
    return GfSlerp(alpha, q0, q1);
}

template <class S>
std::ostream& operator<<(std::ostream& out, const Gf_Quat<S>& q)
{
    const auto& im = q.GetImaginary();
    return out << '(' << q.GetReal() << ", " << im[0] << ", " << im[1] << ", " << im[2] << ')';
}

PXR_NAMESPACE_CLOSE_SCOPE
