#pragma once

#include "host/CTavrinArchive.h"

namespace Tavrin {

class CTavrinMatrix;

class CTavrin3DVertex : public CTavrinArchivable {
public:
    CTavrin3DVertex() = default;
    CTavrin3DVertex(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
    CTavrin3DVertex(const CTavrin3DVertex&) = default;
    CTavrin3DVertex& operator=(const CTavrin3DVertex&) = default;

    double X() const { return m_x; }
    double Y() const { return m_y; }
    double Z() const { return m_z; }
    void Set(double x, double y, double z) { m_x = x; m_y = y; m_z = z; }

    CTavrin3DVertex operator+(const CTavrin3DVertex& o) const { return {m_x + o.m_x, m_y + o.m_y, m_z + o.m_z}; }
    CTavrin3DVertex operator-(const CTavrin3DVertex& o) const { return {m_x - o.m_x, m_y - o.m_y, m_z - o.m_z}; }
    CTavrin3DVertex& operator-=(const CTavrin3DVertex& o) { return *this = *this - o; }
    CTavrin3DVertex operator*(double f) const { return {m_x * f, m_y * f, m_z * f}; }
    CTavrin3DVertex& operator*=(double f) { return *this = *this * f; }
    // Cross product.
    CTavrin3DVertex operator^(const CTavrin3DVertex& o) const
    {
        return {m_y * o.m_z - m_z * o.m_y, m_z * o.m_x - m_x * o.m_z, m_x * o.m_y - m_y * o.m_x};
    }
    double Dot(const CTavrin3DVertex& o) const { return m_x * o.m_x + m_y * o.m_y + m_z * o.m_z; }
    bool operator==(const CTavrin3DVertex& o) const { return m_x == o.m_x && m_y == o.m_y && m_z == o.m_z; }

    double Length() const;
    double Distance(const CTavrin3DVertex& other) const { return (*this - other).Length(); }
    // Leaves a zero vector unchanged.
    void Normalize();
    // Transforms this point (translation included).
    void ModifyByTransform(const CTavrinMatrix& matrix);

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

} // namespace Tavrin
