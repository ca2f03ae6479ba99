#include "tnCap.h"

#include "giPlane.h"
#include "giWorkplane3.h"

#if defined(__APPLE__)
#include <OpenGL/glu.h>
#else
#include <GL/glu.h>
#endif

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>

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

struct Filling
{
    std::vector<giPoint2> corners; // positions of nodes, and of crossings behind them
    std::vector<int> triangles;    // corners in threes
};

void begin_triangles(GLenum, void*) {}
void end_triangles(void*) {}
// Its presence makes the tessellator give triangles alone, no fans or strips.
void edge_flag(GLboolean, void*) {}

void take_vertex(void* vertex, void* data)
{
    static_cast<Filling*>(data)->triangles.push_back(static_cast<int>(reinterpret_cast<std::intptr_t>(vertex)));
}

void combine(GLdouble position[3], void* [4], GLfloat[4], void** vertex, void* data)
{
    Filling& filling = *static_cast<Filling*>(data);
    *vertex = reinterpret_cast<void*>(static_cast<std::intptr_t>(filling.corners.size()));
    filling.corners.emplace_back(position[0], position[1]);
}

template <class Function>
void set_callback(GLUtesselator* tessellator, GLenum which, Function* function)
{
    gluTessCallback(tessellator, which, reinterpret_cast<void (*)()>(function));
}

// Corners are given for all nodes that the loops name.
void fill(const std::vector<Loop>& loops, Filling& filling)
{
    const std::unique_ptr<GLUtesselator, void (*)(GLUtesselator*)> tessellator(gluNewTess(), gluDeleteTess);
    set_callback(tessellator.get(), GLU_TESS_BEGIN_DATA, begin_triangles);
    set_callback(tessellator.get(), GLU_TESS_END_DATA, end_triangles);
    set_callback(tessellator.get(), GLU_TESS_EDGE_FLAG_DATA, edge_flag);
    set_callback(tessellator.get(), GLU_TESS_VERTEX_DATA, take_vertex);
    set_callback(tessellator.get(), GLU_TESS_COMBINE_DATA, combine);
    gluTessProperty(tessellator.get(), GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessNormal(tessellator.get(), 0, 0, 1);
    gluTessBeginPolygon(tessellator.get(), &filling);
    for (const Loop& loop : loops)
    {
        gluTessBeginContour(tessellator.get());
        for (const int node : loop)
        {
            const giPoint2& p = filling.corners[static_cast<std::size_t>(node)];
            GLdouble position[3] = {p.x(), p.y(), 0};
            gluTessVertex(tessellator.get(), position, reinterpret_cast<void*>(static_cast<std::intptr_t>(node)));
        }
        gluTessEndContour(tessellator.get());
    }
    gluTessEndPolygon(tessellator.get());
}
}

int tn_make_cap(const ms_blocks& blocks, const giPlane& plane, double tolerance, giTriBlock& cap)
{
    // A workplane that faces as the cap does.
    const giVector3 normal = -plane.normal();
    const giVector3 other = std::abs(normal.x()) < 0.5 ? giVector3(1, 0, 0) : giVector3(0, 1, 0);
    const giVector3 x_axis = other.cross(normal);
    const giWorkplane3 workplane(plane.point(), x_axis, normal.cross(x_axis));
    Welder welder(workplane, tolerance);
    Outline outline;
    for (const auto& block : blocks)
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

    Filling filling;
    int n_nodes = 0;
    for (const Loop& loop : loops)
        for (const int node : loop)
            n_nodes = std::max(n_nodes, node + 1);
    for (int node = 0; node < n_nodes; ++node)
        filling.corners.push_back(welder.flat(node));
    fill(loops, filling);

    std::vector<int> numbers(filling.corners.size(), -1);
    std::vector<giVector3>& normals = cap.create_normals();
    for (std::size_t i = 0; i + 2 < filling.triangles.size(); i += 3)
    {
        giTriangle triangle(filling.triangles[i], filling.triangles[i + 1], filling.triangles[i + 2]);
        for (int k = 0; k < 3; ++k)
        {
            const int corner = triangle[k];
            int& number = numbers[static_cast<std::size_t>(corner)];
            if (number < 0)
            {
                number = cap.node_count();
                cap.nodes().append(corner < n_nodes
                                       ? welder.point(corner)
                                       : workplane.to_world(filling.corners[static_cast<std::size_t>(corner)]));
                normals.push_back(normal);
            }
            triangle[k] = number;
        }
        cap.triangles().push_back(triangle);
    }
    return open_pieces;
}
