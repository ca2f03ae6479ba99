#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewListUtils.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using Log = std::vector<std::string>;

const std::string erase_all = "clear 0 0 99 99 colour depth";

void overlay(dgView& view)
{
    static_cast<dgTraceWindow*>(view.renderer()->window(0))->record("overlay");
}

struct OverlayGuard
{
    OverlayGuard() { grTwiddleOverlayCallback::register_callback(&overlay); }
    ~OverlayGuard() { grTwiddleOverlayCallback::register_callback(nullptr); }
};
}

TEST(refresh_views, draws_from_the_last_view_to_the_first_and_swaps_once_per_renderer)
{
    tsScene scene;
    scene.add_window();
    scene.add_view(0, giBox2(0, 0, 49, 99));
    scene.add_view(0, giBox2(50, 0, 99, 99));
    scene.add_view(1);
    grViewListUtils::refresh_views({scene.view(0), scene.view(1), scene.view(2)}, nullptr, nullptr);
    EXPECT_EQ(scene.take_log(0),
              (Log{"select_buffer back", "clear 50 0 99 99 colour depth", "draw lines 2 of 1", "select_buffer back",
                   "clear 0 0 49 99 colour depth", "draw lines 1 of 1", "swap_buffers 0", "select_buffer front"}));
    EXPECT_EQ(scene.take_log(1),
              (Log{"select_buffer back", erase_all, "draw lines 3 of 1", "swap_buffers 0", "select_buffer front"}));
}

TEST(refresh_views, swaps_once_per_run_of_views_of_a_renderer)
{
    tsScene scene;
    scene.add_window();
    scene.add_view(0);
    scene.add_view(1);
    scene.add_view(0);
    grViewListUtils::refresh_views({scene.view(0), scene.view(1), scene.view(2)}, nullptr, nullptr);
    const Log log = scene.take_log(0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "swap_buffers 0"), 2);
}

TEST(refresh_views, neither_erases_transparent_views_nor_draws_hidden_ones)
{
    const OverlayGuard guard;
    tsScene scene;
    for (int i = 0; i < 3; ++i)
        scene.add_view();
    grView transparent(scene.view(0)), hidden(scene.view(1)), both(scene.view(2));
    transparent.background(grVIEW_BACKGROUND_TRANSPARENT);
    hidden.hidden(1);
    both.background(grVIEW_BACKGROUND_TRANSPARENT);
    both.hidden(1);
    const dgRef<dgStructure> icon = tsLine(10);

    // The extra structure is drawn over a hidden view too, and behind the overlay of a visible one.
    grViewListUtils::refresh_views({scene.view(0), scene.view(1), scene.view(2)}, {scene.view(1), scene.view(0)},
                                   {icon.get(), icon.get()});
    EXPECT_EQ(scene.take_log(),
              (Log{"select_buffer back", "select_buffer back", erase_all, "draw lines 10 of 1", "select_buffer back",
                   "draw lines 1 of 1", "overlay", "draw lines 10 of 1", "swap_buffers 0", "select_buffer front"}));
}

TEST(refresh_views, takes_the_first_of_several_extra_structures_of_a_view)
{
    tsScene scene;
    scene.add_view();
    const dgRef<dgStructure> icon = tsLine(10);
    grViewListUtils::refresh_views({scene.view(0)}, {scene.view(0), scene.view(0)}, {nullptr, icon.get()});
    EXPECT_EQ(scene.take_log(),
              (Log{"select_buffer back", erase_all, "draw lines 1 of 1", "swap_buffers 0", "select_buffer front"}));

    grViewListUtils::refresh_views({scene.view(0)}, icon.get(), scene.view(0));
    EXPECT_EQ(scene.take_log()[3], "draw lines 10 of 1");
    grViewListUtils::refresh_views({scene.view(0)}, icon.get(), nullptr);
    EXPECT_EQ(scene.take_log()[3], "swap_buffers 0");
}

TEST(refresh_views, selects_and_swaps_nothing_on_a_single_buffered_renderer)
{
    tsScene scene;
    scene.add_view();
    scene.window().capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    grViewListUtils::refresh_views({scene.view(0)}, nullptr, nullptr);
    EXPECT_EQ(scene.take_log(), (Log{erase_all, "draw lines 1 of 1"}));
}

TEST(refresh_views, passes_the_swap_setting_on)
{
    const tsSetting<dgDoubleBufferSwap> guard(grViewListUtils::erase_on_swap_buffers(),
                                              &grViewListUtils::erase_on_swap_buffers);
    EXPECT_EQ(grViewListUtils::erase_on_swap_buffers(), dgSWAP_PLAIN);
    grViewListUtils::erase_on_swap_buffers(dgSWAP_AND_CLEAR);
    tsScene scene;
    scene.add_view();
    grViewListUtils::refresh_views_and_rubber_banding({scene.view(0)}, {&scene.renderer()});
    EXPECT_EQ(scene.take_log()[3], "swap_buffers 1");
}

TEST(refresh_views, does_nothing_for_an_empty_list_or_a_view_without_renderer)
{
    tsScene scene;
    scene.add_view();
    dgView without_renderer;
    const dgRef<dgStructure> icon = tsLine(10);
    grViewListUtils::refresh_views({}, {scene.view(0)}, {icon.get()});
    grViewListUtils::refresh_views({&without_renderer}, icon.get(), &without_renderer);
    EXPECT_EQ(scene.take_log(), Log());
}

namespace
{
tsScene* the_scene = nullptr;

// Destroys the views of even numbers, its own among them, when view 2 has been drawn.
void destroy_even_views(dgView& view)
{
    if (&view != the_scene->view(2))
        return;
    for (int i = 0; i < the_scene->n_views(); i += 2)
        the_scene->delete_view(i);
}
}

TEST(refresh_views, leaves_alone_what_the_overlay_callback_destroys)
{
    tsScene scene;
    scene.add_window();
    for (int window : {0, 0, 0, 1, 1})
        scene.add_view(window);
    the_scene = &scene;
    // The lists are nobody's, so that nothing takes the views out of them.
    const dgRef<dgStructure> icon = tsLine(10);
    grTwiddleOverlayCallback::register_callback(&destroy_even_views);
    grViewListUtils::refresh_views({scene.view(4), scene.view(0), scene.view(1), scene.view(2)}, icon.get(),
                                   scene.view(2));
    EXPECT_EQ(scene.take_log(0), (Log{"select_buffer back", erase_all, "draw lines 3 of 1", "select_buffer back",
                                      erase_all, "draw lines 2 of 1", "swap_buffers 0", "select_buffer front"}));
    EXPECT_EQ(scene.take_log(1), Log());

    // Without any view left, the buffers are swapped all the same: the renderer is not left on the back one.
    tsScene last;
    for (int i = 0; i < 3; ++i)
        last.add_view();
    last.delete_view(1);
    the_scene = &last;
    grViewListUtils::refresh_views({last.view(0), last.view(2)}, nullptr, nullptr);
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(last.take_log(),
              (Log{"select_buffer back", erase_all, "draw lines 3 of 1", "swap_buffers 0", "select_buffer front"}));
}
