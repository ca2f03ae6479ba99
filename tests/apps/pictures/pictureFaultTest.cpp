#include "pictureFault.h"

#include <gtest/gtest.h>

namespace
{
const std::size_t picture_width = 100;
const std::size_t picture_height = 100;

// A background graduated from row to row, with the last drawn_per_row pixels of each row shaded over some colours.
std::vector<std::uint32_t> picture(std::size_t drawn_per_row, std::uint32_t colours)
{
    std::vector<std::uint32_t> pixels;
    for (std::size_t y = 0; y < picture_height; ++y)
    {
        pixels.insert(pixels.end(), picture_width - drawn_per_row, std::uint32_t(0xff000000 + y));
        for (std::size_t x = 0; x < drawn_per_row; ++x)
            pixels.push_back(std::uint32_t(0xff800000 + (x + y) % colours));
    }
    return pixels;
}
}

TEST(picture_fault, refuses_what_shows_nothing)
{
    EXPECT_NE(picture_fault(1, {}), "") << "no pixels at all";
    EXPECT_NE(picture_fault(picture_width, picture(0, 1)), "") << "a graduated background alone";
    EXPECT_NE(picture_fault(picture_width, picture(50, 1)), "") << "a flat silhouette";

    std::vector<std::uint32_t> line = picture(0, 1);
    for (std::uint32_t i = 0; i < 40; ++i)
        line[20 * picture_width + 30 + i] = 0xffff0000 + i;
    EXPECT_NE(picture_fault(picture_width, line), "") << "40 of 10000 pixels, less than one in 200";
}

TEST(picture_fault, accepts_a_shaded_part)
{
    EXPECT_EQ(picture_fault(picture_width, picture(50, 100)), "");
    EXPECT_EQ(picture_fault(picture_width, picture(picture_width, 100)), "") << "no background left";
}
