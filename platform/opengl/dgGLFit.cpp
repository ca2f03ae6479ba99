#include "dgGLFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace
{
using Index = std::uint32_t;
using Vector = std::array<float, 3>;

constexpr Index none = std::numeric_limits<Index>::max();
constexpr int none_near = std::numeric_limits<int>::max();

// Steps of the search for the nearest triangle, and of the solver: more change nothing that is seen.
constexpr int most_steps = 6, solver_steps = 10, curved_solver_steps = 12;
// Weight of a vertex as it was, beside the mean weight of a sample; and that of no bend, beside the triangles at a
// side: they hold what few samples lie near.
constexpr float stiffness = 0.05f, stiffness_of_sides = 0.02f;
// Of the way that fits best on average: silhouettes show vertices, which lie further out than what is between them.
constexpr float moved_share = 0.9f;

Vector at(const std::vector<float>& values, Index vertex)
{
    const float* v = &values[std::size_t(3) * vertex];
    return {v[0], v[1], v[2]};
}

Vector operator-(const Vector& a, const Vector& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

float dot(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(const Vector& a, const Vector& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// Answers the length.
float normalise(Vector& v)
{
    const float length = std::sqrt(dot(v, v));
    for (float& component : v)
        component = length > 0 ? component / length : 0;
    return length;
}

// Weights of the corners at the point of a triangle that is nearest to p: within it, or on one of its sides.
Vector nearest(const Vector& p, const std::array<Vector, 3>& corners)
{
    const Vector u = corners[1] - corners[0], v = corners[2] - corners[0], way = p - corners[0];
    const float uu = dot(u, u), uv = dot(u, v), vv = dot(v, v), wu = dot(way, u), wv = dot(way, v);
    const float second = vv * wu - uv * wv, third = uu * wv - uv * wu, all = uu * vv - uv * uv;
    if (second >= 0 && third >= 0 && second + third <= all && all > 0)
        return {1 - (second + third) / all, second / all, third / all};
    Vector best{};
    float least = std::numeric_limits<float>::max();
    for (std::size_t corner = 0; corner < 3; ++corner)
    {
        const std::size_t next = (corner + 1) % 3;
        const Vector side = corners[next] - corners[corner], from = p - corners[corner];
        const float length = dot(side, side);
        const float share = length > 0 ? std::clamp(dot(from, side) / length, 0.0f, 1.0f) : 0;
        const float distance = dot(from, from) - share * (2 * dot(from, side) - share * length);
        if (distance >= least)
            continue;
        least = distance;
        best = {};
        best[corner] = 1 - share;
        best[next] = share;
    }
    return best;
}

// The triangles around each of n things, which number_of answers for a corner.
struct Around
{
    template <class Number>
    Around(std::size_t n, const std::vector<Index>& corners, Number number_of)
        : starts(n + 1, 0), triangles(corners.size())
    {
        for (const Index corner : corners)
            ++starts[number_of(corner) + 1];
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        std::vector<Index> next(starts.begin(), starts.end() - 1);
        for (std::size_t i = 0; i < corners.size(); ++i)
            triangles[next[number_of(corners[i])]++] = static_cast<Index>(i / 3);
    }

    template <class Work>
    void each(Index number, Work work) const
    {
        for (Index i = starts[number]; i < starts[number + 1]; ++i)
            work(triangles[i]);
    }

    std::vector<Index> starts, triangles;
};

// The places of a shape, numbered one after the other.
struct Places
{
    Places(const dgGLShape& shape, std::size_t nplaces) : of_place(nplaces, none), of_vertex(shape.places.size())
    {
        for (std::size_t vertex = 0; vertex < shape.places.size(); ++vertex)
        {
            Index& number = of_place[shape.places[vertex]];
            if (number == none)
                number = count++;
            of_vertex[vertex] = number;
        }
    }

    Index count = 0;
    std::vector<Index> of_place, of_vertex;
};

// A vertex of the fine shape and what stands for it: a point of a triangle of the coarse one.
struct Sample
{
    Index vertex, triangle;
    Vector weights; // of the corners
    float area;     // twice that of the triangles around the vertex
};

class Fit
{
public:
    Fit(const dgGLShape& fine, const dgGLShape& coarse, std::size_t nplaces, const std::stop_token& stop);
    void solve(const std::vector<float>& wanted, const std::vector<char>& kept, std::vector<float>& values) const;
    void curve(const std::vector<float>& wanted, const std::vector<char>& kept, dgGLShape& shape) const;
    const std::vector<char>& on_open_outline() const { return the_open; }
    std::vector<char> kept_in_place(const std::vector<char>& fixed_places) const;
    void move_across(const std::vector<float>& moved, std::vector<float>& positions) const;

private:
    float stiffness_of_vertices() const;
    template <class Nodes>
    void solve(const std::vector<float>& wanted, const std::vector<char>& kept, const Nodes& nodes,
               const std::vector<float>& stiff, int steps, std::vector<float>& values) const;
    void find_open_outlines();
    std::vector<Index> nearest_places() const;
    Index nearest_triangle(Index vertex, Index place, Vector& weights) const;

    const std::stop_token& the_stop;
    const dgGLShape& the_fine;
    const dgGLShape& the_coarse;
    Places the_fine_places, the_coarse_places;
    Around the_coarse_around;       // each place
    std::vector<Vector> the_across; // the unit normals of the coarse triangles
    std::vector<float> the_areas;   // of the coarse triangles, twice
    std::vector<char> the_open;     // by vertex of the coarse shape: whether it lies on an open outline
    std::vector<Sample> the_samples;
};

Fit::Fit(const dgGLShape& fine, const dgGLShape& coarse, std::size_t nplaces, const std::stop_token& stop)
    : the_stop(stop), the_fine(fine), the_coarse(coarse), the_fine_places(fine, nplaces),
      the_coarse_places(coarse, nplaces),
      the_coarse_around(the_coarse_places.count, coarse.indices,
                        [this](Index corner) { return the_coarse_places.of_vertex[corner]; })
{
    double facing = 0;
    for (std::size_t i = 0; i < coarse.indices.size(); i += 3)
    {
        const Vector a = at(coarse.positions, coarse.indices[i]);
        Vector across =
            cross(at(coarse.positions, coarse.indices[i + 1]) - a, at(coarse.positions, coarse.indices[i + 2]) - a);
        the_areas.push_back(normalise(across));
        the_across.push_back(across);
        if (!coarse.normals.empty())
            facing += the_areas.back() * dot(across, at(coarse.normals, coarse.indices[i]));
    }
    // Triangles may be wound so that all face away from their normals.
    for (Vector& across : the_across)
        for (float& component : across)
            component = facing < 0 ? -component : component;
    find_open_outlines();
    std::vector<float> area(fine.places.size(), 0);
    for (std::size_t i = 0; i < fine.indices.size(); i += 3)
    {
        const Vector a = at(fine.positions, fine.indices[i]);
        Vector across = cross(at(fine.positions, fine.indices[i + 1]) - a, at(fine.positions, fine.indices[i + 2]) - a);
        const float twice = normalise(across);
        for (std::size_t corner = i; corner < i + 3; ++corner)
            area[fine.indices[corner]] += twice;
    }
    const std::vector<Index> start = nearest_places();
    the_samples.reserve(fine.places.size());
    for (Index vertex = 0; vertex < fine.places.size() && !stop.stop_requested(); ++vertex)
    {
        const Index place = start[the_fine_places.of_vertex[vertex]];
        Vector weights;
        const Index triangle = place == none ? none : nearest_triangle(vertex, place, weights);
        if (triangle == none || !(area[vertex] > 0))
            continue;
        the_samples.push_back({vertex, triangle, weights, area[vertex]});
    }
}

// By place of the fine shape: a place of the coarse one that few edges lead to.
std::vector<Index> Fit::nearest_places() const
{
    std::vector<Index> found(the_fine_places.count, none);
    for (std::size_t vertex = 0; vertex < the_coarse.places.size(); ++vertex)
    {
        const Index place = the_fine_places.of_place[the_coarse.places[vertex]];
        if (place != none)
            found[place] = the_coarse_places.of_vertex[vertex];
    }
    // One edge further with each sweep over all triangles: few are enough, as levels are near to each other.
    std::vector<int> distance(found.size());
    for (std::size_t place = 0; place < found.size(); ++place)
        distance[place] = found[place] == none ? none_near : 0;
    bool changed = true;
    for (int edges = 0; std::exchange(changed, false) && !the_stop.stop_requested(); ++edges)
        for (std::size_t i = 0; i < the_fine.indices.size(); ++i)
        {
            const Index from = the_fine_places.of_vertex[the_fine.indices[i]];
            const Index to = the_fine_places.of_vertex[the_fine.indices[i % 3 == 2 ? i - 2 : i + 1]];
            for (const auto& [near, far] : {std::pair(from, to), std::pair(to, from)})
                if (distance[near] == edges && distance[far] == none_near)
                {
                    found[far] = found[near];
                    distance[far] = edges + 1;
                    changed = true;
                }
        }
    return found;
}

// The triangle that is nearest to a vertex of the fine shape and faces as it does, from around a place on to where it
// comes nearer.
Index Fit::nearest_triangle(Index vertex, Index place, Vector& weights) const
{
    const Vector p = at(the_fine.positions, vertex);
    Vector normal{};
    if (!the_fine.normals.empty())
    {
        normal = at(the_fine.normals, vertex);
        normalise(normal);
    }
    Index best = none;
    float best_cost = std::numeric_limits<float>::max();
    const auto look = [&](Index triangle)
    {
        const Index* corners = &the_coarse.indices[std::size_t(3) * triangle];
        const std::array<Vector, 3> abc{at(the_coarse.positions, corners[0]), at(the_coarse.positions, corners[1]),
                                        at(the_coarse.positions, corners[2])};
        const Vector w = nearest(p, abc);
        Vector off;
        for (std::size_t axis = 0; axis < 3; ++axis)
            off[axis] = w[0] * abc[0][axis] + w[1] * abc[1][axis] + w[2] * abc[2][axis] - p[axis];
        // Of the sides of a crease the one that the normal belongs to.
        const float aside = 1 - dot(the_across[triangle], normal);
        const float cost = dot(off, off) + 0.02f * the_areas[triangle] * aside * aside;
        if (cost < best_cost)
        {
            best_cost = cost;
            best = triangle;
            weights = w;
        }
    };
    the_coarse_around.each(place, look);
    Index before = none;
    // Nothing is nearer than the inside of a triangle that faces as the vertex does, but behind sharp turns.
    const auto found = [&]
    { return weights[0] > 0 && weights[1] > 0 && weights[2] > 0 && dot(the_across[best], normal) > 0.97f; };
    for (int step = 0; step < most_steps && best != before && !found(); ++step)
    {
        before = best;
        const Vector from = weights;
        for (std::size_t corner = 0; corner < 3; ++corner)
            if (from[corner] > 0)
                the_coarse_around.each(
                    the_coarse_places.of_vertex[the_coarse.indices[std::size_t(3) * before + corner]], look);
    }
    return best;
}

void Fit::find_open_outlines()
{
    std::unordered_set<std::uint64_t> open;
    const std::vector<Index>& corners = the_coarse.indices;
    for (std::size_t i = 0; i < corners.size(); ++i)
    {
        const std::uint64_t from = the_coarse_places.of_vertex[corners[i]],
                            to = the_coarse_places.of_vertex[corners[i % 3 == 2 ? i - 2 : i + 1]];
        if (!open.erase(to << 32 | from))
            open.insert(from << 32 | to);
    }
    std::vector<char> place_open(the_coarse_places.count, 0);
    for (const std::uint64_t edge : open)
        place_open[edge >> 32] = place_open[edge & 0xffffffff] = 1;
    for (const Index place : the_coarse_places.of_vertex)
        the_open.push_back(place_open[place]);
}

std::vector<char> Fit::kept_in_place(const std::vector<char>& fixed_places) const
{
    std::vector<char> seen(the_coarse_places.count, 0);
    for (const Index place : the_coarse_places.of_vertex)
        seen[place] = static_cast<char>(std::min(seen[place] + 1, 2));
    std::vector<char> kept = the_open;
    for (std::size_t vertex = 0; vertex < kept.size(); ++vertex)
        if (fixed_places[the_coarse.places[vertex]] || seen[the_coarse_places.of_vertex[vertex]] > 1)
            kept[vertex] = 1;
    return kept;
}

// What is known at vertices only: linear between them.
struct LinearNodes
{
    static constexpr std::size_t count = 3;

    std::size_t number(const Sample& sample, std::size_t node) const { return corners[3 * sample.triangle + node]; }
    static float weight(const Sample& sample, std::size_t node) { return sample.weights[node]; }

    const std::vector<Index>& corners;
};

// What is known at vertices and in the middles of sides, there as the difference from the mean of both ends.
struct QuadraticNodes
{
    static constexpr std::size_t count = 6;

    std::size_t number(const Sample& sample, std::size_t node) const
    {
        return node < 3 ? corners[3 * sample.triangle + node] : nvertices + sides[3 * sample.triangle + node - 3];
    }
    static float weight(const Sample& sample, std::size_t node)
    {
        return node < 3 ? sample.weights[node] : 4 * sample.weights[node - 3] * sample.weights[(node - 2) % 3];
    }

    const std::vector<Index>& corners;
    const std::vector<Index>& sides;
    std::size_t nvertices;
};

float Fit::stiffness_of_vertices() const
{
    double area = 0;
    for (const Sample& sample : the_samples)
        area += sample.area;
    return static_cast<float>(stiffness * area / std::max<double>(1, static_cast<double>(the_samples.size())));
}

// Changes the values of nodes, but of those that are kept, so that the samples have those of their vertices: least
// squares, by conjugate gradients on the normal equations, scaled by their diagonal. Each node holds on to its value
// with a weight of its own.
template <class Nodes>
void Fit::solve(const std::vector<float>& wanted, const std::vector<char>& kept, const Nodes& nodes,
                const std::vector<float>& stiff, int steps, std::vector<float>& values) const
{
    const std::size_t n = values.size();
    std::vector<float> residual(n, 0), diagonal(n), direction(n, 0), image(n), change(n, 0);
    for (std::size_t i = 0; i < n; ++i)
    {
        diagonal[i] = stiff[i / 3];
        if (!(diagonal[i] > 0))
            return;
    }
    // Adds area * weights * (what value says of a sample) to the sums of its nodes.
    const auto spread = [&](std::vector<float>& sums, auto value)
    {
        for (const Sample& sample : the_samples)
            for (std::size_t axis = 0; axis < 3; ++axis)
            {
                const float v = sample.area * value(sample, axis);
                for (std::size_t node = 0; node < nodes.count; ++node)
                    sums[3 * nodes.number(sample, node) + axis] += nodes.weight(sample, node) * v;
            }
    };
    const auto interpolated = [&](const Sample& sample, std::size_t axis, const std::vector<float>& of)
    {
        float sum = 0;
        for (std::size_t node = 0; node < nodes.count; ++node)
            sum += nodes.weight(sample, node) * of[3 * nodes.number(sample, node) + axis];
        return sum;
    };
    const auto keep = [&kept](std::vector<float>& of)
    {
        for (std::size_t i = 0; i < 3 * kept.size(); ++i)
            if (kept[i / 3])
                of[i] = 0;
    };
    spread(residual, [&](const Sample& sample, std::size_t axis)
           { return wanted[std::size_t(3) * sample.vertex + axis] - interpolated(sample, axis, values); });
    keep(residual);
    for (const Sample& sample : the_samples)
        for (std::size_t node = 0; node < nodes.count; ++node)
            for (std::size_t axis = 0; axis < 3; ++axis)
                diagonal[3 * nodes.number(sample, node) + axis] +=
                    sample.area * nodes.weight(sample, node) * nodes.weight(sample, node);
    double before = 0;
    for (int step = 0; step < steps && !the_stop.stop_requested(); ++step)
    {
        double now = 0;
        for (std::size_t i = 0; i < n; ++i)
            now += double(residual[i]) * residual[i] / diagonal[i];
        if (!(now > 0))
            break;
        const auto turn = static_cast<float>(before > 0 ? now / before : 0);
        before = now;
        for (std::size_t i = 0; i < n; ++i)
        {
            direction[i] = residual[i] / diagonal[i] + turn * direction[i];
            image[i] = stiff[i / 3] * direction[i];
        }
        spread(image, [&](const Sample& sample, std::size_t axis) { return interpolated(sample, axis, direction); });
        keep(image);
        double along = 0;
        for (std::size_t i = 0; i < n; ++i)
            along += double(direction[i]) * image[i];
        if (!(along > 0))
            break;
        const auto length = static_cast<float>(now / along);
        for (std::size_t i = 0; i < n; ++i)
        {
            change[i] += length * direction[i];
            residual[i] -= length * image[i];
        }
    }
    for (std::size_t i = 0; i < n; ++i)
        values[i] += change[i];
}

void Fit::solve(const std::vector<float>& wanted, const std::vector<char>& kept, std::vector<float>& values) const
{
    const std::vector<float> stiff(values.size() / 3, stiffness_of_vertices());
    solve(wanted, kept, LinearNodes{the_coarse.indices}, stiff, solver_steps, values);
}

// Finds normals at the vertices of a shape that has the triangles of the coarse one, and its bends.
void Fit::curve(const std::vector<float>& wanted, const std::vector<char>& kept, dgGLShape& shape) const
{
    const std::size_t nvertices = shape.places.size();
    std::unordered_map<std::uint64_t, Index> number_of;
    std::vector<Index> sides;
    for (std::size_t i = 0; i < shape.indices.size(); ++i)
    {
        const auto [low, high] = std::minmax(shape.indices[i], shape.indices[i % 3 == 2 ? i - 2 : i + 1]);
        const auto next = static_cast<Index>(number_of.size());
        sides.push_back(number_of.emplace(std::uint64_t(low) << 32 | high, next).first->second);
    }
    std::vector<float> stiff(nvertices + number_of.size(), stiffness_of_vertices());
    for (std::size_t i = 0; i < sides.size(); ++i)
        stiff[nvertices + sides[i]] += stiffness_of_sides * the_areas[i / 3];
    std::vector<float> values = shape.normals;
    values.resize(3 * stiff.size(), 0);
    solve(wanted, kept, QuadraticNodes{shape.indices, sides, nvertices}, stiff, curved_solver_steps, values);
    shape.normals.assign(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(3 * nvertices));
    for (const Index side : sides)
        for (std::size_t axis = 0; axis < 3; ++axis)
            shape.bends.push_back(values[3 * (nvertices + side) + axis]);
}

// Moves vertices across the surface only: along it nothing is gained, and thin triangles would fold over.
void Fit::move_across(const std::vector<float>& moved, std::vector<float>& positions) const
{
    std::vector<Vector> across(the_coarse.places.size(), Vector{});
    for (std::size_t i = 0; i < the_coarse.indices.size(); ++i)
        for (std::size_t axis = 0; axis < 3; ++axis)
            across[the_coarse.indices[i]][axis] += the_areas[i / 3] * the_across[i / 3][axis];
    for (Index vertex = 0; vertex < across.size(); ++vertex)
    {
        normalise(across[vertex]);
        const float way = dot(at(moved, vertex) - at(positions, vertex), across[vertex]);
        for (std::size_t axis = 0; axis < 3; ++axis)
            positions[std::size_t(3) * vertex + axis] += moved_share * way * across[vertex][axis];
    }
}
}

void dg_gl_fit(const dgGLShape& fine, dgGLShape& coarse, const std::vector<char>& fixed_places, bool curved,
               const std::stop_token& stop)
{
    const Fit fit(fine, coarse, fixed_places.size(), stop);
    if (!fine.normals.empty() && !coarse.normals.empty())
    {
        if (curved)
            fit.curve(fine.normals, fit.on_open_outline(), coarse);
        else
            fit.solve(fine.normals, fit.on_open_outline(), coarse.normals);
    }
    std::vector<float> moved = coarse.positions;
    fit.solve(fine.positions, fit.kept_in_place(fixed_places), moved);
    fit.move_across(moved, coarse.positions);
}
