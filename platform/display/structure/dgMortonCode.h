#pragma once

#include "giBox3.h"

#include <cstdint>

/// Numbers points along a curve that fills a box: points of near numbers are near in space (Morton, 1966). Points
/// outside count as on the box's sides.
class dgMortonCode
{
public:
    explicit dgMortonCode(const giBox3& box)
        : the_low(box.low()), the_scale{scale(box.width()), scale(box.height()), scale(box.depth())}
    {}

    /// 16 bits an axis, those of x, y and z in turn.
    std::uint64_t operator()(const giPoint3& point) const
    {
        return spread(cell((point.x() - the_low.x()) * the_scale[0])) |
               spread(cell((point.y() - the_low.y()) * the_scale[1])) << 1 |
               spread(cell((point.z() - the_low.z()) * the_scale[2])) << 2;
    }

private:
    static constexpr double cells = 65536;
    static double scale(double extent) { return extent > 0 ? cells / extent : 0; }
    static std::uint64_t cell(double place)
    {
        return place > 0 ? static_cast<std::uint64_t>(place < cells - 1 ? place : cells - 1) : 0;
    }
    static std::uint64_t spread(std::uint64_t bits)
    {
        bits = (bits | bits << 32) & 0x00ff00000000ffffull;
        bits = (bits | bits << 16) & 0x00ff0000ff0000ffull;
        bits = (bits | bits << 8) & 0xf00f00f00f00f00full;
        bits = (bits | bits << 4) & 0x30c30c30c30c30c3ull;
        return (bits | bits << 2) & 0x9249249249249249ull;
    }

    giPoint3 the_low;
    double the_scale[3];
};
