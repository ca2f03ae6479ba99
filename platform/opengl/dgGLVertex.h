#pragma once

#include <cmath>
#include <cstdint>

/// What the buffers of a geometry store hold for each vertex. Normals have 10 bits a component, which is finer than
/// 8-bit colours show.
struct dgGLVertex
{
    float position[3];
    std::uint32_t normal;

    /// A normal of any length; of lengths near 0 it stays 0 rather than become a direction of its own.
    static std::uint32_t packed(double x, double y, double z)
    {
        const double length = std::sqrt(x * x + y * y + z * z);
        const double scale = length > 1e-30 ? 511 / length : 0;
        const auto bits = [scale](double component)
        { return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lrint(component * scale))) & 0x3ff; };
        return bits(x) | bits(y) << 10 | bits(z) << 20;
    }
};
static_assert(sizeof(dgGLVertex) == 16);
