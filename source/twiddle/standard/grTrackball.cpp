#include "grTrackball.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double shortest_step = 1e-5;
}

double grTrackball::project_to_ball(const giPoint2& p) const
{
    const double squared_distance = p.vector().length_squared();
    const double distance = std::sqrt(squared_distance);
    if (distance < the_radius * 0.7071067811865476)
        return std::sqrt(the_radius * the_radius - squared_distance);
    const double at_joint = the_radius / 1.4142135623730951;
    return at_joint * at_joint / distance;
}

void grTrackball::incremental_rotation(const giPoint2& p1, const giPoint2& p2, giVector3& axis, giAngle& angle) const
{
    const giVector3 first(p1.x(), p1.y(), project_to_ball(p1));
    const giVector3 second(p2.x(), p2.y(), project_to_ball(p2));
    const double step = (second - first).length();
    if (step < shortest_step)
    {
        angle = giAngle(0);
        return;
    }
    axis = first.cross(second).unit();
    angle = giAngle(2 * std::asin(std::clamp(step / (2 * the_radius), -1.0, 1.0)));
}
