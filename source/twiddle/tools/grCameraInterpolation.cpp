#include "grCameraInterpolation.h"

#include "dgView.h"
#include "giXform3.h"
#include "grPaperMove.h"

#include <algorithm>
#include <cmath>

namespace
{
double between(double from, double to, double share)
{
    return from + (to - from) * share;
}

// Equal factors in equal shares, so that coming closer looks equally fast all the way; a size of 0 has no factor.
double between_sizes(double from, double to, double share)
{
    return from > 0 && to > 0 ? from * std::pow(to / from, share) : between(from, to, share);
}

giBox2 between_windows(const giBox2& from, const giBox2& to, double share)
{
    const giPoint2 middle = giPoint2::interpolate(from.middle(), to.middle(), share);
    const double half_width = 0.5 * between_sizes(from.width(), to.width(), share);
    const double half_height = 0.5 * between_sizes(from.height(), to.height(), share);
    return giBox2(middle.x() - half_width, middle.y() - half_height, middle.x() + half_width, middle.y() + half_height);
}

giXform3 turn_of(const giXform3& xform)
{
    return xform * giXform3::translation(giVector3(-xform(3, 0), -xform(3, 1), -xform(3, 2)));
}

// Axis and angle, 0 to pi, of a rotation by way of its quaternion (Shepperd's method): the largest component is found
// first, so that half turns lose no digits.
void axis_and_angle(const giXform3& m, giVector3& axis, giAngle& angle)
{
    const double squares[4] = {1 + m(0, 0) + m(1, 1) + m(2, 2), 1 + m(0, 0) - m(1, 1) - m(2, 2),
                               1 - m(0, 0) + m(1, 1) - m(2, 2), 1 - m(0, 0) - m(1, 1) + m(2, 2)};
    const double x = m(1, 2) - m(2, 1), y = m(2, 0) - m(0, 2), z = m(0, 1) - m(1, 0); // 4 w (x, y, z)
    const double xy = m(0, 1) + m(1, 0), yz = m(1, 2) + m(2, 1), zx = m(2, 0) + m(0, 2);
    const auto largest = std::max_element(std::begin(squares), std::end(squares)) - std::begin(squares);
    double w = 0;
    giVector3 v;
    switch (largest)
    {
    case 0:
        w = squares[0];
        v = giVector3(x, y, z);
        break;
    case 1:
        w = x;
        v = giVector3(squares[1], xy, zx);
        break;
    case 2:
        w = y;
        v = giVector3(xy, squares[2], yz);
        break;
    default:
        w = z;
        v = giVector3(zx, yz, squares[3]);
        break;
    }
    // A quaternion and its negative are one rotation; that with w above 0 turns by the shorter way.
    if (w < 0)
    {
        w = -w;
        v = -v;
    }
    angle = giAngle(2 * std::atan2(v.length(), w));
    axis = v.unit();
}
}

grCameraInterpolation::grCameraInterpolation(const grSavedCameraPosition& from, const grSavedCameraPosition& to)
    : the_from(from), the_to(to), the_from_middle(from.camera().view_centre()), the_to_middle(to.camera().view_centre())
{
    axis_and_angle(turn_of(from.camera().orientation()).inverse() * turn_of(to.camera().orientation()), the_axis,
                   the_angle);
}

void grCameraInterpolation::apply(dgView& view, double share) const
{
    if (share >= 1)
    {
        the_to.restore(view);
        return;
    }
    move(view, share);
    view.camera().world2view_altered();
}

void grCameraInterpolation::move(dgView& view, double share) const
{
    const grPaperMove paper(view);
    const dgCamera& from = the_from.camera();
    const dgCamera& to = the_to.camera();
    dgCamera& camera = view.camera();
    camera.view_window(between_windows(from.view_window(), to.view_window(), share));
    camera.front_back_plane(between(from.front_plane(), to.front_plane(), share),
                            between(from.back_plane(), to.back_plane(), share));
    if (from.projection() == dgPROJECTION_PERSPECTIVE && to.projection() == dgPROJECTION_PERSPECTIVE)
        camera.projection_reference_point(
            giPoint3::interpolate(from.projection_reference_point(), to.projection_reference_point(), share));

    // The turn first; then the world point meant for the middle of the window is moved there.
    const giXform3 turn =
        turn_of(from.orientation()) * giXform3::rotation_about_unit(giAngle(the_angle.radians() * share), the_axis);
    const giPoint2 middle = camera.view_window().middle();
    const giPoint3 shown = giPoint3::interpolate(the_from_middle, the_to_middle, share) * turn;
    camera.orientation(turn * giXform3::translation(giPoint3(middle.x(), middle.y(), 0) - shown));
}
