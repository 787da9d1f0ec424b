#pragma once

#include "host/CTavrin3DVertex.h"

namespace Tavrin {

// 4x4 matrix of doubles for column vectors: a point p becomes M * p, the
// translation sits in the last column, and A * B applies B first.
class CTavrinMatrix {
public:
    CTavrinMatrix();
    // The values row by row.
    CTavrinMatrix(double m00, double m01, double m02, double m03,
                  double m10, double m11, double m12, double m13,
                  double m20, double m21, double m22, double m23,
                  double m30, double m31, double m32, double m33);

    double M(int row, int column) const { return m_values[row][column]; }
    void SetM(int row, int column, double value) { m_values[row][column] = value; }
    bool operator==(const CTavrinMatrix& other) const;
    bool operator!=(const CTavrinMatrix& other) const { return !(*this == other); }

    CTavrinMatrix operator*(const CTavrinMatrix& other) const;
    CTavrinMatrix& operator*=(const CTavrinMatrix& other);
    CTavrin3DVertex TransformPoint(const CTavrin3DVertex& point) const;

    // The inverse; a singular matrix gives the identity.
    CTavrinMatrix Inverse() const;
    void ResetToIdentity();
    bool IsIdentity() const;

    // Right-handed rotation by angle radians: +pi/2 about X takes Y to Z.
    static CTavrinMatrix CreateRotaionAroundX(double angle);
    static CTavrinMatrix CreateScalling(double sx, double sy, double sz);
    static CTavrinMatrix CreateTranslation(double x, double y, double z);
    // Right-handed rotation by angle radians about the axis (x, y, z).
    static CTavrinMatrix DefineByRotation(double angle, double x, double y, double z);
    // y += factor * x
    static CTavrinMatrix CreateShearingYX(double factor);
    // z += factor * x
    static CTavrinMatrix CreateShearingZX(double factor);
    // z += factor * y
    static CTavrinMatrix CreateShearingZY(double factor);
    // The linear map taking the axes fromX, fromY, fromZ onto toX, toY, toZ;
    // normalize makes every axis unit length first.
    static CTavrinMatrix CreateCoordinatesTransform(const CTavrin3DVertex& fromX, const CTavrin3DVertex& fromY,
                                                    const CTavrin3DVertex& fromZ, const CTavrin3DVertex& toX,
                                                    const CTavrin3DVertex& toY, const CTavrin3DVertex& toZ,
                                                    bool normalize);

    // Splits the matrix into
    //   CreateTranslation(translation) * CreateScalling(scale) * CreateShearingYX(shear.X)
    //   * CreateShearingZX(shear.Y) * CreateShearingZY(shear.Z)
    //   * DefineByRotation(rotation.X, 1,0,0) * DefineByRotation(rotation.Y, 0,1,0)
    //   * DefineByRotation(rotation.Z, 0,0,1)
    // (ComposeMatrix builds it back). mirror is -1 when the matrix flips
    // handedness (the scale then carries the flip), else 1. Returns false for
    // a matrix whose linear part is singular; the outputs are then unusable.
    bool DecomposeMatrix(CTavrin3DVertex& scale, CTavrin3DVertex& shear, CTavrin3DVertex& rotation,
                         CTavrin3DVertex& translation, double& mirror) const;
    static CTavrinMatrix ComposeMatrix(const CTavrin3DVertex& scale, const CTavrin3DVertex& shear,
                                       const CTavrin3DVertex& rotation, const CTavrin3DVertex& translation);

private:
    double m_values[4][4];
};

} // namespace Tavrin
