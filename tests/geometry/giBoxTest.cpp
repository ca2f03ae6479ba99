#include "giBox2.h"
#include "giBox3.h"

#include <gtest/gtest.h>

#include <limits>

TEST(giBox3, an_empty_box_holds_the_largest_double_and_takes_no_part)
{
    const giBox3 unit(giPoint3(0, 0, 0), giPoint3(1, 1, 1));
    giBox3 box;
    EXPECT_TRUE(box.empty());
    EXPECT_EQ(box.low().x(), std::numeric_limits<double>::max());
    EXPECT_FALSE(box.contains(giPoint3(0, 0, 0), 1e300));
    EXPECT_FALSE(box.overlap(unit));
    EXPECT_FALSE(unit.overlap(box));
    box.grow(10);
    EXPECT_TRUE(box.empty());
    box.merge(giBox3());
    EXPECT_TRUE(box.empty());
    box.merge(unit);
    EXPECT_EQ(box, unit);
    box.merge(giBox3());
    EXPECT_EQ(box, unit);
}

TEST(giBox3, merging_encloses_points_in_any_order)
{
    giBox3 box;
    box.merge(giPoint3(1, 5, -2));
    EXPECT_FALSE(box.empty());
    EXPECT_EQ(box.low(), box.high());
    box.merge(giPoint3(-1, 7, 0));
    EXPECT_EQ(box, giBox3(giPoint3(-1, 5, -2), giPoint3(1, 7, 0)));
    EXPECT_EQ(box.middle(), giPoint3(0, 6, -1));
    EXPECT_EQ(box.diagonal(), giVector3(2, 2, 2));
    box.grow(1);
    EXPECT_EQ(box, giBox3(giPoint3(-2, 4, -3), giPoint3(2, 8, 1)));
}

TEST(giBox3, corners_are_numbered_by_bits)
{
    const giBox3 box(giPoint3(1, 2, 3), giPoint3(10, 20, 30));
    EXPECT_EQ(box.corner(0), giPoint3(1, 2, 3));
    EXPECT_EQ(box.corner(1), giPoint3(10, 2, 3));
    EXPECT_EQ(box.corner(6), giPoint3(1, 20, 30));
}

TEST(giBox3, touching_boxes_overlap)
{
    const giBox3 box(giPoint3(0, 0, 0), giPoint3(1, 1, 1));
    EXPECT_TRUE(box.overlap(giBox3(giPoint3(1, 1, 1), giPoint3(2, 2, 2))));
    EXPECT_TRUE(box.overlap(giBox3(giPoint3(-9, 0.4, 0.4), giPoint3(9, 0.6, 0.6))));
    EXPECT_FALSE(box.overlap(giBox3(giPoint3(0, 0, 1.001), giPoint3(1, 1, 2))));
}

TEST(giBox2, contains_its_edges_and_the_tolerance_around_them)
{
    const giBox2 box(-10, 0, 10, 5);
    const struct
    {
        const char* name;
        giPoint2 p;
        double tolerance;
        int expected;
    } cases[] = {
        {"inside", {0, 1}, 0, 1},
        {"low corner", {-10, 0}, 0, 1},
        {"high corner", {10, 5}, 0, 1},
        {"just outside", {10.00001, 5}, 0, 0},
        {"outside within the tolerance", {10.000009, 5.000009}, 1e-5, 1},
        {"below beyond the tolerance", {0, -0.00002}, 1e-5, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(box.contains(c.p, c.tolerance), c.expected) << c.name;
    EXPECT_EQ(box.width(), 20);
    EXPECT_EQ(box.height(), 5);
    EXPECT_EQ(box.middle(), giPoint2(0, 2.5));
}

TEST(giBox2, intersection_of_boxes_apart_is_empty)
{
    const giBox2 box(0, 0, 4, 4);
    EXPECT_EQ(box.intersection(giBox2(2, 1, 9, 3)), giBox2(2, 1, 4, 3));
    EXPECT_TRUE(box.intersection(giBox2(5, 0, 9, 4)).empty());
    EXPECT_TRUE(box.intersection(giBox2()).empty());
}
