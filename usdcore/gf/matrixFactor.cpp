#include "usdcore/gf/matrixFactor.h"

#include <cmath>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

using Matrix3 = double[3][3];

void Multiply(const Matrix3 a, const Matrix3 b, Matrix3 out)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            out[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
        }
}

void Transpose(const Matrix3 a, Matrix3 out)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) out[i][j] = a[j][i];
}

void Copy(const Matrix3 from, Matrix3 to)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) to[i][j] = from[i][j];
}

// Eigen-decomposition of the symmetric \p a by Jacobi rotations: on return
// the diagonal of \p a holds the eigenvalues and the columns of \p v the
// eigenvectors (a_original = v * diag * transpose(v)). A diagonal input
// needs no rotation, so its axes keep their order.
void Jacobi(Matrix3 a, Matrix3 v)
{
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) v[i][j] = i == j ? 1.0 : 0.0;
    constexpr int kMaxSweeps = 50;
    const int pairs[3][2] = {{0, 1}, {0, 2}, {1, 2}};
    for (int sweep = 0; sweep < kMaxSweeps; ++sweep) {
        const double offDiagonal = std::fabs(a[0][1]) + std::fabs(a[0][2]) + std::fabs(a[1][2]);
        const double diagonal = std::fabs(a[0][0]) + std::fabs(a[1][1]) + std::fabs(a[2][2]);
        if (offDiagonal <= 1e-15 * diagonal || offDiagonal == 0.0) return;
        for (const auto& pair : pairs) {
            const int p = pair[0];
            const int q = pair[1];
            if (a[p][q] == 0.0) continue;
            // The rotation in the (p, q) plane that zeroes a[p][q].
            const double theta = (a[q][q] - a[p][p]) / (2.0 * a[p][q]);
            const double tangent = (theta >= 0 ? 1.0 : -1.0) / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
            const double cosine = 1.0 / std::sqrt(tangent * tangent + 1.0);
            const double sine = tangent * cosine;
            Matrix3 rotation = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
            rotation[p][p] = cosine;
            rotation[q][q] = cosine;
            rotation[p][q] = sine;
            rotation[q][p] = -sine;
            Matrix3 rotationT, temp, next;
            Transpose(rotation, rotationT);
            Multiply(rotationT, a, temp);
            Multiply(temp, rotation, next);
            Copy(next, a);
            Multiply(v, rotation, temp);
            Copy(temp, v);
        }
    }
}

} // namespace

bool Gf_FactorMatrix4(const double m[4][4], double r[4][4], double s[3], double u[4][4], double t[3], double eps)
{
    Matrix3 a;
    for (int i = 0; i < 3; ++i) {
        t[i] = m[3][i];
        for (int j = 0; j < 3; ++j) a[i][j] = m[i][j];
    }
    const double determinant = a[0][0] * (a[1][1] * a[2][2] - a[1][2] * a[2][1]) -
                               a[0][1] * (a[1][0] * a[2][2] - a[1][2] * a[2][0]) +
                               a[0][2] * (a[1][0] * a[2][1] - a[1][1] * a[2][0]);
    const bool singular = std::fabs(determinant) < eps;

    // a * transpose(a) = k * k for the symmetric stretch k = r * s * r^T;
    // its eigenvalues are the squared scales, its eigenvectors r's columns.
    Matrix3 aT, b, v;
    Transpose(a, aT);
    Multiply(a, aT, b);
    Jacobi(b, v);

    // A mirror goes into the scales, so that u stays a rotation.
    const double sign = determinant < 0 ? -1.0 : 1.0;
    Matrix3 scaledInverse;
    for (int i = 0; i < 3; ++i) {
        double scale = std::sqrt(std::fmax(b[i][i], 0.0));
        if (scale < eps) scale = eps;
        s[i] = sign * scale;
        for (int j = 0; j < 3; ++j) scaledInverse[j][i] = v[j][i] / s[i];
    }

    // u = k^-1 * a, with k^-1 = r * s^-1 * r^T.
    Matrix3 vT, kInverse, rotation;
    Transpose(v, vT);
    Multiply(scaledInverse, vT, kInverse);
    Multiply(kInverse, a, rotation);

    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            const bool inner = i < 3 && j < 3;
            r[i][j] = inner ? v[i][j] : (i == j ? 1.0 : 0.0);
            u[i][j] = inner ? rotation[i][j] : (i == j ? 1.0 : 0.0);
        }
    return !singular;
}

PXR_NAMESPACE_CLOSE_SCOPE
