#include "grSplit.h"
#include "grSplitUtils.h"
#include "grSplitZonesIterator.h"

#include "dgImage.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace
{
const giBox3 model(giPoint3(-4, 10, 0), giPoint3(4, 18, 5));

std::vector<int> walked(grSplitZonesIterator it)
{
    std::vector<int> zones;
    for (; it.valid(); it.next())
        zones.push_back(it.zone());
    return zones;
}
}

TEST(grSplit, index_is_spread_over_the_channels_and_read_back)
{
    for (const int index : {0, 1, 255, 256, 258, 65535, 65536, 0xABCDEF})
    {
        unsigned short channels[3];
        double shares[3];
        grSplit::index_to_rgb(index, channels[0], channels[1], channels[2]);
        grSplit::index_to_rgb(index, shares[0], shares[1], shares[2]);
        for (int k = 0; k < 3; ++k)
        {
            EXPECT_EQ(channels[k], index / (k == 0 ? 1 : k == 1 ? 256 : 65536) % 256);
            EXPECT_DOUBLE_EQ(shares[k] * 255, channels[k]);
        }
        EXPECT_EQ(grSplit::rgb_to_index(channels[0], channels[1], channels[2]), index);
    }
    EXPECT_EQ(grSplit::max_index(), 0xFFFFFF);
}

TEST(grSplit, image_is_scanned_without_its_background)
{
    const dgImage image{
        3, 2, {0, 0, 0, 255, 2, 1, 0, 255, 255, 255, 255, 255, 2, 1, 0, 0, 255, 255, 255, 0, 7, 0, 0, 255}};
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
    counts.set(2, 5);
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
        {"without end", std::numeric_limits<double>::infinity(), 1, 1000, 1000},
    };
    for (const auto& c : cases)
    {
        int first = -1, second = -1;
        grSplitUtils::find_zone_layout(c.n, c.aspect, first, second);
        EXPECT_EQ(first, c.first) << c.name;
        EXPECT_EQ(second, c.second) << c.name;
    }
}

TEST(grSplitZones, zones_tile_the_model_and_a_box_meets_a_range_of_them)
{
    const grSplitZones zones(model, 16);
    EXPECT_EQ(zones.num_rows() * 10 + zones.num_cols(), 44);
    EXPECT_EQ(zones.zone_box(0), giBox3(giPoint3(-4, 10, 0), giPoint3(-2, 12, 5)));
    EXPECT_EQ(zones.zone_box(6), giBox3(giPoint3(0, 12, 0), giPoint3(2, 14, 5)));
    EXPECT_EQ(zones.merge(0, 15), model);
    EXPECT_EQ(zones.merge(5, 6), giBox3(giPoint3(-2, 12, 0), giPoint3(2, 14, 5)));
    EXPECT_EQ(grSplitZones(model, 0.1).num_zones(), 1);
    const grSplitZones flat(giBox3(giPoint3(0, 0, 0), giPoint3(9, 0, 1)), 16);
    EXPECT_EQ(flat.num_rows() * 10 + flat.num_cols(), 44);

    int lower = -1, upper = -1;
    ASSERT_TRUE(zones.zone(giBox3(giPoint3(-1, 11, 1), giPoint3(1, 13, 2)), lower, upper));
    EXPECT_EQ(walked(grSplitZonesIterator(zones, lower, upper)), (std::vector<int>{1, 2, 5, 6}));
    ASSERT_TRUE(zones.zone(giBox3(giPoint3(-9, 0, 1), giPoint3(9, 20, 2)), lower, upper)); // larger than the model
    EXPECT_EQ(walked(grSplitZonesIterator(zones, lower, upper)), walked(grSplitZonesIterator(zones)));
    EXPECT_EQ(walked(grSplitZonesIterator(zones)).size(), 16u);
    EXPECT_FALSE(zones.zone(giBox3(giPoint3(5, 11, 1), giPoint3(6, 13, 2)), lower, upper));
    EXPECT_FALSE(zones.zone(giBox3(), lower, upper));
}
