#pragma once

#include <vector>

/// Pixels read back from a renderer: 8-bit red, green, blue and alpha, rows from the bottom up.
struct dgImage
{
    int width = 0;
    int height = 0;
    std::vector<unsigned char> rgba;

    const unsigned char* pixel(int x, int y) const
    {
        return rgba.data() + 4 * (static_cast<std::size_t>(y) * width + x);
    }
};
