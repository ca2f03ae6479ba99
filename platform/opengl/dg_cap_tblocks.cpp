#include "dg_cap_tblocks.h"

#include "dgGLTessellator.h"

#include "giPlane.h"
#include "giTriBlock.h"
#include "giWorkplane3.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>

namespace
{
// Gives positions numbers, near ones the same.
class Welder
{
public:
    Welder(const giWorkplane3& workplane, double tolerance) : the_workplane(workplane), the_cell_size(tolerance) {}

    int number(const giPoint3& p)
    {
        const giPoint2 flat = the_workplane.to_workplane(p);
        const auto cell = [this](double x) { return static_cast<std::int64_t>(std::floor(x / the_cell_size)); };
        const std::int64_t column = cell(flat.x()), row = cell(flat.y());
        for (std::int64_t i = column - 1; i <= column + 1; ++i)
            for (std::int64_t j = row - 1; j <= row + 1; ++j)
            {
                const auto [first, last] = the_cells.equal_range(key(i, j));
                for (auto found = first; found != last; ++found)
                    if (the_flat[at(found->second)].coincident(flat, the_cell_size))
                        return found->second;
            }
        the_cells.emplace(key(column, row), static_cast<int>(the_points.size()));
        the_points.push_back(p);
        the_flat.push_back(flat);
        return static_cast<int>(the_points.size()) - 1;
    }
    const giPoint3& point(int number) const { return the_points[at(number)]; }
    const giPoint2& flat(int number) const { return the_flat[at(number)]; }

private:
    static std::size_t at(int number) { return static_cast<std::size_t>(number); }
    static std::uint64_t key(std::int64_t column, std::int64_t row)
    {
        return static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15u ^ static_cast<std::uint64_t>(row);
    }

    giWorkplane3 the_workplane;
    double the_cell_size;
    std::vector<giPoint3> the_points;
    std::vector<giPoint2> the_flat;
    std::unordered_multimap<std::uint64_t, int> the_cells;
};

using Loop = std::vector<int>;

// The edges of an outline, with the material on their left. Those that two triangles share go.
class Outline
{
public:
    void add(int from, int to)
    {
        if (from == to)
            return;
        const auto opposite = the_edges.find({to, from});
        if (opposite == the_edges.end())
            ++the_edges[{from, to}];
        else if (--opposite->second == 0)
            the_edges.erase(opposite);
    }

    // Takes closed loops out of the edges, until there are only pieces that do not close. Answers their number.
    int take_loops(std::vector<Loop>& loops)
    {
        int open_pieces = 0;
        while (!the_edges.empty())
        {
            Loop path{the_edges.begin()->first.first};
            std::map<int, std::size_t> places{{path.front(), 0}};
            for (;;)
            {
                const auto next = the_edges.lower_bound({path.back(), -1});
                if (next == the_edges.end() || next->first.first != path.back())
                {
                    open_pieces += path.size() > 1;
                    break;
                }
                const int node = next->first.second;
                if (--next->second == 0)
                    the_edges.erase(next);
                const auto [place, is_new] = places.emplace(node, path.size());
                if (is_new)
                {
                    path.push_back(node);
                    continue;
                }
                // Back where the path has been: what lies between is a loop, and the path goes on without it.
                const auto start = path.begin() + static_cast<std::ptrdiff_t>(place->second);
                loops.emplace_back(start, path.end());
                for (auto taken = start + 1; taken != path.end(); ++taken)
                    places.erase(*taken);
                path.erase(start + 1, path.end());
                if (path.size() == 1)
                    break;
            }
        }
        return open_pieces;
    }

private:
    std::map<std::pair<int, int>, int> the_edges; // with the number of times
};

}

int dg_cap_tblocks(const giTriBlockcoDList& blocks, const giPlane& plane, double tolerance, giTriBlock& cap)
{
    // A workplane that faces as the cap does.
    const giVector3 normal = -plane.normal();
    const giVector3 other = std::abs(normal.x()) < 0.5 ? giVector3(1, 0, 0) : giVector3(0, 1, 0);
    const giVector3 x_axis = other.cross(normal);
    const giWorkplane3 workplane(plane.point(), x_axis, normal.cross(x_axis));
    Welder welder(workplane, tolerance);
    Outline outline;
    for (const giTriBlock* block : blocks)
    {
        const auto on_plane = [&](int node) { return std::abs(plane.distance(block->nodes()[node])) < tolerance; };
        for (const giTriangle& t : block->triangles())
            for (int k = 0; k < 3; ++k)
                if (on_plane(t.edge_start(k)) && on_plane(t.edge_end(k)))
                    // The cap lies on the other side of the edge.
                    outline.add(welder.number(block->nodes()[t.edge_end(k)]),
                                welder.number(block->nodes()[t.edge_start(k)]));
    }
    std::vector<Loop> loops;
    const int open_pieces = outline.take_loops(loops);

    // The tessellator's points are those of the contours, one after the other, and crossings behind them.
    dgGlyphOutline contours;
    std::vector<int> nodes;
    for (const Loop& loop : loops)
    {
        std::vector<giPoint2>& contour = contours.contours.emplace_back();
        for (const int node : loop)
            contour.push_back(welder.flat(node));
        nodes.insert(nodes.end(), loop.begin(), loop.end());
    }
    dgGLTriangles filling;
    dg_gl_tessellate(contours, filling);

    std::vector<int> numbers(filling.points.size(), -1);
    std::unordered_map<int, int> numbers_of_nodes;
    std::vector<giVector3>& normals = cap.create_normals();
    for (const giTriangle& found : filling.triangles)
    {
        giTriangle triangle(found);
        for (int k = 0; k < 3; ++k)
        {
            const auto corner = static_cast<std::size_t>(found[k]);
            const int is_node = corner < nodes.size();
            int& number = is_node ? numbers_of_nodes.try_emplace(nodes[corner], -1).first->second : numbers[corner];
            if (number < 0)
            {
                number = cap.node_count();
                cap.nodes().append(is_node ? welder.point(nodes[corner]) : workplane.to_world(filling.points[corner]));
                normals.push_back(normal);
            }
            triangle[k] = number;
        }
        cap.triangles().push_back(triangle);
    }
    return open_pieces;
}
