#include "gr_surface_point.h"

#include "dgFeatureTree.h"
#include "dgNetworkWalk.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"
#include "utTypeID.h"

#include <algorithm>
#include <cmath>

namespace
{
struct Segment
{
    giPoint3 start;
    giVector3 way;

    giPoint3 at(double t) const { return start + way * t; }
    Segment through(const giXform3& xform) const { return {start * xform, (start + way) * xform - start * xform}; }
};

// Whether a segment meets a box before t_end.
bool meets(const Segment& segment, const giBox3& box, double t_end)
{
    const double starts[] = {segment.start.x(), segment.start.y(), segment.start.z()};
    const double ways[] = {segment.way.x(), segment.way.y(), segment.way.z()};
    const double lows[] = {box.low().x(), box.low().y(), box.low().z()};
    const double highs[] = {box.high().x(), box.high().y(), box.high().z()};
    double t_low = 0, t_high = t_end;
    for (int i = 0; i < 3; ++i)
    {
        if (ways[i] == 0)
        {
            if (starts[i] < lows[i] || starts[i] > highs[i])
                return false;
            continue;
        }
        const double a = (lows[i] - starts[i]) / ways[i], b = (highs[i] - starts[i]) / ways[i];
        t_low = std::max(t_low, std::min(a, b));
        t_high = std::min(t_high, std::max(a, b));
    }
    return t_low <= t_high;
}

// Where a segment goes through a triangle, from 0 to 1, else a value above 1 (Moeller and Trumbore, 1997).
double crossing(const Segment& segment, const giPoint3& a, const giPoint3& b, const giPoint3& c)
{
    constexpr double none = 2;
    const giVector3 ab = b - a, ac = c - a;
    const giVector3 p = segment.way.cross(ac);
    const double determinant = ab.dot(p);
    if (determinant == 0)
        return none;
    const giVector3 from_a = segment.start - a;
    const double u = from_a.dot(p) / determinant;
    if (!(u >= 0))
        return none;
    const giVector3 q = from_a.cross(ab);
    const double v = segment.way.dot(q) / determinant;
    if (!(v >= 0 && u + v <= 1))
        return none;
    const double t = ac.dot(q) / determinant;
    return t >= 0 && t <= 1 ? t : none;
}

class Search
{
public:
    explicit Search(const Segment& sight) : the_sight(sight) {}

    void in(const dgStructure& root)
    {
        dg_walk_placed(root,
                       [this](const dgGraphicalElement& element, const giXform3& to_world)
                       {
                           if (const dgTriangleBlock* block = ut_cast<dgTriangleBlock>(&element))
                               in(*block, to_world);
                           return true;
                       });
    }
    // Where the nearest surface is met, above 1 when none is.
    double nearest() const { return the_nearest; }

private:
    void in(const dgTriangleBlock& element, const giXform3& to_world)
    {
        const giTriBlock& block = element.block();
        // An affine map keeps shares of a segment.
        const Segment sight = the_sight.through(to_world.inverse());
        if (block.triangle_count() == 0 || !meets(sight, block.box(), the_nearest))
            return;
        const giPoint3* nodes = block.nodes().data();
        const auto look_at = [&](const giTriangle& triangle) {
            the_nearest =
                std::min(the_nearest, crossing(sight, nodes[triangle[0]], nodes[triangle[1]], nodes[triangle[2]]));
        };
        if (block.triangle_count() < dgFeatureTree::least_features)
        {
            std::for_each(block.triangles().begin(), block.triangles().end(), look_at);
            return;
        }
        // Rounding must not part a box from what lies on its side.
        const double slack = 1e-9 * block.box().diagonal().length();
        const dgFeatureTree& features = element.feature_tree();
        features.tree().find(
            [&](giBox3 box)
            {
                box.grow(slack);
                return meets(sight, box, the_nearest) ? dgBOX_PARTLY : dgBOX_OUTSIDE;
            },
            [&](int group, bool)
            {
                for (const unsigned triangle : features.features(group))
                    look_at(block.triangles()[triangle]);
            });
    }

    const Segment the_sight;
    double the_nearest = 1.5;
};

giPoint3 world_point(const dgCamera& camera, const giPoint2& position, double depth)
{
    giPoint3 result;
    camera.transform(giPoint3(position.x(), position.y(), depth), result, dgSPACE_DEVICE, dgSPACE_WORLD);
    return result;
}
}

int gr_surface_point(const dgView& view, const giPoint2& position, giPoint3& point)
{
    if (!view.root() || view.root()->bounding_box().empty())
        return 0;
    const dgCamera& camera = view.camera();
    double front = camera.front_plane(), back = camera.back_plane();
    if (!view.user_clip_planes())
    {
        // Such planes are fitted at the next drawing only, to all that there is.
        const giBox3 box = view.root()->bounding_box().transform(camera.orientation());
        const double slack = 1e-6 * (box.high().z() - box.low().z()) + 1e-12;
        front = box.high().z() + slack;
        back = box.low().z() - slack;
    }
    if (camera.projection() == dgPROJECTION_PERSPECTIVE)
        front = std::min(front, 0.999 * camera.projection_reference_point().z());
    if (!(front > back))
        return 0;
    const giPoint3 start = world_point(camera, position, front);
    const Segment sight{start, world_point(camera, position, back) - start};
    Search search(sight);
    search.in(*view.root());
    if (search.nearest() > 1)
        return 0;
    point = sight.at(search.nearest());
    return 1;
}
