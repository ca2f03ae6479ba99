#include "grVisTris.h"

#include "splitScene.h"

#include "gr_make_tblock.h"

#include "dgImage.h"
#include "giVector3.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
using Numbers = std::set<int>;

// Those seen from the upper and from the lower side.
std::pair<Numbers, Numbers> seen(const giTriBlock& block, const giVector3& direction, int size)
{
    SplitScene scene;
    grBlockIdx upper, lower;
    EXPECT_TRUE(grVisTris::find_vis_tris(&scene.window, block, direction, size, upper, lower));
    return {Numbers(upper.begin(), upper.end()), Numbers(lower.begin(), lower.end())};
}
}

TEST(grVisTris, faces_of_a_box_are_seen_from_where_they_face)
{
    const std::unique_ptr<giTriBlock> box(gr_make_cube(giPoint3(3, 4, 5), 2));
    // Triangles 0 to 3 face along x, 4 to 7 along y, 8 and 9 down and 10 and 11 up.
    const struct
    {
        giVector3 direction;
        Numbers upper, lower;
    } cases[] = {
        {{0, 0, 1}, {10, 11}, {8, 9}}, {{0, 0, -3}, {8, 9}, {10, 11}},
        {{1, 0, 0}, {2, 3}, {0, 1}},   {{0, 1, 0}, {6, 7}, {4, 5}},
        {{0, -1, 0}, {4, 5}, {6, 7}},  {{1, 1, 1}, {2, 3, 6, 7, 10, 11}, {0, 1, 4, 5, 8, 9}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(seen(*box, c.direction, 64), std::pair(c.upper, c.lower)) << c.direction;
}

TEST(grVisTris, hidden_triangles_are_not_found_among_many)
{
    // 30 x 30 squares at height 0 with a lid over those from x = 10 to 20.
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
    nodes.insert(nodes.end(), {{10, -1, 1}, {20, -1, 1}, {20, 31, 1}, {10, 31, 1}});
    triangles.emplace_back(first, first + 1, first + 2);
    triangles.emplace_back(first, first + 2, first + 3);
    Numbers upper, lower;
    for (int i = 0; i < 1802; ++i)
    {
        lower.insert(i); // the lid stands out beyond the squares
        if (i >= 1800 || i / 2 % 30 < 10 || i / 2 % 30 >= 20)
            upper.insert(i);
    }
    EXPECT_EQ(seen(*std::unique_ptr<giTriBlock>(gr_make_tblock(nodes, triangles)), giVector3(0, 0, 1), 512),
              std::pair(upper, lower));
}

TEST(grVisTris, numbers_are_put_together_from_two_images)
{
    const dgImage quotients{3, 1, {2, 0, 0, 255, 0, 1, 0, 255, 255, 255, 255, 255}},
        remainders{3, 1, {7, 0, 0, 255, 1, 0, 0, 255, 255, 255, 255, 255}};
    grBlockIdx found;
    grVisTris::find_in_image(quotients, remainders, 1000, found);
    EXPECT_EQ(Numbers(found.begin(), found.end()), (Numbers{2007, 256001}));
}

TEST(grVisTris, nothing_is_found_where_nothing_can_be_drawn)
{
    SplitScene scene;
    grBlockIdx upper, lower;
    const std::unique_ptr<giTriBlock> box(gr_make_cube(giPoint3(), 2));
    const giVector3 up(0, 0, 1);
    EXPECT_FALSE(grVisTris::find_vis_tris(&scene.window, giTriBlock(), up, 64, upper, lower));
    EXPECT_FALSE(grVisTris::find_vis_tris(&scene.window, *box, giVector3(), 64, upper, lower));
    EXPECT_FALSE(grVisTris::find_vis_tris(nullptr, *box, up, 64, upper, lower));
    EXPECT_FALSE(grVisTris::find_vis_tris(&scene.window, *box, up, 10000000, upper, lower));
    EXPECT_TRUE(upper.empty() && lower.empty());
}
