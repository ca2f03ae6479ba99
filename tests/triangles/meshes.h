#pragma once

#include "giTriBlock.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>

/// Meshes for tests, with normals and texture coordinates, and what can be measured on any mesh.
namespace meshes
{
inline std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

inline void add_features(giTriBlock& block)
{
    std::vector<giVector3>& normals = block.create_normals();
    std::vector<giPoint2>& texture = block.create_texture_coordinates();
    normals.resize(at(block.node_count()));
    texture.resize(at(block.node_count()));
    for (int i = 0; i < block.node_count(); ++i)
    {
        normals[at(i)] = block.nodes()[i].vector().unit();
        texture[at(i)] = giPoint2(block.nodes()[i].x() * 0.1, block.nodes()[i].y() * 0.2);
    }
}

/// A closed torus with an uneven surface; nodes are shared and triangles face outwards.
inline giTriBlock torus(int around, int across, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> thickness(2, 3);
    giTriBlock block;
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            const double u = 2 * std::numbers::pi * i / around, v = 2 * std::numbers::pi * j / across;
            const double r = thickness(random), far = 7 + r * std::cos(v);
            block.nodes().append(giPoint3(far * std::cos(u), far * std::sin(u), r * std::sin(v)));
        }
    const auto node = [&](int i, int j) { return i % around * across + j % across; };
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            block.triangles().emplace_back(node(i, j), node(i + 1, j), node(i + 1, j + 1));
            block.triangles().emplace_back(node(i, j), node(i + 1, j + 1), node(i, j + 1));
        }
    add_features(block);
    return block;
}

/// Triangles between nodes chosen at random: they cross each other, share nodes and edges, and some name a node twice.
inline giTriBlock soup(int nodes, int triangles, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> coordinate(-10, 10);
    std::uniform_int_distribution<int> node(0, nodes - 1);
    giTriBlock block;
    for (int i = 0; i < nodes; ++i)
        block.nodes().append(giPoint3(coordinate(random), coordinate(random), coordinate(random)));
    for (int i = 0; i < triangles; ++i)
        block.triangles().emplace_back(node(random), node(random), node(random));
    add_features(block);
    return block;
}

/// A grid of unit squares in the plane z = 0 from (0, 0), two triangles each, facing up.
inline giTriBlock grid(int columns, int rows)
{
    giTriBlock block;
    for (int y = 0; y <= rows; ++y)
        for (int x = 0; x <= columns; ++x)
            block.nodes().append(giPoint3(x, y, 0));
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x)
        {
            const int node = y * (columns + 1) + x;
            block.triangles().emplace_back(node, node + 1, node + columns + 2);
            block.triangles().emplace_back(node, node + columns + 2, node + columns + 1);
        }
    add_features(block);
    return block;
}

/// Twice the area as a vector along the normal.
inline giVector3 doubled_area(const giTriBlock& block, const giTriangle& t)
{
    const giPoint3& p = block.nodes()[t[0]];
    return (block.nodes()[t[1]] - p).cross(block.nodes()[t[2]] - p);
}

inline double area(const giTriBlock& block)
{
    double sum = 0;
    for (const giTriangle& t : block.triangles())
        sum += doubled_area(block, t).length() / 2;
    return sum;
}

/// The signed volume between the triangles and a point; that of the body for a closed mesh, whatever the point. The
/// planes of a cut through the point add nothing, so a body cut there needs no caps.
inline double volume(const giTriBlock& block, const giPoint3& apex)
{
    double sum = 0;
    for (const giTriangle& t : block.triangles())
        sum += doubled_area(block, t).dot(block.nodes()[t[0]] - apex) / 6;
    return sum;
}
}
