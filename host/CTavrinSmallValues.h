#pragma once

namespace Tavrin {

// A direction (the value behind the "normal" data-member type).
class CTavrinNormal {
public:
    CTavrinNormal() = default;
    CTavrinNormal(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
    double X() const { return m_x; }
    double Y() const { return m_y; }
    double Z() const { return m_z; }
    bool operator==(const CTavrinNormal& o) const { return m_x == o.m_x && m_y == o.m_y && m_z == o.m_z; }

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 1.0;
};

class CTavrinTextureCoordinate {
public:
    CTavrinTextureCoordinate() = default;
    CTavrinTextureCoordinate(double u, double v) : m_u(u), m_v(v) {}
    double U() const { return m_u; }
    double V() const { return m_v; }
    void Set(double u, double v) { m_u = u; m_v = v; }

private:
    double m_u = 0.0;
    double m_v = 0.0;
};

class CTavrinColor {
public:
    CTavrinColor() = default;
    CTavrinColor(double r, double g, double b, double a) : m_r(r), m_g(g), m_b(b), m_a(a) {}
    double R() const { return m_r; }
    double G() const { return m_g; }
    double B() const { return m_b; }
    double A() const { return m_a; }
    void SetR(double r) { m_r = r; }
    void SetG(double g) { m_g = g; }
    void SetB(double b) { m_b = b; }
    void SetA(double a) { m_a = a; }
    bool operator==(const CTavrinColor& o) const
    {
        return m_r == o.m_r && m_g == o.m_g && m_b == o.m_b && m_a == o.m_a;
    }

private:
    double m_r = 0.0;
    double m_g = 0.0;
    double m_b = 0.0;
    double m_a = 1.0;
};

} // namespace Tavrin
