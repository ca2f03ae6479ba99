#include "grSection.h"

#include "../opengl/renderScene.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"
#include "grSelection.h"
#include "gr_pick.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
// A closed box of 12 triangles that face outwards, or of fewer.
dgTriangleBlock* box(const giPoint3& low, const giPoint3& high, int triangles = 12, bool inside_out = false)
{
    const int quads[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    auto* block = new giTriBlock;
    for (int i = 0; i < 8; ++i)
        block->nodes().append(giBox3(low, high).corner(i));
    for (int i = 0; i < triangles; ++i)
    {
        const int(&q)[4] = quads[i / 2];
        giTriangle triangle(q[0], q[1 + i % 2], q[2 + i % 2]);
        if (inside_out)
            std::swap(triangle[1], triangle[2]);
        block->triangles().push_back(triangle);
    }
    block->triangles().emplace_back(-1, 1000000000, 2); // is as if it were not there
    return new dgTriangleBlock(block, 1);
}

double area(const giTriBlock* cap)
{
    double sum = 0;
    for (int i = 0; cap && i < cap->triangle_count(); ++i)
    {
        const giTriangle& t = cap->triangles()[static_cast<std::size_t>(i)];
        const auto& nodes = cap->nodes();
        sum += (nodes[t[1]] - nodes[t[0]]).cross(nodes[t[2]] - nodes[t[0]]).length() / 2;
    }
    return sum;
}

// A cone whose tip is as many points as it has sides, cut so near beside the tip that the sides are cut within less
// than what is one corner of the outline.
dgTriangleBlock* cone(double past_tip)
{
    constexpr int sides = 80;
    auto* block = new giTriBlock;
    for (int i = 0; i < sides; ++i)
    {
        const double angle = 2 * 3.141592653589793 * i / sides, x = std::cos(angle), z = std::sin(angle);
        block->nodes().append(giPoint3(20 + 10 * x, 10, 1 + past_tip + 10 * z));
        block->nodes().append(giPoint3(20 + 1e-15 * x, 30 + 1e-14 * z, 1 + past_tip + 1e-15 * z));
    }
    const int middle = block->node_count();
    block->nodes().append(giPoint3(20, 10, 1 + past_tip));
    for (int i = 0; i < sides; ++i)
    {
        const int next = (i + 1) % sides;
        block->triangles().emplace_back(2 * next, 2 * i, 2 * i + 1);
        block->triangles().emplace_back(2 * i, 2 * next, middle);
    }
    return new dgTriangleBlock(block, 1);
}

// Cut across z = 1, seen from the side that is cut away.
struct Desk : Scene
{
    explicit Desk(int width = 64, int height = 48) : Scene(width, height)
    {
        section.add_view(&view);
        section.plane(giPlane({0, 0, 1}, {0, 0, -1}));
    }
    grSection section;
};

void cube(Scene& scene)
{
    scene.add(box({10, 10, -10}, {30, 30, 10}));
}

const struct
{
    const char* name;
    void (*add)(Scene& scene);
    double area;
    int open_pieces;
} rows[] = {
    {"a cube", cube, 400, 0},
    {"with a hole",
     [](Scene& scene)
     {
         cube(scene);
         scene.add(box({15, 15, -5}, {21, 21, 5}, 12, true));
     },
     400 - 36, 0},
    {"in two parts that touch",
     [](Scene& scene)
     {
         scene.add(box({10, 10, -10}, {17, 30, 10}));
         scene.add(box({17, 10, -10}, {30, 30, 10}));
     },
     400, 0},
    {"with another one through it",
     [](Scene& scene)
     {
         cube(scene);
         scene.add(box({20, 10, -10}, {40, 30, 10}));
     },
     600, 0},
    {"and its mirror image through it",
     [](Scene& scene)
     {
         cube(scene);
         scene.add(new dgTransform(giXform3::scaling({-1, 1, 1}, {20, 0, 0})));
         cube(scene);
     },
     400, 0},
    {"called twice",
     [](Scene& scene)
     {
         const dgRef<dgClientStructure> part(new dgClientStructure);
         part->add(box({0, 0, -10}, {10, 10, 10}));
         scene.add(new dgStructureCall(part.get()));
         scene.add(new dgTransform(giXform3::translation({20, 0, 9})));
         scene.add(new dgStructureCall(part.get()));
     },
     200, 0},
    {"beyond the plane",
     [](Scene& scene) {
         scene.add(box({10, 10, -10}, {30, 30, 0.5}));
     },
     0, 0},
    {"up to the plane",
     [](Scene& scene) {
         scene.add(box({10, 10, -5}, {30, 30, 1}));
     },
     0, 0},
    {"a cone past its tip", [](Scene& scene) { scene.add(cone(3e-4)); }, 200, 0},
    {"a cone through its tip", [](Scene& scene) { scene.add(cone(0)); }, 200, 0},
    {"that is open",
     [](Scene& scene) {
         scene.add(box({10, 10, -10}, {30, 30, 10}, 11));
     },
     0, 1},
};
}

