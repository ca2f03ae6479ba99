#pragma once

#include "giExport.h"
#include "giPoint3.h"
#include "giVector3.h"

#include <iosfwd>

/// A plane with a positive side, the one its normal points to. The plane z = 0 on construction.
class giPlane
{
public:
    constexpr giPlane() = default;
    /// The plane through the point; the normal may have any length but 0.
    GI_EXPORT giPlane(const giPoint3& point, const giVector3& normal);

    constexpr const giPoint3& point() const { return m_point; }
    /// Of length 1.
    constexpr const giVector3& normal() const { return m_normal; }

    /// The signed distance of p in model units, positive on the normal's side.
    constexpr double distance(const giPoint3& p) const { return (p - m_point).dot(m_normal); }
    /// The point of the plane nearest to p.
    constexpr giPoint3 project(const giPoint3& p) const { return p - m_normal * distance(p); }

    constexpr bool operator==(const giPlane&) const = default;

private:
    giPoint3 m_point;
    giVector3 m_normal{0, 0, 1};
};

/// Prints the point and the normal.
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giPlane& plane);
