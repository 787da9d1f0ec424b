#include "host/CTavrinMatrix.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tavrin {

CTavrinMatrix::CTavrinMatrix()
{
    ResetToIdentity();
}

CTavrinMatrix::CTavrinMatrix(double m00, double m01, double m02, double m03,
                             double m10, double m11, double m12, double m13,
                             double m20, double m21, double m22, double m23,
                             double m30, double m31, double m32, double m33)
    : m_values{{m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}}
{
}

bool CTavrinMatrix::operator==(const CTavrinMatrix& other) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (m_values[r][c] != other.m_values[r][c])
                return false;
    return true;
}

CTavrinMatrix CTavrinMatrix::operator*(const CTavrinMatrix& other) const
{
    CTavrinMatrix result;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += m_values[r][k] * other.m_values[k][c];
            result.m_values[r][c] = sum;
        }
    }
    return result;
}

CTavrinMatrix& CTavrinMatrix::operator*=(const CTavrinMatrix& other)
{
    return *this = *this * other;
}

CTavrin3DVertex CTavrinMatrix::TransformPoint(const CTavrin3DVertex& p) const
{
    const double in[4] = {p.X(), p.Y(), p.Z(), 1.0};
    double out[4];
    for (int r = 0; r < 4; ++r)
        out[r] = m_values[r][0] * in[0] + m_values[r][1] * in[1] + m_values[r][2] * in[2] + m_values[r][3] * in[3];
    if (out[3] != 0.0 && out[3] != 1.0)
        return {out[0] / out[3], out[1] / out[3], out[2] / out[3]};
    return {out[0], out[1], out[2]};
}

CTavrinMatrix CTavrinMatrix::Inverse() const
{
    // Gauss-Jordan elimination with partial pivoting.
    double a[4][8];
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            a[r][c] = m_values[r][c];
            a[r][c + 4] = r == c ? 1.0 : 0.0;
        }
    }
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int r = column + 1; r < 4; ++r)
            if (std::fabs(a[r][column]) > std::fabs(a[pivot][column]))
                pivot = r;
        if (std::fabs(a[pivot][column]) < 1e-300)
            return CTavrinMatrix();
        if (pivot != column)
            std::swap(a[pivot], a[column]);
        const double scale = 1.0 / a[column][column];
        for (double& value : a[column])
            value *= scale;
        for (int r = 0; r < 4; ++r) {
            if (r == column || a[r][column] == 0.0)
                continue;
            const double factor = a[r][column];
            for (int c = 0; c < 8; ++c)
                a[r][c] -= factor * a[column][c];
        }
    }
    CTavrinMatrix result;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            result.m_values[r][c] = a[r][c + 4];
    return result;
}

void CTavrinMatrix::ResetToIdentity()
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            m_values[r][c] = r == c ? 1.0 : 0.0;
}

bool CTavrinMatrix::IsIdentity() const
{
    return *this == CTavrinMatrix();
}

CTavrinMatrix CTavrinMatrix::CreateRotaionAroundX(double angle)
{
    return DefineByRotation(angle, 1.0, 0.0, 0.0);
}

CTavrinMatrix CTavrinMatrix::CreateScalling(double sx, double sy, double sz)
{
    return {sx, 0, 0, 0, 0, sy, 0, 0, 0, 0, sz, 0, 0, 0, 0, 1};
}

CTavrinMatrix CTavrinMatrix::CreateTranslation(double x, double y, double z)
{
    return {1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1};
}

CTavrinMatrix CTavrinMatrix::DefineByRotation(double angle, double x, double y, double z)
{
    CTavrin3DVertex axis(x, y, z);
    axis.Normalize();
    x = axis.X();
    y = axis.Y();
    z = axis.Z();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    return {t * x * x + c,     t * x * y - s * z, t * x * z + s * y, 0,
            t * x * y + s * z, t * y * y + c,     t * y * z - s * x, 0,
            t * x * z - s * y, t * y * z + s * x, t * z * z + c,     0,
            0,                 0,                 0,                 1};
}

CTavrinMatrix CTavrinMatrix::CreateShearingYX(double factor)
{
    CTavrinMatrix result;
    result.m_values[1][0] = factor;
    return result;
}

CTavrinMatrix CTavrinMatrix::CreateShearingZX(double factor)
{
    CTavrinMatrix result;
    result.m_values[2][0] = factor;
    return result;
}

CTavrinMatrix CTavrinMatrix::CreateShearingZY(double factor)
{
    CTavrinMatrix result;
    result.m_values[2][1] = factor;
    return result;
}

