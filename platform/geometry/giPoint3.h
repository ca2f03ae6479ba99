#pragma once

#include "giExport.h"
#include "giVector3.h"

#include <iosfwd>

/// A position in space. The origin on construction.
class giPoint3
{
public:
    constexpr giPoint3() = default;
    constexpr giPoint3(double value_x, double value_y, double value_z) : m_x(value_x), m_y(value_y), m_z(value_z) {}
    /// The point at offset v from the origin.
    constexpr explicit giPoint3(const giVector3& v) : giPoint3(v.x(), v.y(), v.z()) {}

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr double z() const { return m_z; }
    constexpr void x(double value) { m_x = value; }
    constexpr void y(double value) { m_y = value; }
    constexpr void z(double value) { m_z = value; }
    /// index 0 is x, 1 is y, 2 is z.
    constexpr double operator[](int index) const { return index == 0 ? m_x : index == 1 ? m_y : m_z; }

    /// The offset of this point from the origin.
    constexpr giVector3 vector() const { return giVector3(m_x, m_y, m_z); }
    double distance(const giPoint3& p) const { return (*this - p).length(); }
    /// 1 when p is not further away than the tolerance, in the units of the points.
    int coincident(const giPoint3& p, double tolerance) const { return distance(p) <= tolerance; }
    /// The point at parameter t of the line through p (t = 0) and q (t = 1); exact at both.
    static constexpr giPoint3 interpolate(const giPoint3& p, const giPoint3& q, double t)
    {
        return giPoint3(p.m_x * (1 - t) + q.m_x * t, p.m_y * (1 - t) + q.m_y * t, p.m_z * (1 - t) + q.m_z * t);
    }

    constexpr giVector3 operator-(const giPoint3& p) const { return giVector3(m_x - p.m_x, m_y - p.m_y, m_z - p.m_z); }
    constexpr giPoint3 operator+(const giVector3& v) const { return giPoint3(m_x + v.x(), m_y + v.y(), m_z + v.z()); }
    constexpr giPoint3 operator-(const giVector3& v) const { return giPoint3(m_x - v.x(), m_y - v.y(), m_z - v.z()); }
    constexpr giPoint3 operator*(double factor) const { return giPoint3(m_x * factor, m_y * factor, m_z * factor); }
    constexpr giPoint3 operator/(double divisor) const { return giPoint3(m_x / divisor, m_y / divisor, m_z / divisor); }
    /// Division component by component.
    constexpr giPoint3 operator/(const giVector3& v) const { return giPoint3(m_x / v.x(), m_y / v.y(), m_z / v.z()); }
    constexpr giPoint3& operator+=(const giVector3& v) { return *this = *this + v; }
    constexpr giPoint3& operator-=(const giVector3& v) { return *this = *this - v; }
    constexpr giPoint3& operator*=(double factor) { return *this = *this * factor; }

    /// Exact equality of the coordinates.
    constexpr bool operator==(const giPoint3&) const = default;

private:
    double m_x = 0;
    double m_y = 0;
    double m_z = 0;
};

/// Prints "(x, y, z)".
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giPoint3& p);
