#pragma once

#include "giPoint3.h"

#include <span>
#include <vector>

/// A growing list of polylines. It is no element: to draw a line of it, copy its points into a dgPolyline.
class dgMultiline
{
public:
    /// Room for initial lines of two points is taken at once; growth is kept for callers that state it and steers
    /// nothing.
    explicit dgMultiline(int initial = 0, [[maybe_unused]] int growth = 1)
    {
        the_ends.reserve(static_cast<std::size_t>(initial));
        the_points.reserve(2 * static_cast<std::size_t>(initial));
    }

    int count() const { return static_cast<int>(the_ends.size()); }

    /// Appends a line.
    void add(std::span<const giPoint3> points)
    {
        the_points.insert(the_points.end(), points.begin(), points.end());
        the_ends.push_back(the_points.size());
    }

    /// The points of line i, good until the list next changes.
    std::span<const giPoint3> line(int i) const
    {
        const std::size_t start = i > 0 ? the_ends[static_cast<std::size_t>(i) - 1] : 0;
        return {the_points.data() + start, the_ends[static_cast<std::size_t>(i)] - start};
    }

    /// Drops all lines; their room is kept.
    void clear()
    {
        the_points.clear();
        the_ends.clear();
    }

private:
    std::vector<giPoint3> the_points;
    std::vector<std::size_t> the_ends; // per line, the position behind its last point
};
