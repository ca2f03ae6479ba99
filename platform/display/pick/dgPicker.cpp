#include "dgPicker.h"

#include "dgGraphicalPrimitive.h"
#include "dgNetworkWalk.h"
#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "giBox3.h"
#include "giTriangle.h"

#include <algorithm>
#include <utility>

namespace
{
using Point = dgPicker::Point;

// Whether no edge of the first of two convex shapes, of one point or more, parts them.
bool unparted(const Point* shape, int n, const Point* other, int n_other)
{
    for (int i = 0; i < n; ++i)
    {
        const Point& a = shape[i];
        const Point& b = shape[(i + 1) % n];
        const double nx = b.y - a.y, ny = a.x - b.x;
        const auto side = [&](const Point& point) { return nx * (point.x - a.x) + ny * (point.y - a.y); };
        double low = 0, high = 0;
        for (int k = 0; k < n; ++k)
        {
            low = std::min(low, side(shape[k]));
            high = std::max(high, side(shape[k]));
        }
        double other_low = side(other[0]), other_high = other_low;
        for (int k = 1; k < n_other; ++k)
        {
            other_low = std::min(other_low, side(other[k]));
            other_high = std::max(other_high, side(other[k]));
        }
        if (other_low > high || other_high < low)
            return false;
    }
    return true;
}

bool bounds_meet(const Point* points, int n, const giBox2& box)
{
    const auto [left, right] = std::minmax_element(points, points + n, [](auto& a, auto& b) { return a.x < b.x; });
    const auto [low, high] = std::minmax_element(points, points + n, [](auto& a, auto& b) { return a.y < b.y; });
    return left->x <= box.high().x() && right->x >= box.low().x() && low->y <= box.high().y() &&
           high->y >= box.low().y();
}

giBox2 intersection(const giBox2& a, const giBox2& b)
{
    return giBox2(std::max(a.low().x(), b.low().x()), std::max(a.low().y(), b.low().y()),
                  std::min(a.high().x(), b.high().x()), std::min(a.high().y(), b.high().y()));
}

// Cuts off what lies beyond a plane: kept are corners with sign * z <= sign * limit (Sutherland and Hodgman, 1974).
void clip(std::vector<giPoint3>& corners, double limit, int sign)
{
    const auto inside = [&](const giPoint3& point) { return sign * point.z() <= sign * limit; };
    if (std::all_of(corners.begin(), corners.end(), inside))
        return;
    const std::vector<giPoint3> whole = std::exchange(corners, {});
    for (std::size_t i = 0; i < whole.size(); ++i)
    {
        const giPoint3& a = whole[i];
        const giPoint3& b = whole[(i + 1) % whole.size()];
        if (inside(a))
            corners.push_back(a);
        if (inside(a) != inside(b))
            corners.push_back(giPoint3::interpolate(a, b, (limit - a.z()) / (b.z() - a.z())));
    }
}
}

dgPicker::dgPicker(const dgCamera& camera, const dgPickAperture& aperture, dgPickMode mode,
                   const dgPickSettings& settings, dgPickResult& result)
    : the_camera(camera), the_box(intersection(aperture.device_box(), camera.view_port_dc())),
      the_corners{{the_box.low().x(), the_box.low().y()},
                  {the_box.high().x(), the_box.low().y()},
                  {the_box.high().x(), the_box.high().y()},
                  {the_box.low().x(), the_box.high().y()}},
      the_mode(mode), the_settings(settings), the_result(result)
{
    camera.shown_depths(the_front, the_back);
}

void dgPicker::pick(const dgStructure& root)
{
    if (the_box.low().x() > the_box.high().x() || the_box.low().y() > the_box.high().y())
        return;
    dg_walk_placed(root,
                   [this](const dgGraphicalElement& element, const giXform3& to_world)
                   {
                       if (element.kind() != dgELEMENT_PRIMITIVE)
                           return true;
                       const auto& primitive = static_cast<const dgGraphicalPrimitive&>(element);
                       if (picks(primitive, to_world))
                           the_result.add(const_cast<dgGraphicalPrimitive*>(&primitive));
                       return !full();
                   });
}

bool dgPicker::full() const
{
    return the_settings.largest_count > 0 && the_result.count() >= the_settings.largest_count;
}

bool dgPicker::picks(const dgGraphicalPrimitive& primitive, const giXform3& to_world)
{
    const dgGeometry geometry = primitive.geometry();
    const int surface = geometry.topology == dgTOPOLOGY_TRIANGLES;
    if (surface ? !the_settings.surfaces : !the_settings.lines)
        return false;
    const giBox3 box = primitive.bounding_box();
    if (box.empty() || !box_meets(box, to_world))
        return false;
    return the_mode != dgPICK_EXACT || !geometry.points || features_meet(geometry, to_world);
}

// Whether the rectangle that holds the shown part of a box meets the aperture.
bool dgPicker::box_meets(const giBox3& box, const giXform3& to_world)
{
    // The shown part is the hull of the corners between the planes and of where the edges go through these.
    std::vector<Point> shown;
    for (int corner = 0; corner < 8; ++corner)
        for (int bit = 1; bit < 8; bit *= 2)
        {
            if (corner & bit)
                continue;
            the_shown_part = {box.corner(corner) * to_world * the_camera.orientation(),
                              box.corner(corner | bit) * to_world * the_camera.orientation()};
            clip(the_shown_part, the_front, 1);
            clip(the_shown_part, the_back, -1);
            for (const giPoint3& point : the_shown_part)
                shown.push_back(device(point));
        }
    return !shown.empty() && bounds_meet(shown.data(), static_cast<int>(shown.size()), the_box);
}

dgPicker::Point dgPicker::device(const giPoint3& point_view) const
{
    giPoint3 found;
    the_camera.transform(point_view, found, dgSPACE_VIEW, dgSPACE_DEVICE);
    return {found.x(), found.y()};
}

bool dgPicker::features_meet(const dgGeometry& geometry, const giXform3& to_world)
{
    const giXform3 to_view = to_world * the_camera.orientation();
    the_points_view.clear();
    the_points_view.reserve(static_cast<std::size_t>(geometry.npoints));
    for (int i = 0; i < geometry.npoints; ++i)
        the_points_view.push_back(geometry.points[i] * to_view);
    const auto n_points = static_cast<unsigned>(geometry.npoints);
    for (int i = 0; i < geometry.nfeatures; ++i)
    {
        giPoint3 corners[3];
        int n = 0;
        if (geometry.topology == dgTOPOLOGY_TRIANGLES)
        {
            for (; n < 3; ++n)
            {
                const auto node = static_cast<unsigned>(geometry.triangles[i][n]);
                corners[n] = the_points_view[node < n_points ? node : 0];
            }
        }
        else
        {
            corners[n++] = the_points_view[static_cast<std::size_t>(i)];
            if (geometry.topology == dgTOPOLOGY_LINES)
                corners[n++] = the_points_view[static_cast<std::size_t>(i) + 1];
        }
        if (meets(corners, n))
            return true;
    }
    return false;
}

// Whether the shown part of a point, a segment or a triangle meets the aperture.
bool dgPicker::meets(const giPoint3* corners_view, int n)
{
    the_shown_part.assign(corners_view, corners_view + n);
    clip(the_shown_part, the_front, 1);
    clip(the_shown_part, the_back, -1);
    constexpr int most_corners = 8; // each of the two planes adds one at most to a convex shape
    Point points[most_corners];
    int count = 0;
    for (const giPoint3& corner : the_shown_part)
        points[count++] = device(corner);
    return count > 0 && bounds_meet(points, count, the_box) && unparted(points, count, the_corners, 4);
}
