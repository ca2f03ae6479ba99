#include "grIdImage.h"
#include "grSplit.h"
#include "grSplitUtils.h"

#include "splitScene.h"

#include "dgAttributeArray.h"
#include "dgImage.h"
#include "dgInteriorStyle.h"
#include "dgS.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
std::vector<int> counts_of(grIdImage& image, const giBox3& box, const std::vector<int>& blocks, grIdImageSense sense)
{
    grPixelCountcoDynArr counts;
    image.count_pixels(image.make_image(box, blocks, sense), counts);
    return {counts.begin(), counts.end()};
}
}

TEST(grIdImage, blocks_cover_just_their_pixels_and_hide_each_other_whatever_the_default_style)
{
    SplitScene scene;
    scene.add_plate(0, 0, 8, 4, 1);
    scene.add_plate(2, 1, 6, 3, 2);
    scene.add_plate(0, 0, 4, 4, 0, -1);
    const giBox3 box(giPoint3(0, 0, 0), giPoint3(8, 4, 2));
    for (const int filled : {0, 1}) // the default at last
    {
        dgS::attribute_array().set(new dgInteriorStyle(filled));
        grIdImage image;
        ASSERT_TRUE(image.initialize(&scene.window, 80, 80, scene.blocks, box));
        int width = 0, height = 0;
        image.size_of_box(box, width, height);
        EXPECT_EQ(width, 80);
        EXPECT_EQ(height, 40);
        EXPECT_EQ(counts_of(image, box, {0, 1, 2}, grID_IMAGE_UPPER), (std::vector<int>{3200 - 800, 800, 0}));
        EXPECT_EQ(counts_of(image, box, {0, 1, 2}, grID_IMAGE_LOWER), (std::vector<int>{1600, 0, 1600}));
        EXPECT_EQ(counts_of(image, box, {1}, grID_IMAGE_LOWER), (std::vector<int>{0, 800, 0}));
    }
}

TEST(grIdImage, image_is_the_right_way_round_and_the_lower_one_turned_over)
{
    SplitScene scene;
    scene.add_plate(0, 0, 1, 1, 0); // at the low corner
    const giBox3 box(giPoint3(0, 0, -1), giPoint3(4, 2, 1));
    grIdImage image;
    ASSERT_TRUE(image.initialize(&scene.window, 40, 40, scene.blocks, box));
    for (const auto& [sense, column] : {std::pair(grID_IMAGE_UPPER, 2), {grID_IMAGE_LOWER, 37}})
    {
        const dgImage& seen = image.make_image(box, {0}, sense);
        ASSERT_EQ(seen.width, 40);
        ASSERT_EQ(seen.height, 20);
        EXPECT_EQ(grSplit::get_pixel(seen, column, 2), 0);
        EXPECT_EQ(grSplit::get_pixel(seen, 39 - column, 2), grSplit::max_index());
        EXPECT_EQ(grSplit::get_pixel(seen, column, 17), grSplit::max_index());
    }
    const dgImage& small = image.make_image(box, {0}, grID_IMAGE_UPPER, 4);
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
    EXPECT_EQ(counts_of(image, box, scene.all(), grID_IMAGE_UPPER), std::vector<int>(n, 4));
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
        grPixelCountcoDynArr alone;
        grSplitUtils::init(alone, scene.blocks.count());
        image.count_alone(box, scene.all(), sense, alone);
        for (const int block : scene.all())
            EXPECT_EQ(alone[block], counts_of(image, box, {block}, sense)[static_cast<std::size_t>(block)]) << block;
        EXPECT_EQ(alone[30], 130 * 90);
        EXPECT_EQ(alone[31], 0);
    }
}

TEST(grIdImage, what_cannot_be_drawn_is_refused)
{
    SplitScene scene;
    scene.add_plate(0, 0, 1, 1, 0);
    grIdImage image;
    const giBox3 box = scene.owned[0]->box(),
                 endless(giPoint3(), giPoint3(std::numeric_limits<double>::infinity(), 1, 1));
    EXPECT_FALSE(image.initialize(nullptr, 10, 10, scene.blocks, box));
    EXPECT_FALSE(image.initialize(&scene.window, 0, 10, scene.blocks, box));
    EXPECT_FALSE(image.initialize(&scene.window, 10, 0, scene.blocks, box));
    EXPECT_FALSE(image.initialize(&scene.window, 10, 10, scene.blocks, giBox3()));
    EXPECT_FALSE(image.initialize(&scene.window, 10, 10, scene.blocks, endless));
    EXPECT_FALSE(image.initialize(&scene.window, 10000000, 10, scene.blocks, box)); // more than any driver makes
    EXPECT_FALSE(image.initialize(&scene.window, 10, 10000000, scene.blocks, box));
    ASSERT_TRUE(image.initialize(&scene.window, 10, 10, scene.blocks, box));
    const giBox3 thin(giPoint3(0, 0, 0), giPoint3(1e-6, 5, 1));
    EXPECT_EQ(image.make_image(thin, {0}, grID_IMAGE_UPPER).width, 1);
    const giBox3 line(giPoint3(0, 0, 0), giPoint3(0, 0, 5)); // no extent to be enlarged
    EXPECT_EQ(image.make_image(line, {0}, grID_IMAGE_UPPER).rgba.size(), 0u);
}
