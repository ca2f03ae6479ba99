#include "spProfile.h"

#include <algorithm>
#include <cmath>

namespace
{
const double pi = 3.14159265358979323846;
const double least_steps_of_a_quarter = 4;

giVector2 right_of(const giVector2& direction)
{
    return -direction.perpendicular();
}

int steps_for(double length, double spacing, double least)
{
    return static_cast<int>(std::ceil(std::max({length / spacing, least, 1.0}) - 1e-9));
}
}

spProfile& spProfile::line_to(double offset, double height)
{
    const giPoint2 end(offset, height);
    const int steps = steps_for(the_position.distance(end), the_spacing, 1);
    const giVector2 normal = right_of((end - the_position).unit());
    piece line;
    for (int step = 0; step <= steps; ++step)
    {
        line.points.push_back(giPoint2::interpolate(the_position, end, static_cast<double>(step) / steps));
        line.normals.push_back(normal);
    }
    the_pieces.push_back(line);
    the_position = end;
    return *this;
}

spProfile& spProfile::arc_to(double offset, double height, const giPoint2& centre)
{
    const giPoint2 end(offset, height);
    const giVector2 first = the_position - centre, last = end - centre;
    const double angle = first.angle_to(last).radians(), start = std::atan2(first.y(), first.x());
    const double radius = first.length();
    const int steps =
        steps_for(radius * std::abs(angle), the_spacing, least_steps_of_a_quarter * std::abs(angle) / (pi / 2));
    // Counter-clockwise around the centre the air on the right is on the far side of the arc.
    const double side = angle > 0 ? 1 : -1;
    piece arc;
    for (int step = 0; step <= steps; ++step)
    {
        const double a = start + angle * step / steps;
        const giVector2 outwards(std::cos(a), std::sin(a));
        arc.points.push_back(centre + outwards * radius);
        arc.normals.push_back(outwards * side);
    }
    // The ends are exact, so that neighbours meet without a gap.
    arc.points.front() = the_position;
    arc.points.back() = end;
    the_pieces.push_back(arc);
    the_position = end;
    return *this;
}
