#pragma once

#include "giExport.h"
#include "giPoint3.h"

#include <algorithm>
#include <iosfwd>
#include <limits>

class giXform3;

/// A box along the axes of space, all sides included. Empty on construction.
class giBox3
{
public:
    constexpr giBox3() = default;
    constexpr giBox3(const giPoint3& low, const giPoint3& high) : m_low(low), m_high(high) {}

    constexpr const giPoint3& low() const { return m_low; }
    constexpr const giPoint3& high() const { return m_high; }
    constexpr void low(const giPoint3& p) { m_low = p; }
    constexpr void high(const giPoint3& p) { m_high = p; }

    /// 1 when nothing was merged yet: the low corner holds the largest double.
    constexpr int empty() const { return m_low.x() == std::numeric_limits<double>::max(); }
    /// Extents along x, y and z; meaningless for an empty box.
    constexpr double width() const { return m_high.x() - m_low.x(); }
    constexpr double height() const { return m_high.y() - m_low.y(); }
    constexpr double depth() const { return m_high.z() - m_low.z(); }
    constexpr giVector3 diagonal() const { return m_high - m_low; }
    constexpr giPoint3 middle() const { return giPoint3::interpolate(m_low, m_high, 0.5); }
    /// Corner 0 to 7: bit 0 of the number takes the high x, bit 1 the high y, bit 2 the high z.
    constexpr giPoint3 corner(int number) const
    {
        return giPoint3((number & 1 ? m_high : m_low).x(), (number & 2 ? m_high : m_low).y(),
                        (number & 4 ? m_high : m_low).z());
    }

    /// 1 when p lies inside or not further outside a side than the tolerance; never for an empty box.
    constexpr int contains(const giPoint3& p, double tolerance = 0) const
    {
        return p.x() >= m_low.x() - tolerance && p.x() <= m_high.x() + tolerance && p.y() >= m_low.y() - tolerance &&
               p.y() <= m_high.y() + tolerance && p.z() >= m_low.z() - tolerance && p.z() <= m_high.z() + tolerance;
    }
    /// 1 when the boxes share at least one point; never for an empty one.
    constexpr int overlap(const giBox3& box) const
    {
        return m_low.x() <= box.m_high.x() && box.m_low.x() <= m_high.x() && m_low.y() <= box.m_high.y() &&
               box.m_low.y() <= m_high.y() && m_low.z() <= box.m_high.z() && box.m_low.z() <= m_high.z();
    }

    /// Enlarges the box to hold p, or another box; an empty box adds nothing.
    constexpr void merge(const giPoint3& p)
    {
        m_low = giPoint3(std::min(m_low.x(), p.x()), std::min(m_low.y(), p.y()), std::min(m_low.z(), p.z()));
        m_high = giPoint3(std::max(m_high.x(), p.x()), std::max(m_high.y(), p.y()), std::max(m_high.z(), p.z()));
    }
    GI_EXPORT void merge(const giBox3& box);
    /// Moves every side outwards by the offset (inwards when negative); an empty box stays empty.
    GI_EXPORT void grow(double offset);
    /// The box along the axes around the eight transformed corners; an empty box stays empty.
    GI_EXPORT giBox3 transform(const giXform3& xform) const;

    constexpr bool operator==(const giBox3&) const = default;

private:
    giPoint3 m_low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
                   std::numeric_limits<double>::max()};
    giPoint3 m_high{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest(),
                    std::numeric_limits<double>::lowest()};
};

/// Prints "[low, high]" or "[empty]".
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giBox3& box);
