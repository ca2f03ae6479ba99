#pragma once

#include "giExport.h"
#include "giPoint2.h"

#include <algorithm>
#include <iosfwd>
#include <limits>

/// A rectangle along the axes of the plane, both ends included. Empty on construction.
///
/// The corners are kept and read back exactly as given; they are not put in order.
class giBox2
{
public:
    constexpr giBox2() = default;
    constexpr giBox2(const giPoint2& low, const giPoint2& high) : m_low(low), m_high(high) {}
    constexpr giBox2(double low_x, double low_y, double high_x, double high_y)
        : m_low(low_x, low_y), m_high(high_x, high_y)
    {}

    constexpr const giPoint2& low() const { return m_low; }
    constexpr const giPoint2& high() const { return m_high; }
    constexpr void low(const giPoint2& p) { m_low = p; }
    constexpr void high(const giPoint2& p) { m_high = p; }

    /// 1 when nothing was merged yet: the low corner holds the largest double.
    constexpr int empty() const { return m_low.x() == std::numeric_limits<double>::max(); }
    /// Extents; meaningless for an empty box.
    constexpr double width() const { return m_high.x() - m_low.x(); }
    constexpr double height() const { return m_high.y() - m_low.y(); }
    constexpr giPoint2 middle() const { return giPoint2::interpolate(m_low, m_high, 0.5); }

    /// 1 when p lies inside or not further outside an edge than the tolerance; never for an empty box.
    constexpr int contains(const giPoint2& p, double tolerance = 0) const
    {
        return p.x() >= m_low.x() - tolerance && p.x() <= m_high.x() + tolerance && p.y() >= m_low.y() - tolerance &&
               p.y() <= m_high.y() + tolerance;
    }
    /// 1 when the boxes share at least one point; never for an empty one.
    constexpr int overlap(const giBox2& box) const
    {
        return m_low.x() <= box.m_high.x() && box.m_low.x() <= m_high.x() && m_low.y() <= box.m_high.y() &&
               box.m_low.y() <= m_high.y();
    }
    /// What both boxes share; empty when they do not overlap.
    GI_EXPORT giBox2 intersection(const giBox2& box) const;

    /// Enlarges the box to hold p, or another box; an empty box adds nothing.
    constexpr void merge(const giPoint2& p)
    {
        m_low = giPoint2(std::min(m_low.x(), p.x()), std::min(m_low.y(), p.y()));
        m_high = giPoint2(std::max(m_high.x(), p.x()), std::max(m_high.y(), p.y()));
    }
    GI_EXPORT void merge(const giBox2& box);
    /// Moves every edge outwards by the offset (inwards when negative); an empty box stays empty.
    GI_EXPORT void grow(double offset);

    constexpr bool operator==(const giBox2&) const = default;

private:
    giPoint2 m_low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    giPoint2 m_high{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};
};

/// Prints "[low, high]" or "[empty]".
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giBox2& box);
