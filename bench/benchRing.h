#pragma once

#include "giTriBlock.h"
#include "giVector3.h"

#include <cmath>
#include <utility>
#include <vector>

constexpr double two_pi = 6.283185307179586;

/// A place on a ring with waves, by the angles around it and across it.
inline giPoint3 on_ring(double u, double v)
{
    const double thickness = 30 + 2 * std::sin(12 * u) * std::cos(3 * v);
    return giPoint3((70 + thickness * std::cos(v)) * std::cos(u), (70 + thickness * std::cos(v)) * std::sin(u),
                    thickness * std::sin(v));
}

/// Rows and columns of squares of two triangles each, of the ring that has around by across of them.
inline giTriBlock* ring(int around, int across, int first_row, int rows, int first_column, int columns)
{
    auto* block = new giTriBlock;
    block->nodes().reserve((rows + 1) * (columns + 1));
    std::vector<giVector3> normals;
    for (int row = first_row; row <= first_row + rows; ++row)
        for (int column = first_column; column <= first_column + columns; ++column)
        {
            const double u = two_pi * row / around, v = two_pi * column / across;
            block->nodes().append(on_ring(u, v));
            normals.emplace_back(std::cos(v) * std::cos(u), std::cos(v) * std::sin(u), std::sin(v));
        }
    block->create_normals() = std::move(normals);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
        {
            const int node = row * (columns + 1) + column;
            block->triangles().emplace_back(node, node + columns + 1, node + columns + 2);
            block->triangles().emplace_back(node, node + columns + 2, node + 1);
        }
    return block;
}
