#include "dgCamera.h"

#include "coCallList.h"
#include "giAngle.h"
#include "giBox3.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double fit_margin = 1.05;

// Limits of zooming, of the smaller and the larger side of the window.
constexpr double smallest_window = 1e-30;
constexpr double smallest_window_share = 1e-15; // of the distance of its middle
constexpr double largest_window = 1e30;

double half_diagonal(const giBox3& box)
{
    return 0.5 * box.diagonal().length();
}

// How far from the middle of the view plane the shadow of a sphere about it reaches, seen from an eye that lies beside
// the middle by an offset of 0 or more, at a depth beyond the radius: there the sight line is at the radius from the
// middle.
double half_shadow(double radius, double offset, double depth)
{
    const double square = radius * radius, a = depth * depth - square, b = square * offset;
    return (b + std::sqrt(b * b + a * square * (offset * offset + depth * depth))) / a;
}

// A window without size would make every later division meaningless.
double positive(double size)
{
    return size > 0 ? size : 1e-9;
}

}

dgCamera::dgCamera()
    : the_view_window(-1, -1, 1, 1), the_window_extent(2, 2), the_view_port(0, 0, 511, 511), the_window_size(512, 512),
      the_reference_point(0, 0, 5)
{}

dgCamera::dgCamera(const dgCamera& other)
{
    *this = other;
}

dgCamera& dgCamera::operator=(const dgCamera& other)
{
    the_world_to_view = other.the_world_to_view;
    the_view_window = other.the_view_window;
    the_window_middle = other.the_window_middle;
    the_window_extent = other.the_window_extent;
    the_view_port = other.the_view_port;
    the_window_size = other.the_window_size;
    the_projection = other.the_projection;
    the_reference_point = other.the_reference_point;
    the_front = other.the_front;
    the_back = other.the_back;
    the_section = other.the_section;
    return *this;
}

void dgCamera::orientation(const giXform3& world_to_view)
{
    the_world_to_view = world_to_view;
}

void dgCamera::orientation(const giPoint3& eye, const giVector3& direction, const giVector3& up)
{
    const giVector3 z = (-direction).unit();
    const giVector3 x = up.cross(z).unit();
    const giVector3 y = z.cross(x);
    const giVector3 e = eye.vector();
    the_world_to_view = giXform3(
        {x.x(), y.x(), z.x(), 0, x.y(), y.y(), z.y(), 0, x.z(), y.z(), z.z(), 0, -e.dot(x), -e.dot(y), -e.dot(z), 1});
}

void dgCamera::orientation(const giXform3& world_to_view, giPoint3* eye, giVector3* direction, giVector3* up)
{
    const giXform3 view_to_world = world_to_view.inverse();
    if (eye)
        *eye = giPoint3() * view_to_world;
    if (direction)
        *direction = giVector3(0, 0, -1) * view_to_world;
    if (up)
        *up = giVector3(0, 1, 0) * view_to_world;
}

void dgCamera::world2view_altered()
{
    if (the_call_list)
        the_call_list->fire(DG_WORLD2VIEW_CHANGED);
}

void dgCamera::reset_orientation()
{
    the_world_to_view = giXform3();
}

void dgCamera::rotate_view(gi_Axis axis, double radians)
{
    const giPoint3 centre_view(the_window_middle.x(), the_window_middle.y(), 0);
    the_world_to_view = the_world_to_view * giXform3::rotation(giAngle(radians), axis, centre_view);
    world2view_altered();
}

double dgCamera::scale() const
{
    return 1 / positive(the_window_extent.y());
}

void dgCamera::scale(double scale)
{
    zoom(this->scale() / scale);
}

void dgCamera::zoom(double factor)
{
    const double smaller = std::min(the_window_extent.x(), the_window_extent.y());
    const double larger = std::max(the_window_extent.x(), the_window_extent.y());
    if (!(factor > 0) || !(smaller > 0))
        return;
    const double distance = std::max(std::abs(the_window_middle.x()), std::abs(the_window_middle.y()));
    const double closest = std::max(smallest_window, smallest_window_share * distance) / smaller;
    factor = std::max(std::min(factor, largest_window / larger), closest);
    set_window(the_window_middle, the_window_extent * factor);
}

