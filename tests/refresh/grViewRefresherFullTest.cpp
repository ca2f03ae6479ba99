#include "grViewRefresherFull.h"

#include "grTwiddleOverlayCallback.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
using Log = std::vector<std::string>;

const std::string erase_all = "clear 0 0 99 99 colour depth";
}

TEST(grViewRefresherFull, draws_views_with_their_icons_and_swaps_once_per_renderer)
{
    tsScene scene;
    scene.add_window();
    for (int window : {0, 1, 0})
        scene.add_view(window);
    grViewRefresherFull refresher({scene.view(0), scene.view(1), scene.view(2)});
    const dgRef<dgStructure> icon = tsLine(10);
    refresher.set_twiddle_icon(icon.get(), scene.view(2));
    refresher.base_start_twiddle();
    refresher.base_refresh();
    EXPECT_EQ(scene.take_log(0),
              (Log{"select_buffer back", erase_all, "draw lines 3 of 1", "draw lines 10 of 1", "select_buffer back",
                   erase_all, "draw lines 1 of 1", "swap_buffers 0", "select_buffer front"}));
    EXPECT_EQ(scene.take_log(1),
              (Log{"select_buffer back", erase_all, "draw lines 2 of 1", "swap_buffers 0", "select_buffer front"}));
}

TEST(grViewRefresherFull, redraws_at_the_end_only_when_forced_and_without_icons)
{
    tsScene scene;
    scene.add_view();
    const dgRef<dgStructure> icon = tsLine(10);
    const auto end_log = [&](auto prepare)
    {
        grViewRefresherFull refresher({scene.view(0)});
        refresher.set_twiddle_icon(icon.get(), scene.view(0));
        refresher.base_start_twiddle();
        prepare(refresher);
        refresher.base_refresh();
        scene.take_log();
        refresher.base_end_twiddle();
        return scene.take_log();
    };
    const Log redrawn{"select_buffer back", erase_all, "draw lines 1 of 1", "swap_buffers 0", "select_buffer front"};
    EXPECT_EQ(end_log([](grViewRefresherFull&) {}), Log());
    EXPECT_EQ(end_log([](grViewRefresherFull& refresher) { refresher.force_redraw_on_end_twiddle(); }), redrawn);
    // The end restores the normal quality.
    EXPECT_EQ(end_log([](grViewRefresherFull& refresher) { refresher.draw_quality_overrides().text.enabled = 1; }),
              redrawn);
}

TEST(grViewRefresherFull, goes_on_without_a_view_that_is_destroyed_during_the_twiddle)
{
    tsScene scene;
    scene.add_window();
    for (int window : {0, 1, 0})
        scene.add_view(window);
    grViewRefresherFull refresher({scene.view(0), scene.view(1), scene.view(2)});
    const dgRef<dgStructure> icon = tsLine(10);
    refresher.set_twiddle_icon(icon.get(), scene.view(0));
    refresher.base_start_twiddle();
    refresher.base_refresh();
    scene.delete_view(0);
    scene.delete_view(1);
    scene.take_log(0);
    scene.take_log(1);

    refresher.base_refresh();
    EXPECT_EQ(scene.take_log(0),
              (Log{"select_buffer back", erase_all, "draw lines 3 of 1", "swap_buffers 0", "select_buffer front"}));
    EXPECT_EQ(scene.take_log(1), Log());

    scene.delete_view(2);
    refresher.force_redraw_on_end_twiddle();
    refresher.base_refresh();
    refresher.base_end_twiddle();
    EXPECT_EQ(scene.take_log(0), Log());
}

namespace
{
tsScene* the_scene = nullptr;

// Destroys the two other views when the first one of three has been drawn, which is the last in the list.
void destroy_others(dgView& view)
{
    if (&view != the_scene->view(2))
        return;
    the_scene->delete_view(0);
    the_scene->delete_view(1);
}
}

TEST(grViewRefresherFull, finishes_a_frame_whose_overlay_destroys_views)
{
    tsScene scene;
    for (int i = 0; i < 3; ++i)
        scene.add_view();
    grViewRefresherFull refresher({scene.view(0), scene.view(1), scene.view(2)});
    the_scene = &scene;
    grTwiddleOverlayCallback::register_callback(&destroy_others);
    refresher.base_start_twiddle();
    refresher.base_refresh();
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(refresher.views(), dgViewcoDList{scene.view(2)});
    const Log log = scene.take_log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "swap_buffers 0"), 1);
    EXPECT_EQ(log.back(), "select_buffer front");
}
