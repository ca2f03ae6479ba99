#include "grSelection.h"

#include "../opengl/renderScene.h"
#include "dgLighting.h"
#include "dgOpacity.h"
#include "grViewListUtils.h"
#include "gr_pick.h"
#include "gsStructureFlattener.h"
#include "gsStructureSlicer.h"
#include "tsRandomNetwork.h"

#include <gtest/gtest.h>

namespace
{
void aim(Scene& scene)
{
    dgCamera& camera = scene.view.camera();
    camera.orientation({3, 4, 20}, {-3, -4, -20}, {0, 1, 0});
    camera.view_window(giBox2(-5, -5, 5, 5));
}

// The way to a primitive, or to a structure, somewhere in a network; empty when chance has found none.
dgElementPath any_path(tsRandomNetwork& random)
{
    dgElementPath path;
    const dgStructure* structure = random.root();
    for (int depth = 0; structure && depth < 4; ++depth)
    {
        if (structure->nelements() == 0)
            return {};
        dgGraphicalElement* element = structure->element(random.whole(0, structure->nelements() - 1));
        if (element->kind() == dgELEMENT_ATTRIBUTE || element->type() == dgTYPE_LABEL)
            return {};
        path.emplace_back(element);
        structure = random.whole(0, 2) ? element->called_structure() : nullptr;
    }
    return path;
}

void change(grSelection& selection, tsRandomNetwork& random)
{
    const dgElementPath path = any_path(random);
    if (path.empty())
        return;
    switch (random.whole(0, 9))
    {
    case 0: return selection.hide({path}, random.whole(0, 1));
    case 1: return selection.isolate(random.whole(0, 1) ? std::vector{path, path} : std::vector<dgElementPath>());
    case 2: return selection.opacity({path}, random.whole(0, 1) ? 1 : 0.4);
    case 3:
    case 4:
    case 5: return selection.hover(path);
    case 6:
        if (path.back()->type() == dgTYPE_TRIANGLE_BLOCK)
        {
            std::vector<dgPickHit> hits(3);
            for (dgPickHit& hit : hits)
            {
                hit.path = path;
                hit.feature = random.whole(0, 20); // there may be fewer triangles
            }
            return selection.select_triangles(hits, static_cast<grSelectMode>(random.whole(0, 2)));
        }
        [[fallthrough]];
    default: return selection.select({path}, static_cast<grSelectMode>(random.whole(0, 2)));
    }
}

void redraw(Scene& scene)
{
    grViewListUtils::refresh_views({&scene.view}, nullptr, nullptr);
}

dgElementPath path_to(const dgStructure& root, int element)
{
    return {dgRef<dgGraphicalElement>(root.element(element))};
}

// A random network in a view, with a selection.
struct RandomScene
{
    explicit RandomScene(unsigned number) : network(number)
    {
        scene.view.root(network.root());
        aim(scene);
        selection.add_view(&scene.view);
    }
    tsRandomNetwork network;
    Scene scene{120, 90};
    grSelection selection;
};
}

TEST(grSelection, shows_every_change_as_if_all_were_drawn)
{
    int drawn_over = 0, seen = 0, ties = 0;
    for (unsigned number = 0; number < 60; ++number)
    {
        RandomScene random(number);
        auto& [network, scene, selection] = random;
        redraw(scene);
        for (int i = 0; i < 12; ++i)
        {
            const dgImage before = scene.picture();
            const unsigned long long erasures = scene.renderer.erasures();
            change(selection, network);
            const dgImage shown = scene.picture();
            drawn_over += scene.view.redraw_parts({}) && erasures == scene.renderer.erasures();
            seen += !same_pictures(before, shown);
            redraw(scene);
            const unsigned long long picture_stamp = network.root()->network_stamp();
            // Where others lie at the very same place, the one drawn last is seen: elements stand in several
            // structures.
            const int wrong = differing_pixels(shown, scene.picture());
            ASSERT_LE(wrong, 100) << number << " " << i;
            ties += wrong > 0;
            if (network.whole(0, 5) == 0)
            {
                network.edit();
                EXPECT_FALSE(scene.view.redraw_parts({}) && picture_stamp != network.root()->network_stamp());
                redraw(scene);
            }
        }
    }
    EXPECT_LE(ties, 10); // of 720
    EXPECT_GT(drawn_over, 100);
    EXPECT_GT(seen, 100);
}

