#pragma once

#include "giAngle.h"
#include "giExport.h"

#include <cmath>
#include <iosfwd>

/// A vector in space: a direction, offset or extent. The null vector on construction.
class giVector3
{
public:
    constexpr giVector3() = default;
    constexpr giVector3(double value_x, double value_y, double value_z) : m_x(value_x), m_y(value_y), m_z(value_z) {}

    constexpr double x() const { return m_x; }
    constexpr double y() const { return m_y; }
    constexpr double z() const { return m_z; }
    constexpr void x(double value) { m_x = value; }
    constexpr void y(double value) { m_y = value; }
    constexpr void z(double value) { m_z = value; }
    /// index 0 is x, 1 is y, 2 is z.
    constexpr double operator[](int index) const { return index == 0 ? m_x : index == 1 ? m_y : m_z; }

    constexpr double dot(const giVector3& v) const { return m_x * v.m_x + m_y * v.m_y + m_z * v.m_z; }
    constexpr giVector3 cross(const giVector3& v) const
    {
        return giVector3(m_y * v.m_z - m_z * v.m_y, m_z * v.m_x - m_x * v.m_z, m_x * v.m_y - m_y * v.m_x);
    }
    /// The angle between this vector and v, in [0, pi]; 0 when either is null.
    giAngle angle_to(const giVector3& v) const { return giAngle(std::atan2(cross(v).length(), dot(v))); }
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
    giVector3 unit() const
    {
        giVector3 result(*this);
        result.unitise();
        return result;
    }

    constexpr giVector3 operator-() const { return giVector3(-m_x, -m_y, -m_z); }
    constexpr giVector3 operator+(const giVector3& v) const { return giVector3(m_x + v.m_x, m_y + v.m_y, m_z + v.m_z); }
    constexpr giVector3 operator-(const giVector3& v) const { return giVector3(m_x - v.m_x, m_y - v.m_y, m_z - v.m_z); }
    constexpr giVector3 operator*(double factor) const { return giVector3(m_x * factor, m_y * factor, m_z * factor); }
    constexpr giVector3 operator/(double divisor) const
    {
        return giVector3(m_x / divisor, m_y / divisor, m_z / divisor);
    }
    /// Division component by component.
    constexpr giVector3 operator/(const giVector3& v) const { return giVector3(m_x / v.m_x, m_y / v.m_y, m_z / v.m_z); }
    constexpr giVector3& operator+=(const giVector3& v) { return *this = *this + v; }
    constexpr giVector3& operator-=(const giVector3& v) { return *this = *this - v; }
    constexpr giVector3& operator*=(double factor) { return *this = *this * factor; }
    constexpr giVector3& operator/=(double divisor) { return *this = *this / divisor; }

    /// Exact equality of the components.
    constexpr bool operator==(const giVector3&) const = default;

private:
    double m_x = 0;
    double m_y = 0;
    double m_z = 0;
};

constexpr giVector3 operator*(double factor, const giVector3& v)
{
    return v * factor;
}

/// Prints "(x, y, z)" in model units.
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giVector3& v);
