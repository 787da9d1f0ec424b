#pragma once

// What GfMatrix2d, GfMatrix3d, GfMatrix4d and GfMatrix4f share. Storage is
// row-major and vectors are rows multiplied on the left (v * M), so a product
// A * B applies A first, then B, as in OpenUSD.

#include "usdcore/gf/vec.h"
#include "usdcore/pxr.h"

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <type_traits>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

template <class Derived, class S, size_t N>
class Gf_MatrixBase
{
public:
    using ScalarType = S;
    using RowType = Gf_Vec<S, N>;
    static constexpr size_t numRows = N;
    static constexpr size_t numColumns = N;

    /// Zero. (OpenUSD leaves a default-built matrix undefined; zero is one
    /// such value and keeps sanitizers quiet.)
    Gf_MatrixBase() = default;
    /// \p s on the diagonal, zero elsewhere: Derived(1) is the identity.
    explicit Gf_MatrixBase(S s) { SetDiagonal(s); }
    explicit Gf_MatrixBase(int s) { SetDiagonal(S(s)); }
    explicit Gf_MatrixBase(const RowType& diagonal) { SetDiagonal(diagonal); }
    explicit Gf_MatrixBase(const S m[N][N]) { Set(m); }
    /// All N*N entries, row by row.
    template <class... Args, std::enable_if_t<sizeof...(Args) == N * N, int> = 0>
    Gf_MatrixBase(Args... entries)
    {
        const S flat[] = {S(entries)...};
        for (size_t i = 0; i < N * N; ++i) _m[i / N][i % N] = flat[i];
    }

    /// All N*N entries, row by row.
    template <class... Args, std::enable_if_t<sizeof...(Args) == N * N, int> = 0>
    Derived& Set(Args... entries)
    {
        return _Self() = Derived(entries...);
    }
    Derived& Set(const S m[N][N])
    {
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) _m[r][c] = m[r][c];
        return _Self();
    }
    Derived& SetDiagonal(S s) { return SetDiagonal(RowType(s)); }
    Derived& SetDiagonal(const RowType& diagonal)
    {
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) _m[r][c] = r == c ? diagonal[r] : S(0);
        return _Self();
    }
    Derived& SetIdentity() { return SetDiagonal(S(1)); }
    Derived& SetZero() { return SetDiagonal(S(0)); }

    S* operator[](size_t row) { return _m[row]; }
    const S* operator[](size_t row) const { return _m[row]; }
    S* data() { return &_m[0][0]; }
    const S* data() const { return &_m[0][0]; }
    const S* GetArray() const { return &_m[0][0]; }

    RowType GetRow(size_t row) const { return RowType(_m[row]); }
    RowType GetColumn(size_t column) const
    {
        RowType v;
        for (size_t r = 0; r < N; ++r) v[r] = _m[r][column];
        return v;
    }
    void SetRow(size_t row, const RowType& v)
    {
        for (size_t c = 0; c < N; ++c) _m[row][c] = v[c];
    }
    void SetColumn(size_t column, const RowType& v)
    {
        for (size_t r = 0; r < N; ++r) _m[r][column] = v[r];
    }

    Derived GetTranspose() const
    {
        Derived t;
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) t._m[c][r] = _m[r][c];
        return t;
    }

    double GetDeterminant() const
    {
        double work[N][N];
        double det = 1.0;
        _Eliminate(work, nullptr, &det);
        return det;
    }

    /// The inverse; \p det receives the determinant. A matrix whose
    /// determinant's magnitude is at most \p eps is singular and yields
    /// FLT_MAX on the diagonal, as OpenUSD does.
    Derived GetInverse(double* det = nullptr, double eps = 0.0) const
    {
        double work[N][N];
        double inverse[N][N];
        double determinant = 1.0;
        _Eliminate(work, inverse, &determinant);
        if (det) *det = determinant;
        Derived result;
        if (std::fabs(determinant) <= eps) {
            result.SetDiagonal(S(FLT_MAX));
            return result;
        }
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) result._m[r][c] = S(inverse[r][c]);
        return result;
    }

    bool operator==(const Derived& o) const
    {
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c)
                if (_m[r][c] != o._m[r][c]) return false;
        return true;
    }
    bool operator!=(const Derived& o) const { return !(*this == o); }

    Derived& operator*=(const Derived& o)
    {
        Derived product;
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) {
                double sum = 0.0;
                for (size_t k = 0; k < N; ++k) sum += double(_m[r][k]) * o._m[k][c];
                product._m[r][c] = S(sum);
            }
        return _Self() = product;
    }
    Derived& operator*=(double s)
    {
        for (auto& row : _m)
            for (S& x : row) x = S(x * s);
        return _Self();
    }
    Derived& operator+=(const Derived& o)
    {
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) _m[r][c] += o._m[r][c];
        return _Self();
    }
    Derived& operator-=(const Derived& o)
    {
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) _m[r][c] -= o._m[r][c];
        return _Self();
    }
    Derived operator-() const { return Derived(_Self()) *= -1.0; }

    friend Derived operator*(const Derived& a, const Derived& b) { return Derived(a) *= b; }
    friend Derived operator*(const Derived& m, double s) { return Derived(m) *= s; }
    friend Derived operator*(double s, const Derived& m) { return Derived(m) *= s; }
    friend Derived operator+(const Derived& a, const Derived& b) { return Derived(a) += b; }
    friend Derived operator-(const Derived& a, const Derived& b) { return Derived(a) -= b; }

    /// Row vector times matrix: the transform this class is built around.
    friend RowType operator*(const RowType& v, const Derived& m)
    {
        RowType out;
        for (size_t c = 0; c < N; ++c) {
            double sum = 0.0;
            for (size_t k = 0; k < N; ++k) sum += double(v[k]) * m._m[k][c];
            out[c] = S(sum);
        }
        return out;
    }
    /// Matrix times column vector.
    friend RowType operator*(const Derived& m, const RowType& v)
    {
        RowType out;
        for (size_t r = 0; r < N; ++r) {
            double sum = 0.0;
            for (size_t k = 0; k < N; ++k) sum += double(m._m[r][k]) * v[k];
            out[r] = S(sum);
        }
        return out;
    }

    friend std::ostream& operator<<(std::ostream& out, const Derived& m)
    {
        out << "( ";
        for (size_t r = 0; r < N; ++r) out << m.GetRow(r) << ' ';
        return out << ')';
    }

