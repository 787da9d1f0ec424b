#pragma once

// The one implementation behind GfVec2d ... GfVec4i (see vec2d.h etc.).

#include "usdcore/gf/math.h"
#include "usdcore/gf/traits.h"
#include "usdcore/pxr.h"

#include <cmath>
#include <cstddef>
#include <ostream>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

template <class S, size_t N>
class Gf_Vec
{
public:
    using ScalarType = S;
    static constexpr size_t dimension = N;

    constexpr Gf_Vec() = default;
    constexpr explicit Gf_Vec(S value)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = value;
    }
    template <size_t M = N, std::enable_if_t<M == 2, int> = 0>
    constexpr Gf_Vec(S s0, S s1) : _data{s0, s1}
    {
    }
    template <size_t M = N, std::enable_if_t<M == 3, int> = 0>
    constexpr Gf_Vec(S s0, S s1, S s2) : _data{s0, s1, s2}
    {
    }
    template <size_t M = N, std::enable_if_t<M == 4, int> = 0>
    constexpr Gf_Vec(S s0, S s1, S s2, S s3) : _data{s0, s1, s2, s3}
    {
    }
    template <class Scl>
    constexpr explicit Gf_Vec(const Scl* p)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = S(p[i]);
    }
    template <class U, std::enable_if_t<Gf_IsImplicitConversion<U, S>, int> = 0>
    Gf_Vec(const Gf_Vec<U, N>& o)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = S(o[i]);
    }
    template <class U, std::enable_if_t<Gf_IsExplicitConversion<U, S>, int> = 0>
    explicit Gf_Vec(const Gf_Vec<U, N>& o)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = S(o[i]);
    }

    static Gf_Vec Axis(size_t i)
    {
        Gf_Vec v(S(0));
        if (i < N) v._data[i] = S(1);
        return v;
    }
    static Gf_Vec XAxis() { return Axis(0); }
    static Gf_Vec YAxis() { return Axis(1); }
    template <size_t M = N>
    static Gf_Vec ZAxis()
    {
        static_assert(M >= 3, "no Z axis in a 2D vector");
        return Axis(2);
    }
    template <size_t M = N>
    static Gf_Vec WAxis()
    {
        static_assert(M >= 4, "no W axis below 4D");
        return Axis(3);
    }

    template <class... Args, std::enable_if_t<sizeof...(Args) == N, int> = 0>
    Gf_Vec& Set(Args... values)
    {
        *this = Gf_Vec(S(values)...);
        return *this;
    }
    Gf_Vec& Set(const S* a)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = a[i];
        return *this;
    }

    const S* data() const { return _data; }
    S* data() { return _data; }
    const S* GetArray() const { return _data; }
    const S& operator[](size_t i) const { return _data[i]; }
    S& operator[](size_t i) { return _data[i]; }

    bool operator==(const Gf_Vec& o) const
    {
        for (size_t i = 0; i < N; ++i)
            if (!(_data[i] == o._data[i])) return false;
        return true;
    }
    bool operator!=(const Gf_Vec& o) const { return !(*this == o); }

    Gf_Vec operator-() const
    {
        Gf_Vec r;
        for (size_t i = 0; i < N; ++i) r._data[i] = S(-_data[i]);
        return r;
    }
    Gf_Vec& operator+=(const Gf_Vec& o)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = S(_data[i] + o._data[i]);
        return *this;
    }
    Gf_Vec& operator-=(const Gf_Vec& o)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = S(_data[i] - o._data[i]);
        return *this;
    }
    Gf_Vec& operator*=(double s)
    {
        for (size_t i = 0; i < N; ++i) _data[i] = S(_data[i] * s);
        return *this;
    }
    Gf_Vec& operator/=(double s)
    {
        // OpenUSD's vectors of reals multiply by the reciprocal; normalised
        // axes and quaternions match its own only when computed the same way.
        if constexpr (std::is_integral_v<S>) {
            for (size_t i = 0; i < N; ++i) _data[i] = S(_data[i] / s);
            return *this;
        } else {
            return *this *= (1.0 / s);
        }
    }
    friend Gf_Vec operator+(Gf_Vec a, const Gf_Vec& b) { return a += b; }
    friend Gf_Vec operator-(Gf_Vec a, const Gf_Vec& b) { return a -= b; }
    friend Gf_Vec operator*(Gf_Vec v, double s) { return v *= s; }
    friend Gf_Vec operator*(double s, Gf_Vec v) { return v *= s; }
    friend Gf_Vec operator/(Gf_Vec v, double s) { return v /= s; }
    /// Dot product, as in OpenUSD.
    friend S operator*(const Gf_Vec& a, const Gf_Vec& b) { return GfDot(a, b); }

    friend S GfDot(const Gf_Vec& a, const Gf_Vec& b)
    {
        decltype(S() * S()) sum = 0;
        for (size_t i = 0; i < N; ++i) sum += a._data[i] * b._data[i];
        return S(sum);
    }

    S GetLength() const { return S(std::sqrt(double(GfDot(*this, *this)))); }

    /// Scales to unit length and returns the old length; a vector shorter
    /// than \p eps becomes eps-scaled along its direction, as OpenUSD does.
    S Normalize(double eps = 1e-10)
    {
        const double length = double(GetLength());
        *this /= (length > eps ? length : eps);
        return S(length);
    }
    Gf_Vec GetNormalized(double eps = 1e-10) const
    {
        Gf_Vec v = *this;
        v.Normalize(eps);
        return v;
    }
    /// The part of this vector along \p v (assumed unit length).
    Gf_Vec GetProjection(const Gf_Vec& v) const { return v * double(GfDot(*this, v)); }
    /// The part of this vector perpendicular to \p b (assumed unit length).
    Gf_Vec GetComplement(const Gf_Vec& b) const { return *this - GetProjection(b); }