CTavrinMatrix CTavrinMatrix::CreateCoordinatesTransform(const CTavrin3DVertex& fromX, const CTavrin3DVertex& fromY,
                                                        const CTavrin3DVertex& fromZ, const CTavrin3DVertex& toX,
                                                        const CTavrin3DVertex& toY, const CTavrin3DVertex& toZ,
                                                        bool normalize)
{
    CTavrin3DVertex axes[6] = {fromX, fromY, fromZ, toX, toY, toZ};
    if (normalize)
        for (CTavrin3DVertex& axis : axes)
            axis.Normalize();
    auto columns = [](const CTavrin3DVertex& a, const CTavrin3DVertex& b, const CTavrin3DVertex& c) {
        return CTavrinMatrix(a.X(), b.X(), c.X(), 0, a.Y(), b.Y(), c.Y(), 0, a.Z(), b.Z(), c.Z(), 0, 0, 0, 0, 1);
    };
    return columns(axes[3], axes[4], axes[5]) * columns(axes[0], axes[1], axes[2]).Inverse();
}

bool CTavrinMatrix::DecomposeMatrix(CTavrin3DVertex& scale, CTavrin3DVertex& shear, CTavrin3DVertex& rotation,
                                    CTavrin3DVertex& translation, double& mirror) const
{
    translation = {m_values[0][3], m_values[1][3], m_values[2][3]};
    // The linear part is L * R with L = scale * shear lower triangular and R a
    // rotation: Gram-Schmidt on the rows peels L off from the top row down.
    CTavrin3DVertex rows[3];
    for (int r = 0; r < 3; ++r)
        rows[r] = {m_values[r][0], m_values[r][1], m_values[r][2]};

    double sx = rows[0].Length();
    if (sx == 0.0)
        return false;
    rows[0] *= 1.0 / sx;

    double yx = rows[1].Dot(rows[0]);
    rows[1] = rows[1] - rows[0] * yx;
    double sy = rows[1].Length();
    if (sy == 0.0)
        return false;
    rows[1] *= 1.0 / sy;

    double zx = rows[2].Dot(rows[0]);
    double zy = rows[2].Dot(rows[1]);
    rows[2] = rows[2] - rows[0] * zx - rows[1] * zy;
    double sz = rows[2].Length();
    if (sz == 0.0)
        return false;
    rows[2] *= 1.0 / sz;

    // The shear factors do not change sign with a flip: take them first.
    shear = {yx / sy, zx / sz, zy / sz};
    mirror = (rows[0] ^ rows[1]).Dot(rows[2]) < 0.0 ? -1.0 : 1.0;
    if (mirror < 0.0) {
        // L * R = (-L) * (-R): the flip moves into the scale.
        for (CTavrin3DVertex& row : rows)
            row *= -1.0;
        sx = -sx;
        sy = -sy;
        sz = -sz;
    }
    scale = {sx, sy, sz};

    // R = Rx(a) * Ry(b) * Rz(c): R(0,2) = sin b, R(1,2) = -sin a cos b,
    // R(2,2) = cos a cos b, R(0,1) = -cos b sin c, R(0,0) = cos b cos c.
    const double sinB = std::clamp(rows[0].Z(), -1.0, 1.0);
    const double b = std::asin(sinB);
    double a;
    double c;
    if (std::fabs(sinB) < 1.0 - 1e-12) {
        a = std::atan2(-rows[1].Z(), rows[2].Z());
        c = std::atan2(-rows[0].Y(), rows[0].X());
    } else {
        // Gimbal lock: only a +- c is defined; put it all in a.
        a = std::atan2(rows[2].Y(), rows[1].Y());
        c = 0.0;
    }
    rotation = {a, b, c};
    return true;
}

CTavrinMatrix CTavrinMatrix::ComposeMatrix(const CTavrin3DVertex& scale, const CTavrin3DVertex& shear,
                                           const CTavrin3DVertex& rotation, const CTavrin3DVertex& translation)
{
    CTavrinMatrix result = CreateTranslation(translation.X(), translation.Y(), translation.Z());
    result *= CreateScalling(scale.X(), scale.Y(), scale.Z());
    result *= CreateShearingYX(shear.X());
    result *= CreateShearingZX(shear.Y());
    result *= CreateShearingZY(shear.Z());
    result *= DefineByRotation(rotation.X(), 1, 0, 0);
    result *= DefineByRotation(rotation.Y(), 0, 1, 0);
    result *= DefineByRotation(rotation.Z(), 0, 0, 1);
    return result;
}

} // namespace Tavrin