void dgCamera::view_window(const giBox2& window)
{
    the_view_window = window;
    the_window_middle = window.middle();
    the_window_extent = giVector2(window.width(), window.height());
}

void dgCamera::set_window(const giPoint2& middle, const giVector2& size)
{
    const giVector2 half = size * 0.5;
    the_view_window =
        giBox2(middle.x() - half.x(), middle.y() - half.y(), middle.x() + half.x(), middle.y() + half.y());
    the_window_middle = middle;
    the_window_extent = size;
}

void dgCamera::pan_view(const giVector2& share)
{
    const double units_per_pixel = 1 / pixels_per_unit();
    const double dx = share.x() * view_port_width() * units_per_pixel;
    const double dy = share.y() * view_port_height() * units_per_pixel;
    set_window(giPoint2(the_window_middle.x() - dx, the_window_middle.y() - dy), the_window_extent);
}

giPoint3 dgCamera::view_centre() const
{
    return giPoint3(the_window_middle.x(), the_window_middle.y(), 0) * the_world_to_view.inverse();
}

double dgCamera::view_port_width() const
{
    return std::max(the_view_port.width(), 0.0) + 1;
}

double dgCamera::view_port_height() const
{
    return std::max(the_view_port.height(), 0.0) + 1;
}

double dgCamera::pixels_per_unit() const
{
    return std::min(view_port_width() / positive(the_window_extent.x()),
                    view_port_height() / positive(the_window_extent.y()));
}

void dgCamera::transform(const giPoint3& point, giPoint3& result, dgCameraSpace from, dgCameraSpace to) const
{
    giPoint3 p = point;
    if (from == to)
    {
        result = p;
        return;
    }
    const giPoint2& window_middle = the_window_middle;
    const giPoint2 port_middle = the_view_port.middle();
    const double scale = pixels_per_unit();
    const giPoint3& eye = the_reference_point;

    if (from == dgSPACE_WORLD)
        p = p * the_world_to_view;
    else if (from == dgSPACE_DEVICE)
    {
        double x = window_middle.x() + (p.x() - port_middle.x()) / scale;
        double y = window_middle.y() + (p.y() - port_middle.y()) / scale;
        if (the_projection == dgPROJECTION_PERSPECTIVE)
        {
            const double w = (eye.z() - p.z()) / eye.z();
            x = eye.x() + (x - eye.x()) * w;
            y = eye.y() + (y - eye.y()) * w;
        }
        p = giPoint3(x, y, p.z());
    }

    if (to == dgSPACE_WORLD)
        p = p * the_world_to_view.inverse();
    else if (to == dgSPACE_DEVICE)
    {
        double x = p.x();
        double y = p.y();
        if (the_projection == dgPROJECTION_PERSPECTIVE)
        {
            const double w = (eye.z() - p.z()) / eye.z();
            x = eye.x() + (x - eye.x()) / w;
            y = eye.y() + (y - eye.y()) / w;
        }
        p = giPoint3(port_middle.x() + (x - window_middle.x()) * scale,
                     port_middle.y() + (y - window_middle.y()) * scale, p.z());
    }
    result = p;
}

