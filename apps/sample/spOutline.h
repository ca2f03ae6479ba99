#pragma once

#include "giPoint2.h"
#include "giPoint3.h"
#include "giVector3.h"

#include <cstddef>
#include <vector>

/// A closed smooth convex curve in the x-y plane, counter-clockwise, cut into points: what a part's walls follow.
class spOutline
{
public:
    /// Cut so that pieces are about spacing long, and a whole turn of a curve has at least 24.
    static spOutline circle(const giPoint2& centre, double radius, double spacing);
    /// A rectangle with rounded corners; a corner radius of half the height makes it a slot.
    static spOutline rectangle(const giPoint2& centre, double width, double height, double corner, double spacing);
    static spOutline hexagon(const giPoint2& centre, double across_flats, double corner, double spacing);

    int count() const { return static_cast<int>(the_points.size()); }
    /// Point number index, moved outwards by offset, at height z. Numbers wrap around.
    giPoint3 at(int index, double offset, double z) const;
    /// The direction out of the curve at a point, of length 1. Numbers wrap around.
    giVector2 outwards(int index) const { return the_points[wrapped(index)].outwards; }
    /// Length along the curve from point 0; numbers run to count(), which gives the whole length.
    double distance(int index) const { return the_distances[static_cast<std::size_t>(index)]; }

private:
    struct outline_point
    {
        giPoint2 position;
        giVector2 outwards;
    };

    std::size_t wrapped(int index) const { return static_cast<std::size_t>(index) % the_points.size(); }
    /// Rounds the corners of a convex polygon, given counter-clockwise.
    static spOutline rounded(const std::vector<giPoint2>& corners, double radius, double spacing);
    void add_arc(const giPoint2& centre, double radius, double start_angle, double angle, double spacing);
    void measure();

    std::vector<outline_point> the_points;
    std::vector<double> the_distances;
};
