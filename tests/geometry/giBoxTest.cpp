#include "giBox2.h"
#include "giBox3.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace
{
giPoint2 point(int x, int y, int, giBox2*)
{
    return giPoint2(x, y);
}
giPoint3 point(int x, int y, int z, giBox3*)
{
    return giPoint3(x, y, z);
}

// Boxes with whole corners from 1 to 4 are the sets of the points of a grid from 0 to 5 that they contain.
template <class Box>
void expect_boxes_to_be_sets_of_points()
{
    std::mt19937 random(11);
    const auto any = [&] { return 1 + static_cast<int>(random() % 4); };
    const auto any_point = [&] { return point(any(), any(), any(), static_cast<Box*>(nullptr)); };
    const auto any_box = [&]
    {
        Box box;
        for (auto points = random() % 3; points > 0; --points)
            box.merge(any_point());
        return box;
    };
    std::vector<decltype(any_point())> grid;
    for (int i = 0; i < 216; ++i)
        grid.push_back(point(i % 6, i / 6 % 6, i / 36, static_cast<Box*>(nullptr)));
    for (int i = 0; i < 500; ++i)
    {
        const Box a = any_box(), b = any_box();
        Box both = a, wide = a;
        both.merge(b);
        wide.grow(1);
        int shared = 0, in_a = 0, in_b = 0;
        for (const auto& p : grid)
        {
            shared += a.contains(p) && b.contains(p);
            in_a += a.contains(p);
            in_b += b.contains(p);
            EXPECT_TRUE(both.contains(p) || (!a.contains(p) && !b.contains(p)));
            EXPECT_EQ(wide.contains(p), a.contains(p, 1)) << a << p;
            if constexpr (std::is_same_v<Box, giBox2>)
            {
                EXPECT_EQ(a.intersection(b).contains(p), a.contains(p) && b.contains(p)) << a << b << p;
            }
        }
        EXPECT_EQ(a.overlap(b), shared > 0) << a << b;
        EXPECT_EQ(a.empty(), in_a == 0) << a;
        EXPECT_TRUE(in_b || both == a);
        EXPECT_TRUE(in_a || (both == b && wide.empty())) << "an empty box takes no part";
    }
}
}

TEST(giBox, boxes_are_sets_of_points)
{
    expect_boxes_to_be_sets_of_points<giBox2>();
    expect_boxes_to_be_sets_of_points<giBox3>();
}

TEST(giBox, boxes_have_extents_a_middle_and_edges_with_a_tolerance)
{
    EXPECT_EQ(giBox3().low().x(), std::numeric_limits<double>::max()) << "by which others tell an empty box";
    EXPECT_FALSE(giBox3().contains(giPoint3(0, 0, 0), 1e300));
    const giBox2 box(-10, 0, 10, 5);
    EXPECT_TRUE(box.contains(giPoint2(10.000009, 5.000009), 1e-5));
    EXPECT_FALSE(box.contains(giPoint2(0, -0.00002), 1e-5));
    EXPECT_FALSE(box.contains(giPoint2(10.00001, 5)));
    EXPECT_EQ(box.width(), 20);
    EXPECT_EQ(box.height(), 5);
    EXPECT_EQ(box.middle(), giPoint2(0, 2.5));
    const giBox3 block(giPoint3(1, 2, 3), giPoint3(11, 22, 33));
    EXPECT_EQ(block.middle(), giPoint3(6, 12, 18));
    EXPECT_EQ(block.diagonal(), giVector3(10, 20, 30));
    for (int corner = 0; corner < 8; ++corner)
        EXPECT_EQ(block.corner(corner), giPoint3(corner & 1 ? 11 : 1, corner & 2 ? 22 : 2, corner & 4 ? 33 : 3));
}
