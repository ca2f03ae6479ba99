#include "grSectionCap.h"

#include "dgDriver.h"
#include "dgFeatureTree.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgShownWalk.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giBox3.h"
#include "giOutline.h"
#include "giTriBlock.h"
#include "giWorkplane3.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace
{
constexpr double relative_tolerance = 1e-6; // of the diagonal of what is cut
constexpr double hatch_pitch = 0.012;       // of the same

// The distance of a point from a plane, for points in the coordinates of one place of a network.
class Distance
{
public:
    Distance(const giPlane& plane, const giXform3& to_world)
        : the_normal(row(plane, to_world, 0), row(plane, to_world, 1), row(plane, to_world, 2)),
          the_offset(plane.distance(giPoint3() * to_world))
    {}
    double operator()(const giPoint3& p) const { return the_normal.dot(p.vector()) + the_offset; }
    bool meets(const giBox3& box, double tolerance) const
    {
        const double reach = 0.5 * (std::abs(the_normal.x()) * box.width() + std::abs(the_normal.y()) * box.height() +
                                    std::abs(the_normal.z()) * box.depth());
        return !box.empty() && std::abs((*this)(box.middle())) <= reach + tolerance;
    }

private:
    static double row(const giPlane& plane, const giXform3& to_world, int row)
    {
        double share = 0;
        for (int axis = 0; axis < 3; ++axis)
            share += to_world(row, axis) * plane.normal()[axis];
        return share;
    }
    giVector3 the_normal;
    double the_offset;
};

// Adds the edges along which a plane cuts blocks to an outline.
class Cutter
{
public:
    Cutter(const giPlane& plane, double tolerance, giOutline& outline)
        : the_plane(plane), the_tolerance(tolerance), the_outline(outline)
    {}

    void cut(const dgTriangleBlock& element, const giXform3& to_world)
    {
        const dgGeometry geometry = element.geometry();
        const Distance distance(the_plane, to_world);
        if (!distance.meets(element.bounding_box(), the_tolerance))
            return;
        if (geometry.nfeatures < dgFeatureTree::least_features)
        {
            for (int i = 0; i < geometry.nfeatures; ++i)
                cut(geometry, i, distance, to_world);
            return;
        }
        const dgFeatureTree& features = element.feature_tree();
        features.tree().find([&](const giBox3& box)
                             { return distance.meets(box, the_tolerance) ? dgBOX_PARTLY : dgBOX_OUTSIDE; },
                             [&](int group, bool)
                             {
                                 for (const unsigned feature : features.features(group))
                                     cut(geometry, static_cast<int>(feature), distance, to_world);
                             });
    }

private:
    // Corners in the plane, or so near that those of a neighbour may lie beyond it, count as positive, so that a
    // triangle is cut at two edges or not at all.
    void cut(const dgGeometry& geometry, int number, const Distance& distance, const giXform3& to_world)
    {
        int corners[3];
        if (!dg_feature_points(geometry, number, corners))
            return;
        std::array<giPoint3, 3> p;
        std::array<double, 3> d;
        for (int k = 0; k < 3; ++k)
        {
            p[k] = geometry.points[corners[k]];
            d[k] = distance(p[k]);
        }
        const auto positive = [&](int k) { return d[k % 3] >= -the_tolerance; };
        for (int alone = 0; alone < 3; ++alone)
            if (positive(alone) != positive(alone + 1) && positive(alone) != positive(alone + 2))
            {
                giPoint3 ends[2];
                for (int i = 0; i < 2; ++i)
                    ends[i] = crossing(p, d, alone, (alone + 1 + i) % 3) * to_world;
                // Seen against the normal of the cap, the inside is on the left.
                const bool turned = positive(alone) != (to_world.determinant() < 0);
                the_outline.add(ends[turned], ends[!turned]);
            }
    }

    // Of the neighbour at the edge too, which has its ends the other way round.
    static giPoint3 crossing(const std::array<giPoint3, 3>& p, const std::array<double, 3>& d, int from, int to)
    {
        if (d[from] < d[to])
            std::swap(from, to);
        return giPoint3::interpolate(p[from], p[to], std::max(d[from] / (d[from] - d[to]), 0.0));
    }

    const giPlane& the_plane;
    double the_tolerance;
    giOutline& the_outline;
};

using Contours = std::vector<std::vector<giPoint2>>;

// Parallel lines at 45 degrees over what contours wind about, as pairs of ends.
std::vector<giPoint2> hatch(const Contours& contours, double pitch)
{
    const double half = std::sqrt(0.5);
    struct Crossing
    {
        int line;
        double along;
        int winding;
        bool operator<(const Crossing& other) const
        {
            return line != other.line ? line < other.line : along < other.along;
        }
    };
    std::vector<Crossing> crossings;
    for (const auto& contour : contours)
        for (std::size_t i = 0; i < contour.size(); ++i)
        {
            const giPoint2 &a = contour[i], &b = contour[(i + 1) % contour.size()];
            // Across and along the lines, lines at whole numbers across.
            const double from = (a.x() - a.y()) * half / pitch, to = (b.x() - b.y()) * half / pitch;
            for (double line = std::floor(std::min(from, to)) + 1; line <= std::floor(std::max(from, to)); ++line)
            {
                const giPoint2 p = giPoint2::interpolate(a, b, (line - from) / (to - from));
                crossings.push_back({static_cast<int>(line), (p.x() + p.y()) * half, from < to ? 1 : -1});
            }
        }
    std::sort(crossings.begin(), crossings.end());
    std::vector<giPoint2> ends;
    int winding = 0;
    for (const Crossing& crossing : crossings)
    {
        const bool was_inside = winding != 0;
        winding += crossing.winding;
        if (was_inside == (winding != 0))
            continue;
        const double across = crossing.line * pitch;
        ends.emplace_back((crossing.along + across) * half, (crossing.along - across) * half);
    }
    return ends;
}
}

