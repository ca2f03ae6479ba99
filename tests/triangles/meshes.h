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

/// A block with normals and texture coordinates that vary from node to node.
inline giTriBlock block(const std::vector<giPoint3>& nodes, const std::vector<giTriangle>& triangles)
{
    giTriBlock block;
    block.nodes() = giBoxArrPoint3(std::vector<giPoint3>(nodes));
    block.triangles() = triangles;
    std::vector<giVector3> normals;
    std::vector<giPoint2> texture;
    for (const giPoint3& p : nodes)
    {
        normals.push_back(p.vector().unit());
        texture.emplace_back(p.x() * 0.1, p.y() * 0.2);
    }
    block.create_normals() = normals;
    block.create_texture_coordinates() = texture;
    return block;
}

/// Two triangles for each square of a net of nodes that lie column by column; with ends meeting where it is closed.
inline std::vector<giTriangle> net(int columns, int rows, bool closed)
{
    const int high = closed ? rows : rows + 1, wide = closed ? columns : columns + 1;
    const auto node = [=](int i, int j) { return i % wide * high + j % high; };
    std::vector<giTriangle> triangles;
    for (int i = 0; i < columns; ++i)
        for (int j = 0; j < rows; ++j)
        {
            triangles.emplace_back(node(i, j), node(i + 1, j), node(i + 1, j + 1));
            triangles.emplace_back(node(i, j), node(i + 1, j + 1), node(i, j + 1));
        }
    return triangles;
}

/// A closed torus with an uneven surface; nodes are shared and triangles face outwards.
inline giTriBlock torus(int around, int across, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> thickness(2, 3);
    std::vector<giPoint3> nodes;
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            const double u = 2 * std::numbers::pi * i / around, v = 2 * std::numbers::pi * j / across;
            const double r = thickness(random), far = 7 + r * std::cos(v);
            nodes.emplace_back(far * std::cos(u), far * std::sin(u), r * std::sin(v));
        }
    return block(nodes, net(around, across, true));
}

/// A grid of unit squares in the plane z = 0 from (0, 0), facing up. Nodes lie column by column.
inline giTriBlock grid(int columns, int rows)
{
    std::vector<giPoint3> nodes;
    for (int x = 0; x <= columns; ++x)
        for (int y = 0; y <= rows; ++y)
            nodes.emplace_back(x, y, 0);
    return block(nodes, net(columns, rows, false));
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

/// The signed volume of a closed mesh.
inline double volume(const giTriBlock& block)
{
    double sum = 0;
    for (const giTriangle& t : block.triangles())
        sum += doubled_area(block, t).dot(block.nodes()[t[0]].vector()) / 6;
    return sum;
}
}