private:
    S _data[N] = {};
};

template <class S, size_t N>
inline Gf_Vec<S, N> GfCompMult(const Gf_Vec<S, N>& a, const Gf_Vec<S, N>& b)
{
    Gf_Vec<S, N> r;
    for (size_t i = 0; i < N; ++i) r[i] = S(a[i] * b[i]);
    return r;
}

template <class S, size_t N>
inline Gf_Vec<S, N> GfCompDiv(const Gf_Vec<S, N>& a, const Gf_Vec<S, N>& b)
{
    Gf_Vec<S, N> r;
    for (size_t i = 0; i < N; ++i) r[i] = S(a[i] / b[i]);
    return r;
}

template <class S, size_t N>
inline S GfGetLength(const Gf_Vec<S, N>& v)
{
    return v.GetLength();
}

template <class S, size_t N>
inline Gf_Vec<S, N> GfGetNormalized(const Gf_Vec<S, N>& v, double eps = 1e-10)
{
    return v.GetNormalized(eps);
}

template <class S, size_t N>
inline S GfNormalize(Gf_Vec<S, N>* v, double eps = 1e-10)
{
    return v->Normalize(eps);
}

template <class S>
inline Gf_Vec<S, 3> GfCross(const Gf_Vec<S, 3>& a, const Gf_Vec<S, 3>& b)
{
    return Gf_Vec<S, 3>(S(a[1] * b[2] - a[2] * b[1]), S(a[2] * b[0] - a[0] * b[2]),
                        S(a[0] * b[1] - a[1] * b[0]));
}

template <class S>
inline Gf_Vec<S, 3> operator^(const Gf_Vec<S, 3>& a, const Gf_Vec<S, 3>& b)
{
    return GfCross(a, b);
}

/// True if the distance between \p a and \p b is at most \p tolerance.
template <class S, size_t N>
inline bool GfIsClose(const Gf_Vec<S, N>& a, const Gf_Vec<S, N>& b, double tolerance)
{
    double sum = 0;
    for (size_t i = 0; i < N; ++i) {
        const double d = double(a[i]) - double(b[i]);
        sum += d * d;
    }
    return std::sqrt(sum) <= tolerance;
}

template <class S, size_t N>
std::ostream& operator<<(std::ostream& out, const Gf_Vec<S, N>& v)
{
    out << '(';
    for (size_t i = 0; i < N; ++i) out << (i ? ", " : "") << v[i];
    return out << ')';
}

PXR_NAMESPACE_CLOSE_SCOPE
