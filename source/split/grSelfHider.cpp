#include "grSelfHider.h"

#include "giBox2.h"
#include "giTriBlock.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace
{
using Corners = std::array<giPoint2, 3>;

struct Flat
{
    Corners corners;
    giPoint2 low, high;
};

// 1 for triangles that face up along z, -1 down, 0 neither.
int facing(const giTriBlock& block, const giTriangle& t)
{
    const giPoint3& p = block.nodes()[t[0]];
    const giVector3 normal = (block.nodes()[t[1]] - p).cross(block.nodes()[t[2]] - p);
    const double limit = gr_vertical_normal_z * normal.length();
    return normal.z() > limit ? 1 : normal.z() < -limit ? -1 : 0;
}

Flat flattened(const giTriBlock& block, const giTriangle& t)
{
    Flat flat;
    for (int k = 0; k < 3; ++k)
        flat.corners[static_cast<std::size_t>(k)] = giPoint2(block.nodes()[t[k]].x(), block.nodes()[t[k]].y());
    const auto [low_x, high_x] = std::minmax({flat.corners[0].x(), flat.corners[1].x(), flat.corners[2].x()});
    const auto [low_y, high_y] = std::minmax({flat.corners[0].y(), flat.corners[1].y(), flat.corners[2].y()});
    flat.low = giPoint2(low_x, low_y);
    flat.high = giPoint2(high_x, high_y);
    return flat;
}

bool boxes_overlap(const Flat& a, const Flat& b)
{
    return a.low.x() < b.high.x() && b.low.x() < a.high.x() && a.low.y() < b.high.y() && b.low.y() < a.high.y();
}

// Two convex shapes are apart exactly when a direction across one of their edges tells them apart.
bool parted_by_edges_of(const Corners& a, const Corners& b, double tolerance)
{
    for (std::size_t k = 0; k < 3; ++k)
    {
        const giVector2 across = (a[(k + 1) % 3] - a[k]).perpendicular().unit();
        double low[2], high[2];
        const Corners* const shapes[2] = {&a, &b};
        for (int i = 0; i < 2; ++i)
        {
            low[i] = std::numeric_limits<double>::infinity();
            high[i] = -low[i];
            for (const giPoint2& p : *shapes[i])
            {
                low[i] = std::min(low[i], across.dot(p.vector()));
                high[i] = std::max(high[i], across.dot(p.vector()));
            }
        }
        if (std::min(high[0], high[1]) - std::max(low[0], low[1]) <= tolerance)
            return true;
    }
    return false;
}

// Finds whether any of a set of triangles overlaps another one: a tree of boxes, halved at the middle triangle.
class Tree
{
public:
    Tree(std::vector<Flat>&& triangles, double tolerance)
        : the_triangles(std::move(triangles)), the_tolerance(tolerance)
    {
        the_boxes.resize(2 * the_triangles.size() / leaf_size * 2 + 4);
        build(1, 0, the_triangles.size(), 0);
    }

    bool overlaps(const Flat& triangle) const { return search(1, 0, the_triangles.size(), triangle); }

private:
    static constexpr std::size_t leaf_size = 4;

    void build(std::size_t node, std::size_t begin, std::size_t end, int axis)
    {
        if (node >= the_boxes.size())
            the_boxes.resize(node + 1);
        Flat box = the_triangles[begin];
        for (std::size_t i = begin; i < end; ++i)
        {
            const Flat& t = the_triangles[i];
            box.low = giPoint2(std::min(box.low.x(), t.low.x()), std::min(box.low.y(), t.low.y()));
            box.high = giPoint2(std::max(box.high.x(), t.high.x()), std::max(box.high.y(), t.high.y()));
        }
        the_boxes[node] = {box.low, box.high};
        if (end - begin <= leaf_size)
            return;
        const std::size_t middle = (begin + end) / 2;
        const auto at = [this](std::size_t i) { return the_triangles.begin() + static_cast<std::ptrdiff_t>(i); };
        std::nth_element(at(begin), at(middle), at(end),
                         [axis](const Flat& a, const Flat& b) { return a.low[axis] < b.low[axis]; });
        build(2 * node, begin, middle, 1 - axis);
        build(2 * node + 1, middle, end, 1 - axis);
    }

    bool search(std::size_t node, std::size_t begin, std::size_t end, const Flat& triangle) const
    {
        const Box& box = the_boxes[node];
        if (!(box.low.x() < triangle.high.x() && triangle.low.x() < box.high.x() && box.low.y() < triangle.high.y() &&
              triangle.low.y() < box.high.y()))
            return false;
        if (end - begin > leaf_size)
        {
            const std::size_t middle = (begin + end) / 2;
            return search(2 * node, begin, middle, triangle) || search(2 * node + 1, middle, end, triangle);
        }
        for (std::size_t i = begin; i < end; ++i)
            if (boxes_overlap(the_triangles[i], triangle) &&
                !parted_by_edges_of(the_triangles[i].corners, triangle.corners, the_tolerance) &&
                !parted_by_edges_of(triangle.corners, the_triangles[i].corners, the_tolerance))
                return true;
        return false;
    }

    struct Box
    {
        giPoint2 low, high;
    };
    std::vector<Flat> the_triangles;
    std::vector<Box> the_boxes; // children of node i are 2 i and 2 i + 1
    double the_tolerance;
};
}

bool gr_hides_itself(const giTriBlock& block)
{
    std::vector<Flat> up;
    int n_down = 0;
    for (const giTriangle& t : block.triangles())
    {
        const int way = facing(block, t);
        if (way > 0)
            up.push_back(flattened(block, t));
        n_down += way < 0;
    }
    if (up.empty() || n_down == 0)
        return false;
    const Tree tree(std::move(up), 1e-6 * block.box().diagonal().length());
    return std::any_of(block.triangles().begin(), block.triangles().end(),
                       [&](const giTriangle& t) { return facing(block, t) < 0 && tree.overlaps(flattened(block, t)); });
}

int gr_count_vertical(const giTriBlock& block)
{
    return static_cast<int>(std::count_if(block.triangles().begin(), block.triangles().end(),
                                          [&](const giTriangle& t) { return facing(block, t) == 0; }));
}
