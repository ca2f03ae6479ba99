#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "dgPickSettings.h"

#include "dgCamera.h"
#include "dgGraphicalPrimitive.h"
#include "dgRenderer.h"
#include "dgStructure.h"
#include "dgTransform.h"
#include "dgView.h"
#include "dgWorldTransform.h"
#include "giBox3.h"
#include "giPoint3.h"
#include "giTriangle.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace
{
struct Point
{
    double x, y;
};

// Whether a segment or a triangle of device points meets a box: no edge of either parts the two.
int parted(const Point* points, int n, const Point* corners, int n_corners)
{
    for (int i = 0; i < n; ++i)
    {
        const Point& a = points[i];
        const Point& b = points[(i + 1) % n];
        const double nx = b.y - a.y, ny = a.x - b.x;
        double low = 0, high = 0, corner_low = 0, corner_high = 0;
        for (int k = 0; k < n; ++k)
        {
            const double side = nx * (points[k].x - a.x) + ny * (points[k].y - a.y);
            low = std::min(low, side);
            high = std::max(high, side);
        }
        for (int k = 0; k < n_corners; ++k)
        {
            const double side = nx * (corners[k].x - a.x) + ny * (corners[k].y - a.y);
            corner_low = k ? std::min(corner_low, side) : side;
            corner_high = k ? std::max(corner_high, side) : side;
        }
        if (corner_low > high || corner_high < low)
            return 1;
    }
    return 0;
}

class Picker
{
public:
    Picker(const dgView& view, const dgPickAperture& aperture, dgPickMode mode, dgPickResult& result)
        : the_camera(view.camera()), the_box(aperture.device_box()), the_mode(mode),
          the_settings(view.renderer()->pick_settings()),
          the_result(result), the_corners{{the_box.low().x(), the_box.low().y()},
                                          {the_box.high().x(), the_box.low().y()},
                                          {the_box.high().x(), the_box.high().y()},
                                          {the_box.low().x(), the_box.high().y()}}
    {}

    int full() const { return the_settings.largest_count > 0 && the_result.count() >= the_settings.largest_count; }

    void try_primitive(const dgGraphicalPrimitive& primitive, const giXform3& to_world)
    {
        const dgGeometry geometry = primitive.geometry();
        const int surface = geometry.topology == dgTOPOLOGY_TRIANGLES;
        if (surface ? !the_settings.surfaces : !the_settings.lines)
            return;
        const giBox3 box = primitive.bounding_box();
        if (box.empty() || !box_meets(box, to_world))
            return;
        const int exact = the_mode == dgPICK_EXACT && geometry.points;
        if (!exact || features_meet(geometry, to_world))
            the_result.add(const_cast<dgGraphicalPrimitive*>(&primitive));
    }

private:
    Point device(const giPoint3& point, const giXform3& to_world) const
    {
        giPoint3 found;
        the_camera.transform(point * to_world, found, dgSPACE_WORLD, dgSPACE_DEVICE);
        return {found.x(), found.y()};
    }
    int box_meets(const giBox3& box, const giXform3& to_world) const
    {
        Point low = device(box.corner(0), to_world), high = low;
        for (int i = 1; i < 8; ++i)
        {
            const Point corner = device(box.corner(i), to_world);
            low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
            high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
        }
        return low.x <= the_box.high().x() && high.x >= the_box.low().x() && low.y <= the_box.high().y() &&
               high.y >= the_box.low().y();
    }
    int meets(const Point* points, int n) const
    {
        double low_x = points[0].x, high_x = low_x, low_y = points[0].y, high_y = low_y;
        for (int i = 1; i < n; ++i)
        {
            low_x = std::min(low_x, points[i].x);
            high_x = std::max(high_x, points[i].x);
            low_y = std::min(low_y, points[i].y);
            high_y = std::max(high_y, points[i].y);
        }
        if (low_x > the_box.high().x() || high_x < the_box.low().x() || low_y > the_box.high().y() ||
            high_y < the_box.low().y())
            return 0;
        return n == 1 || !parted(points, n, the_corners, 4);
    }
    int features_meet(const dgGeometry& geometry, const giXform3& to_world) const
    {
        std::vector<Point> points;
        points.reserve(static_cast<std::size_t>(geometry.npoints));
        for (int i = 0; i < geometry.npoints; ++i)
            points.push_back(device(geometry.points[i], to_world));
        const auto n_points = static_cast<unsigned>(geometry.npoints);
        for (int i = 0; i < geometry.nfeatures; ++i)
        {
            if (geometry.topology != dgTOPOLOGY_TRIANGLES)
            {
                if (meets(&points[static_cast<std::size_t>(i)], geometry.topology == dgTOPOLOGY_LINES ? 2 : 1))
                    return 1;
                continue;
            }
            Point corners[3];
            for (int k = 0; k < 3; ++k)
            {
                const auto node = static_cast<unsigned>(geometry.triangles[i][k]);
                corners[k] = points[node < n_points ? node : 0];
            }
            if (meets(corners, 3))
                return 1;
        }
        return 0;
    }

    const dgCamera& the_camera;
    giBox2 the_box;
    dgPickMode the_mode;
    dgPickSettings the_settings;
    dgPickResult& the_result;
    Point the_corners[4];
};
}

void dgPickResult::add(dgBase* element)
{
    element->reference();
    the_elements.add_last(element);
}

dgPickResult::~dgPickResult()
{
    for (dgBase* element : the_elements)
        element->unreference();
}

dgPickResult* dgView::pick_all(const dgPickAperture& aperture, dgPickMode mode) const
{
    auto* result = new dgPickResult;
    if (!the_root || !the_renderer)
        return result;
    Picker picker(*this, aperture, mode, *result);
    struct Frame
    {
        const dgStructure* structure;
        int position;
        giXform3 to_world;
    };
    std::vector<Frame> frames{{the_root.get(), 0, giXform3()}};
    std::unordered_set<const dgStructure*> open{the_root.get()};
    while (!frames.empty() && !picker.full())
    {
        Frame& frame = frames.back();
        if (frame.position == frame.structure->nelements())
        {
            open.erase(frame.structure);
            frames.pop_back();
            continue;
        }
        const dgGraphicalElement& element = *frame.structure->element(frame.position++);
        if (element.type() == dgTYPE_TRANSFORM)
            frame.to_world = static_cast<const dgTransform&>(element).transform() * frame.to_world;
        else if (element.type() == dgTYPE_WORLD_TRANSFORM)
            frame.to_world = static_cast<const dgWorldTransform&>(element).transform();
        else if (element.kind() == dgELEMENT_PRIMITIVE)
            picker.try_primitive(static_cast<const dgGraphicalPrimitive&>(element), frame.to_world);
        else if (const dgStructure* called = element.called_structure(); called && open.insert(called).second)
        {
            const giXform3 to_world = frame.to_world;
            frames.push_back({called, 0, to_world});
        }
    }
    return result;
}