TEST(grSelection, draws_over_a_picture_until_it_is_erased_but_not_its_overlay)
{
    Scene scene(64, 48, 1);
    grSelection selection;
    selection.add_view(&scene.view);
    scene.draw();
    for (const int window : {1, 0})
    {
        EXPECT_EQ(scene.view.redraw_parts({}), 1);
        scene.renderer.erase(window);
    }
    EXPECT_EQ(scene.view.redraw_parts({}), 0);
}

TEST(grSelection, hides_a_called_structure_as_if_it_were_not_called)
{
    int compared = 0;
    for (unsigned number = 0; number < 60; ++number)
    {
        tsRandomNetwork network(number);
        Scene scene(120, 90);
        dgStructure& root = *network.root();
        scene.view.root(&root);
        scene.view.user_clip_planes(1);
        aim(scene);
        scene.view.camera().front_back_plane(30, -30);
        for (int i = 0; i < root.nelements(); ++i)
            if (root.element(i)->type() == dgTYPE_STRUCTURE_CALL && root.element(i)->times_held_by(&root) == 1)
            {
                grSelection selection;
                selection.add_view(&scene.view);
                const dgElementPath path = path_to(root, i);
                selection.hide({path});
                const dgImage hidden = scene.picture();
                selection.remove_view(&scene.view);
                root.delete_range(i, i);
                redraw(scene);
                ASSERT_TRUE(same_pictures(hidden, scene.picture())) << number << " " << i;
                root.set_cursor(i - 1);
                root.insert(path.back().get());
                ++compared;
            }
    }
    EXPECT_GT(compared, 40);
}

TEST(dgLooks, hold_in_flat_copies_and_in_slices)
{
    for (unsigned number = 0; number < 40; ++number)
    {
        RandomScene random(number);
        auto& [network, scene, selection] = random;
        for (int i = 0; i < 6; ++i)
            change(selection, network);
        selection.opacity(selection.selected(), 1);
        selection.show_all();
        for (int i = 0; i < 3; ++i)
            if (const dgElementPath path = any_path(network); !path.empty())
                selection.hide({path});
        redraw(scene);
        const dgImage picture = scene.picture();

        const dgRef<dgClientStructure> flat(new dgClientStructure);
        gsStructureFlattener flattener(network.root(), flat.get(), -1.0);
        scene.renderer.render_action(&flattener);
        scene.view.render_network(nullptr);
        scene.renderer.render_action(nullptr);
        if (!flattener.final_refresh_non_flattened())
        {
            scene.view.erase(dgERASE_ZBUFFER_YES);
            scene.view.render_network(flat.get());
            ASSERT_TRUE(same_pictures(picture, scene.picture())) << number;
        }

        gsStructureSlicer slicer(network.whole(1, 200));
        scene.view.erase(dgERASE_ZBUFFER_YES);
        while (slicer.another_slice_needed())
        {
            slicer.next_slice();
            scene.renderer.render_action(&slicer);
            scene.view.render_network(nullptr);
        }
        scene.renderer.render_action(nullptr);
        ASSERT_TRUE(same_pictures(picture, scene.picture())) << number << " in slices";
    }
}

