#include "gr_make_tblock.h"

#include "giBox3.h"
#include "giTriBlock.h"
#include "giXform3.h"

#include <algorithm>
#include <memory>

namespace
{
std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}
}

giTriBlock* gr_make_tblock(const std::vector<giPoint3>& nodes, const std::vector<giTriangle>& triangles)
{
    const int count = static_cast<int>(nodes.size());
    for (const giTriangle& triangle : triangles)
        for (int vertex = 0; vertex < 3; ++vertex)
            if (triangle[vertex] < 0 || triangle[vertex] >= count)
                return nullptr;

    auto block = std::make_unique<giTriBlock>();
    block->nodes() = giBoxArrPoint3(std::vector<giPoint3>(nodes));
    block->triangles() = triangles;
    std::vector<giVector3>& normals = block->create_normals();
    for (const giTriangle& triangle : triangles)
    {
        const giPoint3& p = nodes[at(triangle[0])];
        const giVector3 doubled_area = (nodes[at(triangle[1])] - p).cross(nodes[at(triangle[2])] - p);
        for (int vertex = 0; vertex < 3; ++vertex)
            normals[at(triangle[vertex])] += doubled_area;
    }
    for (giVector3& normal : normals)
        normal.unitise();
    return block.release();
}

giTriBlock* gr_make_box_tblock(const giBox3& box)
{
    if (box.empty())
        return nullptr;
    auto block = std::make_unique<giTriBlock>();
    std::vector<giVector3> normals;
    std::vector<giPoint2> texture;
    for (int axis = 0; axis < 3; ++axis)
        for (int side = 0; side < 2; ++side)
        {
            // Two axes of the face that turn to its outwards normal; bit k of a corner's number is its side along k.
            const int u = (axis + (side ? 1 : 2)) % 3, v = (axis + (side ? 2 : 1)) % 3;
            const double sign = side ? 1 : -1;
            const int first = block->node_count();
            for (const int corner : {0, 1, 3, 2})
            {
                const int right = corner & 1, up = corner >> 1;
                block->nodes().append(box.corner(side << axis | right << u | up << v));
                normals.push_back(giVector3(axis == 0, axis == 1, axis == 2) * sign);
                texture.emplace_back(right, up);
            }
            block->triangles().emplace_back(first, first + 1, first + 2);
            block->triangles().emplace_back(first, first + 2, first + 3);
        }
    block->create_normals() = std::move(normals);
    block->create_texture_coordinates() = std::move(texture);
    return block.release();
}

giTriBlock* gr_make_cube(const giPoint3& centre, double side)
{
    const giVector3 half(side / 2, side / 2, side / 2);
    return gr_make_box_tblock(giBox3(centre - half, centre + half));
}

void gr_transform_tblock(giTriBlock& block, const giXform3& xform)
{
    if (xform.is_identity())
        return;
    block.nodes().transform(xform);
    // Row k of the transposed inverse is, up to its length, the cross product of the other two rows.
    const giVector3 x(xform(0, 0), xform(0, 1), xform(0, 2)), y(xform(1, 0), xform(1, 1), xform(1, 2)),
        z(xform(2, 0), xform(2, 1), xform(2, 2));
    const double sign = x.cross(y).dot(z) < 0 ? -1 : 1;
    if (std::vector<giVector3>* normals = block.normals())
        for (giVector3& n : *normals)
            n = ((y.cross(z) * n.x() + z.cross(x) * n.y() + x.cross(y) * n.z()) * sign).unit();
    if (sign < 0)
        for (giTriangle& triangle : block.triangles())
            std::swap(triangle[1], triangle[2]);
}
