#include "grVisTris.h"

#include "splitScene.h"

#include "gr_make_tblock.h"

#include "dgImage.h"
#include "giVector3.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace
{
std::vector<int> sorted(const grBlockIdx& set)
{
    std::vector<int> numbers(set.begin(), set.end());
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}
}

TEST(grVisTris, faces_of_a_box_are_seen_from_where_they_face)
{
    SplitScene scene;
    const std::unique_ptr<giTriBlock> box(gr_make_cube(giPoint3(3, 4, 5), 2));
    // Triangles 0 to 3 face along x, 4 to 7 along y, 8 and 9 down and 10 and 11 up.
    const struct
    {
        const char* name;
        giVector3 direction;
        std::vector<int> upper, lower;
    } cases[] = {
        {"up", {0, 0, 1}, {10, 11}, {8, 9}},
        {"down", {0, 0, -3}, {8, 9}, {10, 11}},
        {"along x", {1, 0, 0}, {2, 3}, {0, 1}},
        {"along y", {0, 1, 0}, {6, 7}, {4, 5}},
        {"aslant", {1, 1, 1}, {2, 3, 6, 7, 10, 11}, {0, 1, 4, 5, 8, 9}},
    };
    for (const auto& c : cases)
    {
        grBlockIdx upper, lower;
        ASSERT_TRUE(grVisTris::find_vis_tris(&scene.window, *box, c.direction, 64, upper, lower)) << c.name;
        EXPECT_EQ(sorted(upper), c.upper) << c.name;
        EXPECT_EQ(sorted(lower), c.lower) << c.name;
    }
}

TEST(grVisTris, hidden_triangles_are_not_found_among_many)
{
    // 30 x 30 squares at height 0 with a lid over those from x = 10 to 20.
    SplitScene scene;
    std::vector<giPoint3> nodes;
    std::vector<giTriangle> triangles;
    for (int y = 0; y <= 30; ++y)
        for (int x = 0; x <= 30; ++x)
            nodes.emplace_back(x, y, 0);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
        {
            triangles.emplace_back(31 * y + x, 31 * y + x + 1, 31 * y + x + 32);
            triangles.emplace_back(31 * y + x, 31 * y + x + 32, 31 * y + x + 31);
        }
    const int first = static_cast<int>(nodes.size());
    for (const giPoint3& p : {giPoint3(10, -1, 1), giPoint3(20, -1, 1), giPoint3(20, 31, 1), giPoint3(10, 31, 1)})
        nodes.push_back(p);
    triangles.emplace_back(first, first + 1, first + 2);
    triangles.emplace_back(first, first + 2, first + 3);
    const std::unique_ptr<giTriBlock> block(gr_make_tblock(nodes, triangles));
    grBlockIdx upper, lower;
    ASSERT_TRUE(grVisTris::find_vis_tris(&scene.window, *block, giVector3(0, 0, 1), 512, upper, lower));
    for (int i = 0; i < block->triangle_count(); ++i)
    {
        const int x = i / 2 % 30;
        EXPECT_EQ(upper.contains(i), i >= 1800 || x < 10 || x >= 20) << i;
        EXPECT_TRUE(lower.contains(i)) << i; // the lid stands out beyond the squares
    }
}

TEST(grVisTris, numbers_are_put_together_from_two_images)
{
    dgImage quotients, remainders;
    quotients.width = remainders.width = 3;
    quotients.height = remainders.height = 1;
    quotients.rgba = {2, 0, 0, 255, 0, 1, 0, 255, 255, 255, 255, 255};
    remainders.rgba = {7, 0, 0, 255, 1, 0, 0, 255, 255, 255, 255, 255};
    grBlockIdx found;
    grVisTris::find_in_image(quotients, remainders, 1000, found);
    EXPECT_EQ(sorted(found), (std::vector<int>{2007, 256001}));
}

TEST(grVisTris, nothing_is_found_without_a_direction_or_triangles)
{
    SplitScene scene;
    grBlockIdx upper, lower;
    EXPECT_FALSE(grVisTris::find_vis_tris(&scene.window, giTriBlock(), giVector3(0, 0, 1), 64, upper, lower));
    const std::unique_ptr<giTriBlock> box(gr_make_cube(giPoint3(), 2));
    EXPECT_FALSE(grVisTris::find_vis_tris(&scene.window, *box, giVector3(), 64, upper, lower));
    EXPECT_FALSE(grVisTris::find_vis_tris(nullptr, *box, giVector3(0, 0, 1), 64, upper, lower));
    EXPECT_TRUE(upper.empty() && lower.empty());
}
