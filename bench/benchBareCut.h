#pragma once

#include "giPlane.h"
#include "giTriBlock.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// How long an array gets that holds count values and may have room for more at its end.
inline std::size_t bench_with_room(std::size_t count, bool room)
{
    return room ? count + count / 16 : count;
}

/// A triangle mesh in flat arrays.
struct benchBareMesh
{
    /// Copies the block, which has normals and texture coordinates, and leaves room at the ends of the arrays or not.
    benchBareMesh(const giTriBlock& block, bool room)
    {
        const auto n = static_cast<std::size_t>(block.node_count());
        points.reserve(3 * bench_with_room(n, room));
        normals.reserve(3 * bench_with_room(n, room));
        texture.reserve(2 * bench_with_room(n, room));
        for (std::size_t i = 0; i < n; ++i)
            for (int k = 0; k < 3; ++k)
            {
                points.push_back(block.nodes().data()[i][k]);
                normals.push_back((*block.normals())[i][k]);
                if (k < 2)
                    texture.push_back((*block.texture_coordinates())[i][k]);
            }
        triangles.reserve(3 * bench_with_room(block.triangles().size(), room));
        for (const giTriangle& t : block.triangles())
            for (int k = 0; k < 3; ++k)
                triangles.push_back(t[k]);
    }

    std::vector<double> points, normals, texture; ///< three, three and two numbers a node
    std::vector<int> triangles;                   ///< three nodes each
};

/// The practical limit of a cut: one by a plane that is written into the loops, and one hash of the cut edges. Nodes
/// that lie on the plane are not thought of.
class benchBareCut
{
public:
    /// Refers to the mesh, which run changes.
    benchBareCut(benchBareMesh& mesh, const giPlane& plane) : the_mesh(mesh), the_plane(plane), the_hash(1024, -1) {}

    /// Cuts the mesh, once. Keeps the side that the plane's normal points to, or both.
    void run(bool keep_negative)
    {
        const std::size_t n = the_mesh.points.size() / 3;
        const giVector3 normal = the_plane.normal();
        const double offset = the_plane.point().vector().dot(normal);
        the_sides.resize(n);
        for (std::size_t i = 0; i < n; ++i)
        {
            const double* p = &the_mesh.points[3 * i];
            the_sides[i] = p[0] * normal.x() + p[1] * normal.y() + p[2] * normal.z() > offset;
        }
        std::vector<int>& triangles = the_mesh.triangles;
        std::vector<std::uint8_t> used(n, 0);
        std::size_t kept = 0;
        for (std::size_t i = 0; i < triangles.size(); i += 3)
        {
            const int a = triangles[i], b = triangles[i + 1], c = triangles[i + 2];
            const int positive = the_sides[at(a)] + the_sides[at(b)] + the_sides[at(c)];
            if (positive == 3 || (positive == 0 && keep_negative))
            {
                used[at(a)] = used[at(b)] = used[at(c)] = 1;
                triangles[kept++] = a;
                triangles[kept++] = b;
                triangles[kept++] = c;
            }
            else if (positive)
                split(a, b, c, positive == 2, keep_negative);
        }
        triangles.resize(kept);
        for (const int node : the_pieces)
            if (at(node) < n)
                used[at(node)] = 1;
        triangles.reserve(kept + the_pieces.size());
        triangles.insert(triangles.end(), the_pieces.begin(), the_pieces.end());
        std::vector<int> numbers(n + the_cuts.size());
        int count = 0;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = i >= n || used[i] ? count++ : -1;
        for (int& node : triangles)
            node = numbers[at(node)];
        compact(the_mesh.points, 3, numbers, n);
        compact(the_mesh.normals, 3, numbers, n);
        compact(the_mesh.texture, 2, numbers, n);
    }

private:
    struct CutEdge
    {
        int a, b;
        double t;
    };
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    double height(int node) const
    {
        const double* p = &the_mesh.points[3 * at(node)];
        return the_plane.distance(giPoint3(p[0], p[1], p[2]));
    }

    std::size_t slot(int a, int b) const
    {
        const auto [low, high] = std::minmax(a, b);
        const auto key = static_cast<std::uint64_t>(low) << 32 | static_cast<std::uint64_t>(high);
        std::size_t place = (key * 0x9E3779B97F4A7C15u >> 32) & (the_hash.size() - 1);
        while (the_hash[place] >= 0 &&
               !(std::min(the_cuts[at(the_hash[place])].a, the_cuts[at(the_hash[place])].b) == low &&
                 std::max(the_cuts[at(the_hash[place])].a, the_cuts[at(the_hash[place])].b) == high))
            place = (place + 1) & (the_hash.size() - 1);
        return place;
    }

    int node_on(int a, int b)
    {
        if (2 * the_cuts.size() >= the_hash.size())
        {
            the_hash.assign(2 * the_hash.size(), -1);
            for (std::size_t i = 0; i < the_cuts.size(); ++i)
                the_hash[slot(the_cuts[i].a, the_cuts[i].b)] = static_cast<int>(i);
        }
        int& entry = the_hash[slot(a, b)];
        if (entry < 0)
        {
            entry = static_cast<int>(the_cuts.size());
            const double from = height(a), to = height(b);
            the_cuts.push_back({a, b, from / (from - to)});
        }
        return entry + static_cast<int>(the_sides.size());
    }

    void split(int a, int b, int c, bool lone_negative, bool keep_negative)
    {
        while (the_sides[at(a)] == lone_negative)
        {
            const int first = a;
            a = b, b = c, c = first;
        }
        const int x = node_on(a, b), y = node_on(c, a);
        if (lone_negative || keep_negative)
            the_pieces.insert(the_pieces.end(), {x, b, y, y, b, c});
        if (!lone_negative || keep_negative)
            the_pieces.insert(the_pieces.end(), {a, x, y});
    }

    void compact(std::vector<double>& values, std::size_t width, const std::vector<int>& numbers, std::size_t n) const
    {
        std::vector<double> added;
        added.reserve(width * the_cuts.size());
        for (const CutEdge& cut : the_cuts)
            for (std::size_t k = 0; k < width; ++k)
            {
                const double from = values[width * at(cut.a) + k], to = values[width * at(cut.b) + k];
                added.push_back(from + (to - from) * cut.t);
            }
        double* end = values.data();
        for (std::size_t i = 0; i < n; ++i)
            if (numbers[i] >= 0)
                for (std::size_t k = 0; k < width; ++k)
                    *end++ = values[width * i + k];
        values.resize(static_cast<std::size_t>(end - values.data()));
        values.reserve(values.size() + added.size());
        values.insert(values.end(), added.begin(), added.end());
    }

    benchBareMesh& the_mesh;
    const giPlane the_plane;
    std::vector<std::uint8_t> the_sides;
    std::vector<int> the_hash;
    std::vector<CutEdge> the_cuts;
    std::vector<int> the_pieces;
};
