#pragma once

#include "dgPolyline.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"

#include <utility>
#include <vector>

/// A line of that many segments of length 1 along x, from the origin.
inline dgPolyline* ts_line(int n_segments)
{
    std::vector<giPoint3> points;
    for (int i = 0; i <= n_segments; ++i)
        points.emplace_back(i, 0, 0);
    return new dgPolyline(std::move(points));
}

/// A block of that many triangles, all in one place.
inline dgTriangleBlock* ts_block(int n_triangles)
{
    auto* block = new giTriBlock;
    for (int i = 0; i < 3; ++i)
        block->nodes().append(giPoint3(i, i % 2, 0));
    block->triangles().assign(static_cast<std::size_t>(n_triangles), giTriangle(0, 1, 2));
    return new dgTriangleBlock(block, 1);
}

/// Two triangles for each square of a net, row by row from one row up to another; place and normal take the column and
/// the row of a node.
template <class Place, class Normal>
giTriBlock* ts_sheet(int columns, int first_row, int last_row, Place place, Normal normal)
{
    auto* block = new giTriBlock;
    std::vector<giVector3> normals;
    const int across = columns + 1;
    for (int row = first_row; row <= last_row; ++row)
        for (int column = 0; column <= columns; ++column)
        {
            if (const int node = block->node_count(); row < last_row && column < columns)
            {
                block->triangles().emplace_back(node, node + 1, node + across + 1);
                block->triangles().emplace_back(node, node + across + 1, node + across);
            }
            block->nodes().append(place(column, row));
            normals.push_back(normal(column, row));
        }
    block->create_normals() = std::move(normals);
    return block;
}
