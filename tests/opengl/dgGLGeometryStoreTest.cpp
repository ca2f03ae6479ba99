#include "renderScene.h"

#include "dgGLArena.h"
#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgPointSet.h"
#include "dgPolyline.h"
#include "dgText.h"
#include "dgTextHeight.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"
#include "tsShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{
// A sheet of n by n squares over the window, wavy, with normals; from row first_row up to but not last_row.
giTriBlock* sheet(int n, int first_row, int last_row)
{
    return ts_sheet(
        n, first_row, last_row,
        [n](int i, int j) { return giPoint3(64.0 * i / n, 48.0 * j / n, 10 * std::sin(0.3 * i) * std::cos(0.2 * j)); },
        [n](int i, int j) { return giVector3(0.3 * std::cos(64.0 * i / n), 0.3 * std::sin(48.0 * j / n), 1); });
}

unsigned long long uploaded(Scene& scene)
{
    return scene.window.device().geometry().bytes_uploaded();
}
}

TEST(dgGLGeometryStore, many_elements_look_exactly_like_one_large_one)
{
    constexpr int n = 40;
    Scene one;
    one.add(new dgTriangleBlock(sheet(n, 0, n), 1));
    one.draw();
    Scene many;
    for (int row = 0; row < n; ++row)
        many.add(new dgTriangleBlock(sheet(n, row, row + 1), 1));
    many.draw();
    ASSERT_EQ(one.picture().width, 64);
    EXPECT_EQ(count_pixels(one.picture(), Pixel{0, 0, 0}), 0);
    EXPECT_TRUE(same_pictures(one.picture(), many.picture()));
}

TEST(dgGLGeometryStore, copies_what_has_changed_and_nothing_else)
{
    Scene scene;
    std::vector<dgTriangleBlock*> blocks;
    for (int row = 0; row < 10; ++row)
        scene.add(blocks.emplace_back(new dgTriangleBlock(sheet(10, row, row + 1), 1)));
    const auto before = uploaded(scene);
    scene.draw();
    const auto all = uploaded(scene) - before;
    EXPECT_EQ(all, 10u * (22 * 16 + 20 * 3 * 4)); // vertices of 16 bytes, indices of 4

    scene.draw();
    EXPECT_EQ(uploaded(scene) - before, all) << "nothing has changed";

    const dgImage flat = scene.picture();
    for (int i = 0; i < 11; ++i)
        blocks[4]->block().nodes().set(i, blocks[4]->block().nodes()[i + 11]);
    blocks[4]->block_changed();
    scene.draw();
    EXPECT_EQ(uploaded(scene) - before, all + all / 10) << "one element was changed in place";
    EXPECT_FALSE(same_pictures(scene.picture(), flat));

    scene.root->set_cursor(3);
    scene.root->insert(new dgTriangleBlock(sheet(10, 4, 5), 1));
    scene.draw();
    EXPECT_EQ(uploaded(scene) - before, all + all / 5) << "one element was inserted";
    EXPECT_TRUE(same_pictures(scene.picture(), flat));
}

TEST(dgGLGeometryStore, gives_the_room_of_deleted_elements_to_new_ones)
{
    Scene scene;
    dgGLGeometryStore& store = scene.window.device().geometry();
    const std::size_t at_first = store.bytes_used();
    for (int round = 0; round < 3; ++round)
    {
        for (int row = 0; row < 10; ++row)
            scene.add(new dgTriangleBlock(sheet(10 + round, row, row + 1), 1));
        scene.draw();
        EXPECT_GT(store.bytes_used(), at_first);
        // Every other one goes, and a larger one comes.
        for (int i = 4; i >= 0; --i)
            scene.root->delete_range(2 * i, 2 * i);
        scene.add(new dgTriangleBlock(sheet(20, 0, 20), 1));
        scene.draw();
        Scene fresh;
        for (int i = 0; i < scene.root->nelements(); ++i)
            fresh.add(scene.root->element(i)->copy());
        fresh.draw();
        EXPECT_TRUE(same_pictures(scene.picture(), fresh.picture())) << round;
        scene.root->clear();
    }
    EXPECT_EQ(store.bytes_used(), at_first);
}

