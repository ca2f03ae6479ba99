#pragma once

#include "giExport.h"
#include "giVector2.h"

#include <iosfwd>

/// A position in the plane. The origin on construction.
class giPoint2
{
public:
    constexpr giPoint2() = default;
    constexpr giPoint2(double value_x, double value_y) : m_x(value_x), m_y(value_y) {}
    /// The point at offset v from the origin.
    constexpr explicit giPoint2(const giVector2& v) : giPoint2(v.x(), v.y()) {}

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr void x(double value) { m_x = value; }
    constexpr void y(double value) { m_y = value; }
    /// index 0 is x, 1 is y.
    constexpr double operator[](int index) const { return index == 0 ? m_x : m_y; }

    /// The offset of this point from the origin.
    constexpr giVector2 vector() const { return giVector2(m_x, m_y); }
    double distance(const giPoint2& p) const { return (*this - p).length(); }
    /// 1 when p is not further away than the tolerance, in the units of the points.
    int coincident(const giPoint2& p, double tolerance) const { return distance(p) <= tolerance; }
    /// The point at parameter t of the line through p (t = 0) and q (t = 1); exact at both.
    static constexpr giPoint2 interpolate(const giPoint2& p, const giPoint2& q, double t)
    {
        return giPoint2(p.m_x * (1 - t) + q.m_x * t, p.m_y * (1 - t) + q.m_y * t);
    }

    constexpr giVector2 operator-(const giPoint2& p) const { return giVector2(m_x - p.m_x, m_y - p.m_y); }
    constexpr giPoint2 operator+(const giVector2& v) const { return giPoint2(m_x + v.x(), m_y + v.y()); }
    constexpr giPoint2 operator-(const giVector2& v) const { return giPoint2(m_x - v.x(), m_y - v.y()); }
    constexpr giPoint2 operator*(double factor) const { return giPoint2(m_x * factor, m_y * factor); }
    constexpr giPoint2 operator/(double divisor) const { return giPoint2(m_x / divisor, m_y / divisor); }
    /// Division component by component.
    constexpr giPoint2 operator/(const giVector2& v) const { return giPoint2(m_x / v.x(), m_y / v.y()); }
    constexpr giPoint2& operator+=(const giVector2& v) { return *this = *this + v; }
    constexpr giPoint2& operator-=(const giVector2& v) { return *this = *this - v; }
    constexpr giPoint2& operator*=(double factor) { return *this = *this * factor; }

    /// Exact equality of the coordinates.
    constexpr bool operator==(const giPoint2&) const = default;

private:
    double m_x = 0;
    double m_y = 0;
};

/// Prints "(x, y)".
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giPoint2& p);
