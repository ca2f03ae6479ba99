#include "grIdImage.h"
#include "grSplit.h"
#include "grSplitUtils.h"

#include "splitScene.h"

#include "dgImage.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
grPixelCountcoDynArr counts_of(grIdImage& image, const giBox3& box, const std::vector<int>& blocks,
                               grIdImageSense sense, int n_blocks)
{
    grPixelCountcoDynArr counts;
    grSplitUtils::init(counts, n_blocks);
    image.count_pixels(image.make_image(box, blocks, sense), counts);
    return counts;
}
}

TEST(grIdImage, blocks_cover_just_their_pixels_and_hide_each_other)
{
    SplitScene scene;
    scene.add_plate(0, 0, 8, 4, 1);
    scene.add_plate(2, 1, 6, 3, 2);
    scene.add_plate(0, 0, 4, 4, 0, -1);
    const giBox3 box(giPoint3(0, 0, 0), giPoint3(8, 4, 2));
    grIdImage image;
    ASSERT_TRUE(image.initialize(&scene.window, 80, 80, scene.blocks, box));
    int width = 0, height = 0;
    image.size_of_box(box, width, height);
    EXPECT_EQ(width, 80);
    EXPECT_EQ(height, 40);
    const grPixelCountcoDynArr above = counts_of(image, box, {0, 1, 2}, grID_IMAGE_UPPER, 3);
    EXPECT_EQ(above[0], 3200 - 800);
    EXPECT_EQ(above[1], 800);
    EXPECT_EQ(above[2], 0);
    const grPixelCountcoDynArr below = counts_of(image, box, {0, 1, 2}, grID_IMAGE_LOWER, 3);
    EXPECT_EQ(below[0], 1600);
    EXPECT_EQ(below[1], 0);
    EXPECT_EQ(below[2], 1600);
    grPixelCountcoDynArr counts; // made to fit
    image.count_pixels(image.make_image(box, {1}, grID_IMAGE_LOWER), counts);
    ASSERT_EQ(counts.count(), 3);
    EXPECT_EQ(counts[1], 800);
}

TEST(grIdImage, image_is_the_right_way_round_and_the_lower_one_turned_over)
{
    SplitScene scene;
    scene.add_plate(0, 0, 1, 1, 0); // at the low corner
    const giBox3 box(giPoint3(0, 0, -1), giPoint3(4, 2, 1));
    grIdImage image;
    ASSERT_TRUE(image.initialize(&scene.window, 40, 40, scene.blocks, box));
    const dgImage above = image.make_image(box, {0}, grID_IMAGE_UPPER);
    ASSERT_EQ(above.width, 40);
    ASSERT_EQ(above.height, 20);
    EXPECT_EQ(grSplit::get_pixel(above, 2, 2), 0);
    EXPECT_EQ(grSplit::get_pixel(above, 37, 2), grSplit::max_index());
    EXPECT_EQ(grSplit::get_pixel(above, 2, 17), grSplit::max_index());
    const dgImage below = image.make_image(box, {0}, grID_IMAGE_LOWER);
    EXPECT_EQ(grSplit::get_pixel(below, 37, 2), 0);
    EXPECT_EQ(grSplit::get_pixel(below, 2, 2), grSplit::max_index());
    const dgImage small = image.make_image(box, {0}, grID_IMAGE_UPPER, 4);
    EXPECT_EQ(small.width, 10);
    EXPECT_EQ(small.height, 5);
}

TEST(grIdImage, colours_are_exact_for_every_index)
{
    SplitScene scene;
    constexpr int n = 1200; // all three channels would need 65536; two of them are enough to see rounding
    for (int i = 0; i < n; ++i)
        scene.add_plate(i % 40, i / 40, i % 40 + 1, i / 40 + 1, 0);
    const giBox3 box(giPoint3(0, 0, -1), giPoint3(40, 30, 1));
    grIdImage image;
    ASSERT_TRUE(image.initialize(&scene.window, 80, 80, scene.blocks, box));
    std::vector<int> all;
    for (int i = 0; i < n; ++i)
        all.push_back(i);
    const grPixelCountcoDynArr counts = counts_of(image, box, all, grID_IMAGE_UPPER, n);
    for (int i = 0; i < n; ++i)
        ASSERT_EQ(counts[i], 4) << i;
}

TEST(grIdImage, blocks_counted_alone_have_the_pixels_of_an_image_of_their_own)
{
    SplitScene scene;
    for (int i = 0; i < 30; ++i)
        scene.add_plate(0.31 * i, 0.17 * i, 0.31 * i + 0.3 * (1 + i % 7), 0.17 * i + 0.4 * (1 + i % 5), 0.1 * i);
    scene.add_box(giPoint3(-1, -1, -1), giPoint3(12, 8, -0.5)); // as large as the image
    scene.add_plate(50, 50, 51, 51, 0);                         // outside of it
    const giBox3 box(giPoint3(-1, -1, -1), giPoint3(12, 8, 4));
    grIdImage image;
    ASSERT_TRUE(image.initialize(&scene.window, 130, 130, scene.blocks, box));
    for (const grIdImageSense sense : {grID_IMAGE_UPPER, grID_IMAGE_LOWER})
    {
        std::vector<int> all;
        for (int i = 0; i < scene.blocks.count(); ++i)
            all.push_back(i);
        grPixelCountcoDynArr alone;
        grSplitUtils::init(alone, scene.blocks.count());
        image.count_alone(box, all, sense, alone);
        for (const int block : all)
            EXPECT_EQ(alone[block], counts_of(image, box, {block}, sense, scene.blocks.count())[block]) << block;
        EXPECT_EQ(alone[30], 130 * 90);
        EXPECT_EQ(alone[31], 0);
    }
}

TEST(grIdImage, what_cannot_be_drawn_is_refused)
{
    SplitScene scene;
    scene.add_plate(0, 0, 1, 1, 0);
    grIdImage image;
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(image.initialize(nullptr, 10, 10, scene.blocks, scene.box()));
    EXPECT_FALSE(image.initialize(&scene.window, 0, 10, scene.blocks, scene.box()));
    EXPECT_FALSE(image.initialize(&scene.window, 10, 10, scene.blocks, giBox3()));
    EXPECT_FALSE(image.initialize(&scene.window, 10, 10, scene.blocks, giBox3(giPoint3(), giPoint3(inf, 1, 1))));
    ASSERT_TRUE(image.initialize(&scene.window, 10, 10, scene.blocks, scene.box()));
    const giBox3 line(giPoint3(0, 0, 0), giPoint3(0, 0, 5)); // no extent to be enlarged
    EXPECT_EQ(image.make_image(line, {0}, grID_IMAGE_UPPER).rgba.size(), 0u);
}