namespace
{
// A part near a place: blocks with and without normals, lines, points and a text, and the box about them all. Far
// neighbours are alike, each as far from the one before as the part from zero.
dgImage picture_at(const giPoint3& place, int far_neighbours, int through_transform)
{
    const giPoint3 near = through_transform ? giPoint3() : place;
    Scene scene;
    scene.view.camera().orientation(giXform3::translation(-place.vector()));
    if (through_transform)
        scene.add(new dgTransform(giXform3::translation(place.vector())));
    for (const int with_normals : {1, 0})
    {
        giTriBlock* block = sheet(16, 8 * with_normals, 7 + 8 * with_normals);
        for (int i = 0; i < block->node_count(); ++i)
        {
            const giPoint3 p = block->nodes()[i];
            block->nodes().set(i, near + giVector3(p.x(), p.y(), std::round(1024 * p.z()) / 1024));
        }
        if (!with_normals)
            block->remove_normals();
        scene.add(new dgTriangleBlock(block, 1));
    }
    for (int i = 0; i < far_neighbours; ++i)
    {
        const giPoint3 corner = near + giVector3(-20, 3, 0) - i * giVector3(place.x(), place.y(), 0);
        giTriBlock* block = new giTriBlock;
        for (const giVector3& side : {giVector3(), giVector3(10, 0, 0), giVector3(0, 6, 0)})
            block->nodes().append(corner + side);
        block->triangles().emplace_back(0, 1, 2);
        scene.add(new dgTriangleBlock(block, 1));
    }
    auto* line = new dgPolyline;
    std::vector<giPoint3> points;
    for (const double x : {3.0, 20.0, 50.5})
    {
        line->add(near + giVector3(x, 1.25 * x - 9, 0));
        points.push_back(near + giVector3(x + 1, 21.5, 0));
    }
    scene.add(line);
    scene.add(new dgPointSet(points));
    scene.add(new dgTextHeight(8));
    scene.add(new dgText(near + giVector3(8, 22, 0), "text"));
    scene.draw();
    // Drawn one by one, and by segments that nobody keeps.
    scene.view.begin();
    scene.renderer.push_structure();
    for (int i = 0; i < scene.root->nelements(); ++i)
        scene.view.execute(*scene.root->element(i));
    scene.view.execute(*dgRef<dgPointSet>(new dgPointSet({near + giVector3(55, 5, 0)})));
    scene.renderer.pop_structure();
    if (!far_neighbours)
        scene.renderer.draw_bounding_box(*scene.root);
    scene.view.end();
    return scene.picture();
}
}

// The offsets are powers of two, so that the part itself is exactly the same.
TEST(dgGLArena, joins_what_is_given_back_in_any_order)
{
    const dgGLDevice::Use use(*test_device());
    int order[] = {0, 1, 2};
    do
    {
        dgGLArena arena(4);
        unsigned places[3];
        for (unsigned& place : places)
            place = arena.allocate(100);
        arena.allocate(1); // parts them from all that is free behind
        for (const int i : order)
            arena.release(places[i], 100);
        EXPECT_EQ(arena.allocate(300), places[0]);
    } while (std::next_permutation(order, order + 3));
}

TEST(dgGLGeometryStore, a_part_far_from_the_origin_looks_exactly_like_one_there)
{
    for (const double away : {0x1p20, 0x1p30, 0x1p36})
        for (const int far_neighbours : {0, 1, 100})
            for (const int through_transform : {0, 1})
                EXPECT_TRUE(same_pictures(picture_at({away, -away, away}, far_neighbours, through_transform),
                                          picture_at({}, far_neighbours, 0)))
                    << away << ' ' << far_neighbours << ' ' << through_transform;
}

TEST(dgGLGeometryStore, windows_of_one_device_share_what_they_draw)
{
    Scene first, second;
    first.add(new dgTriangleBlock(sheet(8, 0, 8), 1));
    second.view.root(first.root.get());
    first.draw();
    const auto before = uploaded(first);
    second.draw();
    EXPECT_EQ(uploaded(second), before);
    EXPECT_TRUE(same_pictures(first.picture(), second.picture()));
}

namespace
{
// Draws a scene on a device of its own, and then other structures.
struct OnOwnDevice
{
    explicit OnOwnDevice(const Scene& scene) : the_scene(scene)
    {
        view.camera() = scene.view.camera();
        view.user_clip_planes(1);
    }
    int shows_the_scene()
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(the_scene.root.get());
        dgImage image;
        renderer.read_pixels(window.device_box(), image);
        return same_pictures(image, the_scene.picture());
    }
    const Scene& the_scene;
    std::string error;
    dgGLWindow window{dgGLDevice::create_off_screen(error), 64, 48};
    dgRenderer renderer{&window, &window};
    dgView view{&renderer};
};
}

TEST(dgGLGeometryStore, keeps_what_it_has_when_it_grows)
{
    Scene scene;
    scene.add(new dgTriangleBlock(sheet(100, 0, 100), 1));
    scene.draw();
    OnOwnDevice own(scene);
    EXPECT_TRUE(own.shows_the_scene());
    const dgRef<dgClientStructure> large(new dgClientStructure);
    large->add(new dgTriangleBlock(sheet(500, 0, 500), 1));
    own.view.render_network(large.get());
    EXPECT_TRUE(own.shows_the_scene());
}

TEST(dgGLGeometryStore, survives_a_device_that_ends_before_what_it_drew)
{
    Scene scene;
    scene.add(new dgTriangleBlock(sheet(8, 0, 8), 1));
    scene.draw();
    for (int time = 0; time < 2; ++time)
        EXPECT_TRUE(OnOwnDevice(scene).shows_the_scene());
}

TEST(dgGLGeometryStore, an_index_out_of_range_reaches_no_other_element)
{
    Scene scene;
    auto* block = sheet(2, 0, 2);
    block->triangles()[0] = giTriangle(-1, 1000000000, 2);
    scene.add(new dgTriangleBlock(block, 1));
    scene.add(new dgPolyline); // nothing to draw
    scene.add(new dgTriangleBlock(new giTriBlock, 1));
    scene.draw();
    EXPECT_NE(pixel_at(scene.picture(), 10, 20), (Pixel{0, 0, 0}));
    EXPECT_EQ(pixel_at(scene.picture(), 31, 5), (Pixel{0, 0, 0})); // the broken triangle is missing
}
