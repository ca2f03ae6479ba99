#pragma once

#include "giBox3.h"
#include "giExport.h"
#include "giPoint3.h"

#include <cstddef>
#include <utility>
#include <vector>

class giXform3;

/// A contiguous array of points that remembers its bounding box until a point changes.
class giBoxArrPoint3
{
public:
    giBoxArrPoint3() = default;
    /// Takes over an array of points.
    explicit giBoxArrPoint3(std::vector<giPoint3>&& points) : m_points(std::move(points)) {}

    int count() const { return static_cast<int>(m_points.size()); }
    /// The point at index, 0 to count() - 1.
    const giPoint3& operator[](int index) const { return m_points[static_cast<std::size_t>(index)]; }
    /// count() points one after the other; good until the next change.
    const giPoint3* data() const { return m_points.data(); }
    const giPoint3* begin() const { return m_points.data(); }
    const giPoint3* end() const { return m_points.data() + m_points.size(); }

    /// Stores p, growing the array to hold the index; points in between are the origin.
    GI_EXPORT void set(int index, const giPoint3& p);
    GI_EXPORT void append(const giPoint3& p);
    /// Drops the points from index new_count on; never grows.
    GI_EXPORT void truncate(int new_count);
    void reserve(int expected_count) { m_points.reserve(static_cast<std::size_t>(expected_count)); }
    GI_EXPORT void transform(const giXform3& xform);
    /// Gives the points away and leaves none; together with the constructor above, to change them as one array.
    std::vector<giPoint3> release()
    {
        m_box_known = false;
        return std::exchange(m_points, {});
    }

    /// The box around all points, found when first asked for after a change; empty when there are none.
    GI_EXPORT const giBox3& box() const;

    bool operator==(const giBoxArrPoint3& array) const { return m_points == array.m_points; }

private:
    std::vector<giPoint3> m_points;
    mutable giBox3 m_box;
    mutable bool m_box_known = false;
};

static_assert(sizeof(giPoint3) == 3 * sizeof(double), "renderers upload arrays of points as they are");
