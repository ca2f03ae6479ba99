#pragma once

#include "giPlane.h"
#include "giTriBlock.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

/// The plane that the benchmarks cut bench_ring by. It passes through the ring and through none of its nodes.
inline const giPlane bench_cut_plane(giPoint3(3, 2, 1), giVector3(0.8, 0.5, 0.3));

/// A closed ring with waves on it and about that many triangles, with normals and texture coordinates.
inline giTriBlock bench_ring(int triangles)
{
    constexpr double two_pi = 2 * std::numbers::pi;
    const int across = static_cast<int>(std::sqrt(triangles / 2. / 3)), around = triangles / 2 / across;
    giTriBlock block;
    block.nodes().reserve(around * across);
    std::vector<giVector3> normals;
    std::vector<giPoint2> texture;
    normals.reserve(static_cast<std::size_t>(around) * across);
    texture.reserve(static_cast<std::size_t>(around) * across);
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            const double u = two_pi * i / around, v = two_pi * j / across;
            const double thickness = 30 + 2 * std::sin(12 * u) * std::cos(3 * v);
            const giVector3 outwards(std::cos(v) * std::cos(u), std::cos(v) * std::sin(u), std::sin(v));
            block.nodes().append(giPoint3(70 * std::cos(u), 70 * std::sin(u), 0) + outwards * thickness);
            normals.push_back(outwards);
            texture.emplace_back(u, v);
        }
    block.create_normals() = std::move(normals);
    block.create_texture_coordinates() = std::move(texture);
    const auto node = [&](int i, int j) { return i % around * across + j % across; };
    block.triangles().reserve(static_cast<std::size_t>(around) * across * 2);
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            block.triangles().emplace_back(node(i, j), node(i + 1, j), node(i + 1, j + 1));
            block.triangles().emplace_back(node(i, j), node(i + 1, j + 1), node(i, j + 1));
        }
    return block;
}
