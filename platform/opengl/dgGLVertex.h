#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

/// What the buffers of a geometry store hold for each vertex. Normals have 10 bits a component, which is finer than
/// 8-bit colours show.
struct dgGLVertex
{
    float position[3];
    std::uint32_t normal; ///< and in its last two bits, which corner it is of a triangle with bends

    /// A normal of any length; of lengths near 0 it stays 0 rather than become a direction of its own.
    static std::uint32_t packed(double x, double y, double z)
    {
        const double length = std::sqrt(x * x + y * y + z * z);
        const double scale = length > 1e-30 ? 1 / length : 0;
        return packed_as_is(x * scale, y * scale, z * scale);
    }

    /// Components from -1 to 1.
    static std::uint32_t packed_as_is(double x, double y, double z)
    {
        const auto bits = [](double component)
        { return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lrint(511 * component))) & 0x3ff; };
        return bits(x) | bits(y) << 10 | bits(z) << 20;
    }
};
static_assert(sizeof(dgGLVertex) == 16);

/// What stands in place of a vertex behind the third corner of a triangle whose normals are quadratic: half the bend of
/// each of its sides (dgGLShape).
struct dgGLBends
{
    std::uint32_t sides[3];
    std::uint32_t unused;

    /// The mark of a corner, 0 to 2, in the bits that a normal leaves free. Vertices without a mark count as third
    /// ones, so that triangles of them have no bends, whatever stands behind them.
    static std::uint32_t corner(std::size_t number) { return number == 0 ? 1u << 30 : number == 1 ? 2u << 30 : 0; }
};
static_assert(sizeof(dgGLBends) == sizeof(dgGLVertex));
