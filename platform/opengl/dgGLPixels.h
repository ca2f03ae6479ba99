#pragma once

#include "giBox2.h"

#include <algorithm>

/// Pixels of a framebuffer: the lowest one at the left, and how many.
struct dgGLPixels
{
    int x, y, width, height;
};

/// A device box as OpenGL takes boxes. Positions are cut off towards zero, as everywhere in device space, and beyond
/// all framebuffers. An empty box has no pixels.
inline dgGLPixels dg_gl_pixels(const giBox2& device_box)
{
    const auto pixel = [](double place)
    {
        constexpr double farthest = 1 << 28;
        return static_cast<int>(place > -farthest ? std::min(place, farthest) : -farthest);
    };
    const int x = pixel(device_box.low().x()), y = pixel(device_box.low().y());
    return {x, y, std::max(pixel(device_box.high().x()) - x + 1, 0), std::max(pixel(device_box.high().y()) - y + 1, 0)};
}
