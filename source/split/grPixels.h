#pragma once

#include "dgImage.h"
#include "grSplit.h"

#include <cstddef>

/// The identifier at a pixel of four channels.
inline unsigned gr_pixel_index(const unsigned char* rgba)
{
    // All four channels are named, so that compilers make one load of them.
    const unsigned pixel = rgba[0] | static_cast<unsigned>(rgba[1]) << 8 | static_cast<unsigned>(rgba[2]) << 16 |
                           static_cast<unsigned>(rgba[3]) << 24;
    return pixel & 0xFFFFFF;
}

/// Calls visit(index, length) for each run of equal pixels, rows following each other.
template <class Visit>
void gr_for_each_run(const dgImage& image, Visit visit)
{
    const unsigned char* pixel = image.rgba.data();
    const unsigned char* const end = pixel + image.rgba.size();
    while (pixel != end)
    {
        const unsigned char* const start = pixel;
        const unsigned index = gr_pixel_index(start);
        do
            pixel += 4;
        while (pixel != end && gr_pixel_index(pixel) == index);
        visit(static_cast<int>(index), static_cast<int>((pixel - start) / 4));
    }
}
