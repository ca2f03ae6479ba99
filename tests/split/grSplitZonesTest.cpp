#include "grSplitZones.h"
#include "grSplitZonesIterator.h"

#include <gtest/gtest.h>

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

TEST(grSplitZones, zones_tile_the_model)
{
    const grSplitZones zones(model, 16);
    EXPECT_EQ(zones.num_rows(), 4);
    EXPECT_EQ(zones.num_cols(), 4);
    EXPECT_EQ(zones.zone_box(0), giBox3(giPoint3(-4, 10, 0), giPoint3(-2, 12, 5)));
    EXPECT_EQ(zones.zone_box(6), giBox3(giPoint3(0, 12, 0), giPoint3(2, 14, 5)));
    EXPECT_EQ(zones.merge(0, 15), model);
    EXPECT_EQ(zones.merge(5, 6), giBox3(giPoint3(-2, 12, 0), giPoint3(2, 14, 5)));
    int col = -1, row = -1;
    zones.get_col_and_row(6, col, row);
    EXPECT_EQ(col, 2);
    EXPECT_EQ(row, 1);
    EXPECT_EQ(grSplitZones(model, 0.1).num_zones(), 1);
}

TEST(grSplitZones, box_meets_a_range_of_zones)
{
    const grSplitZones zones(model, 16);
    int lower = -1, upper = -1;
    ASSERT_TRUE(zones.zone(giBox3(giPoint3(-1, 11, 1), giPoint3(1, 13, 2)), lower, upper));
    EXPECT_EQ(walked(grSplitZonesIterator(zones, lower, upper)), (std::vector<int>{1, 2, 5, 6}));
    ASSERT_TRUE(zones.zone(model, lower, upper));
    EXPECT_EQ(walked(grSplitZonesIterator(zones, lower, upper)), walked(grSplitZonesIterator(zones)));
    EXPECT_EQ(walked(grSplitZonesIterator(zones)).size(), 16u);
    EXPECT_FALSE(zones.zone(giBox3(giPoint3(5, 11, 1), giPoint3(6, 13, 2)), lower, upper));
    EXPECT_FALSE(zones.zone(giBox3(), lower, upper));
}