TEST(dgOpacity, covers_a_share_of_what_is_behind_in_whatever_order)
{
    for (const auto& [far_first, by_selection] : {std::pair(0, 0), {1, 0}, {0, 1}, {1, 1}})
    {
        Scene scene;
        scene.add(new dgLighting(0));
        scene.add(new dgSurfaceColour(gsColour(0, 0, 1)));
        scene.add(rectangle(0, 0, 63, 20));
        scene.add(new dgOpacity(by_selection ? 1 : 0.5));
        for (const int far : {far_first, 1 - far_first})
        {
            scene.add(new dgSurfaceColour(far ? gsColour(0, 1, 0) : gsColour(1, 0, 0)));
            scene.add(far ? rectangle(20, 0, 63, 40, 10) : rectangle(0, 0, 40, 40, 20));
        }
        grSelection selection;
        selection.add_view(&scene.view);
        if (by_selection)
            selection.opacity({path_to(*scene.root, 5), path_to(*scene.root, 7)}, 0.5);
        scene.draw();
        const dgImage picture = scene.picture();
        const auto expect = [&](int x, int y, const Pixel& expected)
        {
            const Pixel pixel = pixel_at(picture, x, y);
            EXPECT_NEAR(pixel.red, expected.red, 1) << x << " " << y;
            EXPECT_NEAR(pixel.green, expected.green, 1) << x << " " << y;
            EXPECT_NEAR(pixel.blue, expected.blue, 1) << x << " " << y;
        };
        expect(10, 10, {128, 0, 128});
        expect(30, 10, {128, 64, 64});
        expect(30, 30, {128, 64, 0});
        expect(50, 10, {0, 128, 128});
    }
}

TEST(grSelection, shows_single_triangles)
{
    Scene scene;
    scene.add(new dgLighting(0));
    scene.add(rectangle(10, 10, 29, 19, -3));
    dgTriangleBlock* block = rectangle(40, 10, 49, 19, 7);
    block->block().triangles().emplace_back(-1, 1000000000, 2); // is as if it were not there
    scene.add(block);
    grSelection selection;
    selection.colours(gsColour(1, 0, 0), gsColour(0, 0, 1));
    selection.add_view(&scene.view);
    int told = 0;
    selection.changed_callback([&](grSelection&) { ++told; });
    redraw(scene);
    const auto under = [&](int x, int y) { return gr_pick(scene.view, giPoint2(x, y), grPICK_FRONT, grPICK_FEATURES); };
    const auto select = [&](int x, int y, grSelectMode mode)
    {
        selection.select_triangles(under(x, y), mode);
        EXPECT_EQ(under(x, y).size(), 1u) << "what is shown over a triangle is not picked";
        return count_pixels(scene.picture(), {255, 0, 0});
    };
    const int half = select(28, 11, grSELECT_ONLY);
    EXPECT_NEAR(half, 100, 11);
    EXPECT_EQ(select(11, 18, grSELECT_ADD), 200);
    EXPECT_EQ(select(11, 18, grSELECT_TOGGLE), half);
    const int both = select(45, 11, grSELECT_TOGGLE), other = select(45, 11, grSELECT_ONLY);
    EXPECT_EQ(both, half + other);
    EXPECT_EQ(selection.selected_triangles().size(), 1u);
    EXPECT_EQ(told, 5);
    selection.select({path_to(*scene.root, 1)});
    EXPECT_EQ(count_pixels(scene.picture(), {255, 0, 0}), 200);
    EXPECT_TRUE(selection.selected_triangles().empty());
    EXPECT_EQ(select(45, 11, grSELECT_ONLY), other);
    EXPECT_TRUE(selection.selected().empty());
    std::vector<dgPickHit> missing = under(45, 11);
    missing[0].feature = 2;
    selection.select_triangles(missing, grSELECT_ADD);
    EXPECT_EQ(count_pixels(scene.picture(), {255, 0, 0}), other);
    selection.clear();
    EXPECT_EQ(count_pixels(scene.picture(), {255, 0, 0}), 0);
    EXPECT_EQ(told, 9);
}