void dgCamera::view_bounding_box(const giBox3& box, dgBoundingViewType type)
{
    if (box.empty())
        return;
    const giPoint3 middle = box.middle() * the_world_to_view;
    the_world_to_view = the_world_to_view * giXform3::translation(-middle.vector());

    const double radius = half_diagonal(box);
    if (the_projection == dgPROJECTION_PERSPECTIVE && radius > 0)
        place_eye(radius);
    const giPoint3& eye = the_reference_point;
    double half_width = radius;
    double half_height = radius;
    if (type == dgBOUNDING_VIEW_BOX && the_projection == dgPROJECTION_PARALLEL)
    {
        const giBox3 seen = box.transform(the_world_to_view);
        half_width = 0.5 * seen.width();
        half_height = 0.5 * seen.height();
    }
    else if (type == dgBOUNDING_VIEW_BOX)
    {
        half_width = half_height = 0;
        for (int i = 0; i < 8; ++i)
        {
            // Where the sight line through the corner meets the view plane.
            const giPoint3 corner = box.corner(i) * the_world_to_view;
            const giPoint3 seen = eye + (corner - eye) * (eye.z() / (eye.z() - corner.z()));
            half_width = std::max(half_width, std::abs(seen.x()));
            half_height = std::max(half_height, std::abs(seen.y()));
        }
    }
    else if (the_projection == dgPROJECTION_PERSPECTIVE)
    {
        half_width = half_shadow(radius, std::abs(eye.x()), eye.z());
        half_height = half_shadow(radius, std::abs(eye.y()), eye.z());
    }
    // Both sides get the proportions of the viewport, so that the window is what is seen.
    const double aspect = view_port_width() / view_port_height();
    half_height = positive(std::max(half_height, half_width / aspect)) * fit_margin;
    half_width = half_height * aspect;
    view_window(giBox2(-half_width, -half_height, half_width, half_height));
    clip_bounding_box(box, dgBOUNDING_VIEW_SPHERE);
}

// The eye stays where a sphere about the middle of the view plane is well seen from, and moves to such a place
// otherwise.
void dgCamera::place_eye(double radius)
{
    constexpr double nearest = 2, farthest = 50, usual = 5; // radii
    const double depth = the_reference_point.z();
    if (depth >= nearest * radius && depth <= farthest * radius)
        return;
    const double share = usual * radius / depth;
    the_reference_point = giPoint3(the_reference_point.x() * share, the_reference_point.y() * share, usual * radius);
}

void dgCamera::clip_bounding_box(const giBox3& box, dgBoundingViewType type)
{
    if (box.empty())
        return;
    if (type == dgBOUNDING_VIEW_SPHERE)
    {
        const double middle = (box.middle() * the_world_to_view).z();
        const double radius = positive(half_diagonal(box)) * 1.0001;
        front_back_plane(middle + radius, middle - radius);
        return;
    }
    const giBox3 seen = box.transform(the_world_to_view);
    const double slack = positive(half_diagonal(box)) * 1e-4; // a flat box needs room between its planes too
    front_back_plane(seen.high().z() + slack, seen.low().z() - slack);
}

void dgCamera::front_back_plane(double front, double back)
{
    the_front = front;
    the_back = back;
}

void dgCamera::shown_depths(double& front, double& back) const
{
    front = the_front;
    back = the_back;
    if (the_projection == dgPROJECTION_PARALLEL)
        return;
    front = std::min(front, 0.999 * the_reference_point.z());
    back = std::min(back, front - positive(1e-6 * the_reference_point.z()));
}

giXform3 dgCamera::projection_transform() const
{
    const giPoint2& middle = the_window_middle;
    const double scale = pixels_per_unit();
    const double sx = 2 * scale / view_port_width();
    const double sy = 2 * scale / view_port_height();
    double front, back;
    shown_depths(front, back);
    if (the_projection == dgPROJECTION_PARALLEL)
    {
        const double depth = positive(front - back);
        return giXform3({sx, 0, 0, 0, 0, sy, 0, 0, 0, 0, -2 / depth, 0, -sx * middle.x(), -sy * middle.y(),
                         (front + back) / depth, 1});
    }
    // With w = 1 - z / eye.z: x' w = sx (x - middle.x + z (middle.x - eye.x) / eye.z), and z' w = a + b z with z' = -1
    // on the front plane and 1 on the back one.
    const giPoint3& eye = the_reference_point;
    const double w_front = 1 - front / eye.z();
    const double w_back = 1 - back / eye.z();
    const double b = (w_front + w_back) / (back - front);
    const double a = w_back - b * back;
    return giXform3({sx, 0, 0, 0, 0, sy, 0, 0, sx * (middle.x() - eye.x()) / eye.z(),
                     sy * (middle.y() - eye.y()) / eye.z(), b, -1 / eye.z(), -sx * middle.x(), -sy * middle.y(), a, 1});
}
