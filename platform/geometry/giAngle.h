#pragma once

#include "giExport.h"

#include <cmath>
#include <iosfwd>

/// An angle, held in radians and never wrapped: two turns stay two turns.
class giAngle
{
public:
    constexpr giAngle() = default;
    constexpr explicit giAngle(double radians) : m_radians(radians) {}

    constexpr double radians() const { return m_radians; }
    constexpr void radians(double value) { m_radians = value; }
    constexpr double degrees() const { return m_radians * (180.0 / 3.14159265358979323846); }

    double sin() const { return std::sin(m_radians); }
    double cos() const { return std::cos(m_radians); }
    double tan() const { return std::tan(m_radians); }

    constexpr giAngle operator-() const { return giAngle(-m_radians); }
    constexpr giAngle operator+(giAngle a) const { return giAngle(m_radians + a.m_radians); }
    constexpr giAngle operator-(giAngle a) const { return giAngle(m_radians - a.m_radians); }
    constexpr giAngle operator*(double factor) const { return giAngle(m_radians * factor); }
    constexpr giAngle operator/(double divisor) const { return giAngle(m_radians / divisor); }
    giAngle& operator+=(giAngle a) { return *this = *this + a; }
    giAngle& operator-=(giAngle a) { return *this = *this - a; }
    giAngle& operator*=(double factor) { return *this = *this * factor; }

    constexpr bool operator==(const giAngle&) const = default;
    constexpr bool operator<(giAngle a) const { return m_radians < a.m_radians; }
    constexpr bool operator>(giAngle a) const { return m_radians > a.m_radians; }

private:
    double m_radians = 0;
};

constexpr giAngle operator*(double factor, giAngle a)
{
    return a * factor;
}

/// Prints the angle in radians.
GI_EXPORT std::ostream& operator<<(std::ostream& os, giAngle a);
