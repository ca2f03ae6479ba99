#include "dgViewVolume.h"

#include "giBox2.h"
#include "giPlane.h"
#include "giXform3.h"

#include <algorithm>
#include <cmath>

namespace
{
// Drivers round coordinates and matrices to 24 bits and sum up four products; a local origin may triple the terms.
constexpr double largest_error = 1.0 / (1 << 19);

// Pixels by which snapping to the driver's grid and the rules of coverage may move an outline, and more.
constexpr double outline_pixels = 2;
}

dgViewVolume::dgViewVolume(const giXform3& to_clip, double reach, double width, double height, bool depths)
{
    const double pixels = 2 * (reach + outline_pixels);
    const double x = 1 + pixels / std::max(width, 1.0), y = 1 + pixels / std::max(height, 1.0);
    *this = dgViewVolume(to_clip, giBox2(-x, -y, x, y), depths);
}

dgViewVolume::dgViewVolume(const giXform3& to_clip, const giBox2& part, bool depths)
{
    add(to_clip, 0, 1, -part.low().x());
    add(to_clip, 0, -1, part.high().x());
    add(to_clip, 1, 1, -part.low().y());
    add(to_clip, 1, -1, part.high().y());
    if (!depths)
        return;
    add(to_clip, 2, 1, 1);
    add(to_clip, 2, -1, 1);
}

// The points with limit * w + sign * (x, y or z) >= 0.
void dgViewVolume::add(const giXform3& to_clip, int column, double sign, double limit)
{
    Plane& plane = the_planes[the_count++];
    for (int row = 0; row < 4; ++row)
    {
        const double along = sign * to_clip(row, column), weight = limit * to_clip(row, 3);
        (row < 3 ? plane.normal[row] : plane.offset) = weight + along;
        (row < 3 ? plane.sizes[row] : plane.offset_size) = std::abs(weight) + std::abs(along);
    }
}

void dgViewVolume::cut(const giXform3& to_world, const giPlane& plane)
{
    Plane& section = the_planes[the_count++];
    for (int row = 0; row < 4; ++row)
    {
        double& distance = row < 3 ? section.normal[row] : section.offset;
        double& size = row < 3 ? section.sizes[row] : section.offset_size;
        distance = size = 0;
        for (int axis = 0; axis < 3; ++axis)
        {
            const double moved = row < 3 ? 0 : plane.point()[axis], place = to_world(row, axis);
            distance += (place - moved) * plane.normal()[axis];
            size += (std::abs(place) + std::abs(moved)) * std::abs(plane.normal()[axis]);
        }
    }
}

dgBoxTest dgViewVolume::test(const giBox3& box) const
{
    const giPoint3 middle = box.middle();
    const double middles[] = {middle.x(), middle.y(), middle.z()};
    const double halves[] = {0.5 * box.width(), 0.5 * box.height(), 0.5 * box.depth()};
    dgBoxTest found = dgBOX_INSIDE;
    for (int i = 0; i < the_count; ++i)
    {
        const Plane& plane = the_planes[i];
        double distance = plane.offset, extent = 0;
        for (int axis = 0; axis < 3; ++axis)
        {
            distance += plane.normal[axis] * middles[axis];
            extent += std::abs(plane.normal[axis]) * halves[axis];
        }
        // By how much rounding may be off; most boxes are told without it.
        const auto error = [&]
        {
            double size = plane.offset_size;
            for (int axis = 0; axis < 3; ++axis)
                size += plane.sizes[axis] * (std::abs(middles[axis]) + halves[axis]);
            return largest_error * size;
        };
        if (distance + extent < 0 && distance + extent + error() < 0)
            return dgBOX_OUTSIDE;
        if (found == dgBOX_INSIDE && !(distance - extent >= 0 && distance - extent - error() >= 0))
            found = dgBOX_PARTLY;
    }
    return found;
}
