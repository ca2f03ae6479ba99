#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

/// What is wrong with a picture of these pixels (row by row, 8-bit RGBA in one word each); empty when it shows
/// something. width is greater than 0.
///
/// A pixel counts as drawn where it differs from the start of its row, so a graduated background alone shows nothing.
inline std::string picture_fault(std::size_t width, const std::vector<std::uint32_t>& pixels)
{
    // A drawn part is shaded and covers more of the picture than noise or a single line would.
    const std::size_t fewest_colours = 16;
    const double smallest_drawn_share = 0.005;

    std::size_t drawn = 0;
    std::unordered_set<std::uint32_t> colours;
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        if (pixels[i] == pixels[i - i % width])
            continue;
        ++drawn;
        colours.insert(pixels[i]);
    }
    if (double(drawn) < smallest_drawn_share * double(pixels.size()))
        return "has only " + std::to_string(drawn) + " pixels that are not background";
    if (colours.size() < fewest_colours)
        return "shows only " + std::to_string(colours.size()) + " colours";
    return {};
}
