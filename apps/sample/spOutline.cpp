#include "spOutline.h"

#include <algorithm>
#include <cmath>

namespace
{
const double pi = 3.14159265358979323846;
const int least_pieces_of_a_turn = 24;

int pieces(double length, double spacing, double least)
{
    return static_cast<int>(std::ceil(std::max({length / spacing, least, 1.0}) - 1e-9));
}
}

spOutline spOutline::circle(const giPoint2& centre, double radius, double spacing)
{
    spOutline outline;
    outline.add_arc(centre, radius, 0, 2 * pi, spacing);
    outline.the_points.pop_back();
    outline.measure();
    return outline;
}

spOutline spOutline::rectangle(const giPoint2& centre, double width, double height, double corner, double spacing)
{
    const giVector2 x(width / 2, 0), y(0, height / 2);
    return rounded({centre + x - y, centre + x + y, centre - x + y, centre - x - y}, corner, spacing);
}

spOutline spOutline::hexagon(const giPoint2& centre, double across_flats, double corner, double spacing)
{
    std::vector<giPoint2> corners;
    for (int number = 0; number < 6; ++number)
        corners.push_back(centre + giVector2(std::cos(number * pi / 3), std::sin(number * pi / 3)) *
                                       (across_flats / std::sqrt(3.0)));
    return rounded(corners, corner, spacing);
}

giPoint3 spOutline::at(int index, double offset, double z) const
{
    const outline_point& p = the_points[wrapped(index)];
    const giPoint2 moved = p.position + p.outwards * offset;
    return giPoint3(moved.x(), moved.y(), z);
}

spOutline spOutline::rounded(const std::vector<giPoint2>& corners, double radius, double spacing)
{
    spOutline outline;
    const std::size_t count = corners.size();
    for (std::size_t number = 0; number < count; ++number)
    {
        const giVector2 in = (corners[number] - corners[(number + count - 1) % count]).unit();
        const giVector2 out = (corners[(number + 1) % count] - corners[number]).unit();
        const giAngle turn = in.angle_to(out);
        const giPoint2 tangent_point = corners[number] - in * (radius * (turn * 0.5).tan());
        const giPoint2 centre = tangent_point + in.perpendicular() * radius;
        const giVector2 first = -in.perpendicular();
        outline.add_arc(centre, radius, std::atan2(first.y(), first.x()), turn.radians(), spacing);
    }

    // The straight pieces between the arcs; those of a slot's round ends have no length.
    spOutline cut;
    for (int index = 0; index < outline.count(); ++index)
    {
        const outline_point& p = outline.the_points[static_cast<std::size_t>(index)];
        const outline_point& q = outline.the_points[outline.wrapped(index + 1)];
        const bool straight = std::abs(p.outwards.cross(q.outwards)) < 1e-9;
        if (straight && p.position.coincident(q.position, 1e-9))
            continue;
        const int steps = straight ? pieces(p.position.distance(q.position), spacing, 1) : 1;
        for (int step = 0; step < steps; ++step)
            cut.the_points.push_back(
                {giPoint2::interpolate(p.position, q.position, static_cast<double>(step) / steps), p.outwards});
    }
    cut.measure();
    return cut;
}

void spOutline::add_arc(const giPoint2& centre, double radius, double start_angle, double angle, double spacing)
{
    const int steps = pieces(radius * angle, spacing, least_pieces_of_a_turn * angle / (2 * pi));
    for (int step = 0; step <= steps; ++step)
    {
        const double a = start_angle + angle * step / steps;
        const giVector2 outwards(std::cos(a), std::sin(a));
        the_points.push_back({centre + outwards * radius, outwards});
    }
}

void spOutline::measure()
{
    the_distances.assign(1, 0.0);
    for (int index = 0; index < count(); ++index)
        the_distances.push_back(the_distances.back() + at(index, 0, 0).distance(at(index + 1, 0, 0)));
}