protected:
    Derived& _Self() { return static_cast<Derived&>(*this); }
    const Derived& _Self() const { return static_cast<const Derived&>(*this); }

    /// Gauss-Jordan elimination with partial pivoting in double precision:
    /// multiplies *det by the determinant and, when \p inverse is given,
    /// fills it with the inverse (undefined when the determinant is 0).
    void _Eliminate(double work[N][N], double (*inverse)[N], double* det) const
    {
        for (size_t r = 0; r < N; ++r)
            for (size_t c = 0; c < N; ++c) {
                work[r][c] = _m[r][c];
                if (inverse) inverse[r][c] = r == c ? 1.0 : 0.0;
            }
        for (size_t col = 0; col < N; ++col) {
            size_t pivot = col;
            for (size_t r = col + 1; r < N; ++r)
                if (std::fabs(work[r][col]) > std::fabs(work[pivot][col])) pivot = r;
            if (work[pivot][col] == 0.0) {
                *det = 0.0;
                return;
            }
            if (pivot != col) {
                for (size_t c = 0; c < N; ++c) {
                    std::swap(work[pivot][c], work[col][c]);
                    if (inverse) std::swap(inverse[pivot][c], inverse[col][c]);
                }
                *det = -*det;
            }
            const double p = work[col][col];
            *det *= p;
            for (size_t c = 0; c < N; ++c) {
                work[col][c] /= p;
                if (inverse) inverse[col][c] /= p;
            }
            for (size_t r = 0; r < N; ++r) {
                if (r == col || work[r][col] == 0.0) continue;
                const double f = work[r][col];
                for (size_t c = 0; c < N; ++c) {
                    work[r][c] -= f * work[col][c];
                    if (inverse) inverse[r][c] -= f * inverse[col][c];
                }
            }
        }
    }

    S _m[N][N] = {};
};

/// True if every entry differs by at most \p tolerance.
template <class D, class S, size_t N>
bool GfIsClose(const Gf_MatrixBase<D, S, N>& a, const Gf_MatrixBase<D, S, N>& b, double tolerance)
{
    for (size_t r = 0; r < N; ++r)
        for (size_t c = 0; c < N; ++c)
            if (std::fabs(double(a[r][c]) - double(b[r][c])) > tolerance) return false;
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