void grSectionCap::find(const dgView& view, const giPlane& plane)
{
    if (view.root() == the_root && view.shown_stamp() == the_stamp && plane == the_plane)
        return;
    the_root = view.root();
    the_stamp = view.shown_stamp();
    the_plane = plane;
    the_block = dgRef<dgTriangleBlock>();
    the_surface->clear();
    the_surface->add(new dgLighting(0));
    the_surface->add(new dgSurfaceColour(the_surface_colour));
    the_lines->clear();
    the_lines->add(new dgLineColour(the_line_colour));
    the_open_pieces = 0;
    const giBox3& box = the_root->bounding_box();
    if (box.empty() || !(box.diagonal().length() > 0))
        return;

    // About the model, as numbers are coarse where the plane's point may be, and facing as the cap does.
    const giWorkplane3 workplane(giPlane(plane.project(box.middle()), -plane.normal()));
    const double tolerance = relative_tolerance * box.diagonal().length();
    giOutline outline(workplane, tolerance);
    Cutter cutter(plane, tolerance, outline);
    dg_walk_shown(*the_root, view.looks(),
                  [&](const dgGraphicalElement& element, const giXform3& to_world)
                  {
                      if (element.type() == dgTYPE_TRIANGLE_BLOCK)
                          cutter.cut(static_cast<const dgTriangleBlock&>(element), to_world);
                      return true;
                  });
    std::vector<std::vector<int>> loops;
    the_open_pieces = outline.take_loops(loops);
    Contours contours;
    for (const std::vector<int>& loop : loops)
    {
        std::vector<giPoint3> line;
        std::vector<giPoint2>& contour = contours.emplace_back();
        for (const int corner : loop)
        {
            contour.push_back(outline.flat_corner(corner));
            line.push_back(outline.corner(corner));
        }
        line.push_back(line.front());
        the_lines->add(new dgPolyline(std::move(line)));
    }
    const std::vector<giPoint2> ends = hatch(contours, hatch_pitch * box.diagonal().length());
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2)
        the_lines->add(new dgPolyline({workplane.to_world(ends[i]), workplane.to_world(ends[i + 1])}));

    std::vector<giPoint2> points;
    std::vector<giTriangle> triangles;
    if (!view.renderer()->driver()->fill_contours(contours, points, triangles) || triangles.empty())
        return;
    auto cap = std::make_unique<giTriBlock>();
    for (const giPoint2& p : points)
        cap->nodes().append(workplane.to_world(p));
    for (giVector3& normal : cap->create_normals())
        normal = -plane.normal();
    cap->triangles() = std::move(triangles);
    the_block = dgRef<dgTriangleBlock>(new dgTriangleBlock(cap.release(), 1));
    the_surface->add(the_block.get());
}

void grSectionCap::draw(dgView& view) const
{
    dgCamera camera = view.camera();
    camera.section({});
    dgRenderer& renderer = *view.renderer();
    view.begin();
    renderer.set_camera(&camera);
    view.execute_structure(*the_surface);
    // There is nothing else yet, and what comes lies before the lines or behind their surface.
    const dgHLHSRMode mode = renderer.hlhsr_mode();
    renderer.set_hlhsr_mode(dgHLHSR_OFF);
    renderer.set_camera(&camera);
    view.execute_structure(*the_lines);
    renderer.set_hlhsr_mode(mode);
    view.end();
}
