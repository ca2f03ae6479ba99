#pragma once

#include "giExport.h"
#include "giPlane.h"
#include "giPoint2.h"
#include "giPoint3.h"
#include "giVector3.h"

#include <iosfwd>

/// A plane with an origin and two axes at right angles, and so 2-D coordinates of its own. The world's x-y plane
/// on construction.
class giWorkplane3
{
public:
    constexpr giWorkplane3() = default;
    /// The x axis gives the first direction; the y axis only the side on which the second lies, so that it need
    /// not be at right angles. Both may have any length; they must not be parallel.
    GI_EXPORT giWorkplane3(const giPoint3& origin, const giVector3& x_axis, const giVector3& y_axis);
    /// On a plane, with the normal and the point of that one and whatever x axis.
    GI_EXPORT explicit giWorkplane3(const giPlane& plane);

    constexpr const giPoint3& origin() const { return m_origin; }
    /// Of length 1 and at right angles to each other.
    constexpr const giVector3& x_axis() const { return m_x_axis; }
    constexpr const giVector3& y_axis() const { return m_y_axis; }
    constexpr giVector3 normal() const { return m_x_axis.cross(m_y_axis); }
    giPlane plane() const { return giPlane(m_origin, normal()); }

    /// The workplane coordinates of p's projection along the normal.
    constexpr giPoint2 to_workplane(const giPoint3& p) const
    {
        return giPoint2((p - m_origin).dot(m_x_axis), (p - m_origin).dot(m_y_axis));
    }
    /// The world position of a point given in workplane coordinates.
    constexpr giPoint3 to_world(const giPoint2& p) const { return m_origin + m_x_axis * p.x() + m_y_axis * p.y(); }

    constexpr bool operator==(const giWorkplane3&) const = default;

private:
    giPoint3 m_origin;
    giVector3 m_x_axis{1, 0, 0};
    giVector3 m_y_axis{0, 1, 0};
};

/// Prints the origin and both axes.
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giWorkplane3& workplane);