TEST(grSection, closes_what_it_cuts)
{
    for (const auto& row : rows)
    {
        Desk desk;
        row.add(desk);
        desk.draw();
        EXPECT_NEAR(area(desk.section.cap()), row.area, 1e-3) << row.name;
        EXPECT_EQ(desk.section.open_pieces(), row.open_pieces) << row.name;
    }
}

TEST(grSection, closes_closed_meshes_wherever_it_cuts_them)
{
    Desk desk;
    desk.add(cone(0));
    for (int i = 0; i < 100; ++i)
    {
        const giPoint3 inside(20 + 2 * std::sin(3 * i), 14 + 3 * std::cos(i), 1 + 2 * std::sin(5 * i));
        desk.section.plane(giPlane(inside, {std::sin(i), std::cos(2.3 * i), std::sin(1.7 * i + 1)}));
        desk.draw();
        EXPECT_EQ(desk.section.open_pieces(), 0) << i;
        EXPECT_GT(area(desk.section.cap()), 20) << i;
    }
    desk.section.remove_view(&desk.view);
    EXPECT_FALSE(desk.view.camera().section());
}

TEST(grSection, shows_caps_of_what_is_shown_and_lets_parts_be_picked_behind_them)
{
    Desk desk;
    cube(desk);
    desk.add(box({12, 12, -40}, {28, 28, -20})); // behind it
    desk.section.colours(gsColour(1, 0, 0), gsColour(1, 0, 0));
    desk.draw();
    EXPECT_EQ(count_pixels(desk.picture(), {255, 0, 0}), 21 * 21); // with the outline
    const std::vector<dgPickHit> hits = gr_pick_box(desk.view, giBox2(14, 14, 26, 26));
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(&hits[0].primitive(), desk.root->element(0));
    EXPECT_NEAR(gr_pick(desk.view, giPoint2(20, 20)).at(0).point.z(), -10, 1e-9);

    grSelection selection;
    selection.add_view(&desk.view);
    selection.hide({{dgRef<dgGraphicalElement>(desk.root->element(0))}});
    EXPECT_EQ(desk.section.cap(), nullptr);
    EXPECT_EQ(count_pixels(desk.picture(), {255, 0, 0}), 0);
    selection.show_all();
    EXPECT_NEAR(area(desk.section.cap()), 400, 1e-9);
    desk.section.plane({});
    desk.draw();
    EXPECT_EQ(count_pixels(desk.picture(), {255, 0, 0}), 0);
}

// A cube of 230 with a hole of 60 from side to side, of a diagonal of 2 x (230^2 + 230^2 + 20^2), with lines 0.012 of
// that apart.
TEST(grSection, hatches_caps_at_45_degrees_and_nothing_else)
{
    Desk desk(256, 256);
    desk.add(box({10, 10, -10}, {240, 240, 10}));
    desk.add(box({60, 60, -5}, {120, 120, 5}, 12, true));
    desk.section.colours(gsColour(1, 0, 0), gsColour(0, 0, 1));
    desk.section.plane(giPlane({3e10, 0, 1}, {0, 0, -1})); // given by a point far away
    desk.draw();
    const dgImage picture = desk.picture();
    int lines = 0, up = 0, down = 0, crossing_hole = 0;
    for (int y = 12; y <= 238; ++y)
        for (int x = 12; x <= 238; ++x)
        {
            const auto on_line = [&](int dy) { return pixel_at(picture, x + 1, y + dy) == Pixel{0, 0, 255}; };
            const bool in_hole = x > 61 && x < 118 && y > 61 && y < 118;
            const bool beside_hole = x > 58 && x < 121 && y > 58 && y < 121;
            crossing_hole += in_hole && on_line(0);
            if (beside_hole || !(pixel_at(picture, x, y) == Pixel{0, 0, 255}))
                continue;
            ++lines;
            up += on_line(1);
            down += on_line(-1);
        }
    const double pitch = 0.012 * std::sqrt(230.0 * 230 * 2 + 20 * 20);
    EXPECT_NEAR(lines, (227.0 * 227 - 62 * 62) / pitch / std::sqrt(2.0), 0.03 * lines); // a pixel per column
    EXPECT_NEAR(std::max(up, down), lines, 0.03 * lines);
    EXPECT_LT(std::min(up, down), 0.1 * lines);
    EXPECT_EQ(crossing_hole, 0);
}