TEST(dgView, is_fitted_to_what_is_shown)
{
    Scene scene;
    const dgRef<dgClientStructure> part(new dgClientStructure);
    part->add(rectangle(10, 10, 20, 20));
    part->add(rectangle(30, 10, 40, 20));
    scene.add(rectangle(0, 0, 60, 40));
    scene.add(new dgTransform(giXform3::translation({2, 3, 0})));
    scene.add(new dgStructureCall(part.get()));
    grSelection selection;
    selection.add_view(&scene.view);
    EXPECT_EQ(scene.view.shown_box(), scene.root->bounding_box());
    selection.hide({path_to(*scene.root, 0)});
    dgElementPath right = path_to(*scene.root, 2);
    right.emplace_back(part->element(1));
    selection.hide({right});
    const giBox3 box = scene.view.shown_box();
    EXPECT_EQ(box.middle(), giPoint3(17, 18, 0));
    scene.view.view_bbox();
    EXPECT_NEAR((scene.view.camera().view_centre() - box.middle()).length(), 0, 1e-9);
    selection.isolate({right});
    EXPECT_TRUE(scene.view.shown_box().empty());
}

TEST(gr_pick, finds_the_nearest_or_all_with_the_calls_that_lead_there)
{
    Scene scene;
    const dgRef<dgClientStructure> part(new dgClientStructure);
    part->add(rectangle(10, 10, 30, 30, 5));
    scene.add(rectangle(20, 20, 50, 40, -5));
    scene.add(new dgTransform(giXform3::translation({2, 0, 0})));
    scene.add(new dgStructureCall(part.get()));
    grSelection selection;
    selection.add_view(&scene.view);

    const auto front = gr_pick(scene.view, giPoint2(25, 25));
    ASSERT_EQ(front.size(), 1u);
    ASSERT_EQ(front[0].path.size(), 2u);
    EXPECT_EQ(front[0].path[0].get(), scene.root->element(2));
    EXPECT_EQ(front[0].path[1].get(), part->element(0));
    EXPECT_NEAR((front[0].point - giPoint3(25, 25, 5)).length(), 0, 1e-6);
    EXPECT_EQ(gr_pick(scene.view, giPoint2(25, 25), grPICK_ALL).size(), 2u);
    EXPECT_EQ(gr_pick(scene.view, giPoint2(25, 28), grPICK_ALL, grPICK_FEATURES)[1].feature, 1);
    EXPECT_TRUE(gr_pick(scene.view, giPoint2(33.5, 15)).empty()); // surfaces are hit under the pointer alone

    selection.part_calls(1);
    const dgElementPath whole = selection.part(front[0].path);
    EXPECT_EQ(whole.size(), 1u);
    selection.hide({whole});
    EXPECT_EQ(gr_pick(scene.view, giPoint2(25, 25))[0].path.size(), 1u);
    selection.show_all();
    selection.isolate({whole});
    EXPECT_TRUE(gr_pick(scene.view, giPoint2(45, 35)).empty());
}

TEST(gr_pick, takes_from_a_box_what_is_seen_in_it)
{
    for (const int with_overlay : {0, 1})
    {
        Scene scene(64, 48, with_overlay);
        scene.add(rectangle(10, 10, 20, 20, -5));
        scene.add(rectangle(5, 5, 30, 30, 5));
        scene.add(rectangle(40, 10, 50, 20));
        scene.renderer.select_driver(with_overlay); // as after a rubber band
        EXPECT_EQ(gr_pick_box(scene.view, giBox2(0, 0, 63, 47)).size(), 2u);
        EXPECT_EQ(gr_pick_box(scene.view, giBox2(63, 47, 0, 0), grPICK_ALL).size(), 3u);
        EXPECT_EQ(gr_pick_box(scene.view, giBox2(35, 0, 63, 47)).size(), 1u);
        scene.view.shading_context().background_colour = gsColour(1, 1, 1);
        EXPECT_EQ(gr_pick_box(scene.view, giBox2(0, 0, 63, 47)).size(), 2u);
        EXPECT_EQ(gr_pick_box(scene.view, giBox2(0, 0, 63, 47), grPICK_FRONT, grPICK_FEATURES).size(), 4u);
    }
}
