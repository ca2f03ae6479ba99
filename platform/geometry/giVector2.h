#pragma once

#include "giAngle.h"
#include "giExport.h"

#include <cmath>
#include <iosfwd>

/// A vector in the plane: a direction, offset or extent. The null vector on construction.
class giVector2
{
public:
    constexpr giVector2() = default;
    constexpr giVector2(double value_x, double value_y) : m_x(value_x), m_y(value_y) {}

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr void x(double value) { m_x = value; }
    constexpr void y(double value) { m_y = value; }
    /// index 0 is x, 1 is y.
    constexpr double operator[](int index) const { return index == 0 ? m_x : m_y; }

    constexpr double dot(const giVector2& v) const { return m_x * v.m_x + m_y * v.m_y; }
    /// The z component of the 3-D cross product: positive when v lies counter-clockwise of this vector.
    constexpr double cross(const giVector2& v) const { return m_x * v.m_y - m_y * v.m_x; }
    /// The signed angle from this vector to v, counter-clockwise positive, in (-pi, pi]; 0 when either is null.
    giAngle angle_to(const giVector2& v) const { return giAngle(std::atan2(cross(v), dot(v))); }
    /// This vector turned a quarter turn counter-clockwise.
    constexpr giVector2 perpendicular() const { return giVector2(-m_y, m_x); }
    constexpr double length_squared() const { return dot(*this); }
    double length() const { return std::sqrt(length_squared()); }
    /// Scales to length 1 and returns 1; a null vector stays as it is and the result is 0.
    int unitise()
    {
        const double size = length();
        if (!(size > 0))
            return 0;
        *this = *this / size;
        return 1;
    }
    /// This vector scaled to length 1, or the null vector when it is null.
    giVector2 unit() const
    {
        giVector2 result(*this);
        result.unitise();
        return result;
    }

    constexpr giVector2 operator-() const { return giVector2(-m_x, -m_y); }
    constexpr giVector2 operator+(const giVector2& v) const { return giVector2(m_x + v.m_x, m_y + v.m_y); }
    constexpr giVector2 operator-(const giVector2& v) const { return giVector2(m_x - v.m_x, m_y - v.m_y); }
    constexpr giVector2 operator*(double factor) const { return giVector2(m_x * factor, m_y * factor); }
    constexpr giVector2 operator/(double divisor) const { return giVector2(m_x / divisor, m_y / divisor); }
    /// Division component by component.
    constexpr giVector2 operator/(const giVector2& v) const { return giVector2(m_x / v.m_x, m_y / v.m_y); }
    constexpr giVector2& operator+=(const giVector2& v) { return *this = *this + v; }
    constexpr giVector2& operator-=(const giVector2& v) { return *this = *this - v; }
    constexpr giVector2& operator*=(double factor) { return *this = *this * factor; }
    constexpr giVector2& operator/=(double divisor) { return *this = *this / divisor; }

    /// Exact equality of the components.
    constexpr bool operator==(const giVector2&) const = default;

private:
    double m_x = 0;
    double m_y = 0;
};

constexpr giVector2 operator*(double factor, const giVector2& v)
{
    return v * factor;
}

/// Prints "(x, y)" in model units.
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giVector2& v);
