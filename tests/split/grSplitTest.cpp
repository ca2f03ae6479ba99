#include "grSplit.h"
#include "grSplitUtils.h"

#include "dgImage.h"

#include <gtest/gtest.h>

TEST(grSplit, index_is_spread_over_the_channels_and_read_back)
{
    unsigned short red, green, blue;
    grSplit::index_to_rgb(258, red, green, blue);
    EXPECT_EQ(red, 2);
    EXPECT_EQ(green, 1);
    EXPECT_EQ(blue, 0);
    double share[3];
    grSplit::index_to_rgb(0x0000FF, share[0], share[1], share[2]);
    EXPECT_EQ(share[0], 1.0);
    EXPECT_EQ(share[1], 0.0);
    for (const int index : {0, 1, 255, 256, 65535, 65536, 0xABCDEF})
    {
        grSplit::index_to_rgb(index, red, green, blue);
        EXPECT_EQ(grSplit::rgb_to_index(red, green, blue), index);
    }
    EXPECT_EQ(grSplit::max_index(), 0xFFFFFF);
}

TEST(grSplit, image_is_scanned_without_its_background)
{
    dgImage image;
    image.width = 3;
    image.height = 2;
    image.rgba = {0, 0, 0, 255, 2, 1, 0, 255, 255, 255, 255, 255, 2, 1, 0, 0, 255, 255, 255, 0, 7, 0, 0, 255};
    EXPECT_EQ(grSplit::get_pixel(image, 1, 0), 258);
    EXPECT_EQ(grSplit::get_pixel(image, 2, 1), 7);
    grBlockIdx indices;
    grSplit::scan_image(image, indices);
    EXPECT_EQ(indices.count(), 3); // 0 is a block, white is none
    EXPECT_TRUE(indices.contains(0) && indices.contains(258) && indices.contains(7));
}

TEST(grSplitUtils, counts_start_at_0)
{
    grPixelCountcoDynArr counts;
    counts.set(9, 5);
    grSplitUtils::init(counts, 4);
    ASSERT_EQ(counts.count(), 4);
    for (const int count : counts)
        EXPECT_EQ(count, 0);
}

TEST(grSplitUtils, zones_are_laid_out_to_an_aspect)
{
    const struct
    {
        const char* name;
        double n, aspect;
        int first, second;
    } cases[] = {
        {"none", 0.4, 1, 0, 1},
        {"one", 0.5, 1, 1, 1},
        {"below 2", 1.9, 3, 2, 1},
        {"square", 16, 1, 4, 4},
        {"four times as wide", 16, 4, 2, 8},
        {"never less than two rows", 16, 100, 2, 8},
        {"high", 16, 0, 16, 1},
        // k = 1 scores |1 / 8 - 5 / 16| = 3 / 16, and so does k = 2 with |4 / 8 - 5 / 16|.
        {"of equal scores the first", 8, 5.0 / 16, 8, 1},
        {"not whole", 10.5, 1, 4, 3},
    };
    for (const auto& c : cases)
    {
        int first = -1, second = -1;
        grSplitUtils::find_zone_layout(c.n, c.aspect, first, second);
        EXPECT_EQ(first, c.first) << c.name;
        EXPECT_EQ(second, c.second) << c.name;
    }
}
