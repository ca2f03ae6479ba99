#include "grViewRendererFast.h"

#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgStructureCall.h"
#include "giBox3.h"
#include "grTwiddleOverlayCallback.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int n_segments = 1 << 18;

void frames(grViewRendererFast& fast, int n)
{
    for (int i = 0; i < n; ++i)
        fast.refresh(nullptr, 0);
}
}

TEST(grViewRendererFast, draws_the_share_that_fitted_on_heavier_scenes)
{
    for (const int times : {2, 10, 100, 1000})
    {
        tsHeavyView heavy(n_segments, times);
        grViewRendererFast fast(&heavy.view());
        EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), n_segments) << "the first frame is complete";
        const long long fitted = heavy.drawn([&] { fast.refresh(nullptr, 0); });
        EXPECT_EQ(fast.draw_method(), grFAST_DRAW_SHARE);
        EXPECT_EQ(fast.draw_ratio(), static_cast<double>(fitted) / n_segments);
        EXPECT_EQ(fast.slice_prims(), fitted);
        // Drawn until the time was over, and little more.
        EXPECT_GE(static_cast<double>(fitted) * times, n_segments);
        EXPECT_LE(static_cast<double>(fitted - 1) * times, n_segments * 1.003);
        for (int i = 0; i < 20; ++i)
        {
            EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), fitted) << times;
            EXPECT_LE(fast.refresh_time(), 1.1);
            EXPECT_GE(fast.refresh_time(), 0.9);
        }
        long long completed = 0;
        int slices = 0;
        for (; slices < 2 * times; ++slices)
            if (const long long slice = heavy.drawn([&] { fast.draw_a_slice(); }))
                completed += slice;
            else
                break;
        EXPECT_EQ(completed, n_segments) << "slices complete the picture";
        EXPECT_EQ(slices, static_cast<int>(std::ceil(n_segments / static_cast<double>(fitted))));
    }
}

TEST(grViewRendererFast, follows_what_frames_take_and_comes_to_rest)
{
    // The part turns a side that costs so many times more or less, and single frames come late.
    for (const double times : {0.5, 0.7, 1.2, 3.0})
    {
        tsHeavyView heavy(n_segments, 10);
        grViewRendererFast fast(&heavy.view());
        frames(fast, 5);
        EXPECT_EQ(fast.followed_ratio(), fast.draw_ratio());
        heavy.window().cost_per_feature(10.0 * times / n_segments);
        frames(fast, 15);
        const double share = fast.followed_ratio();
        for (int i = 0; i < 20; ++i)
        {
            heavy.window().cost_per_feature((i % 5 == 4 ? 30.0 : 10.0) * times / n_segments);
            frames(fast, 1);
            EXPECT_EQ(fast.followed_ratio(), share) << times;
            EXPECT_GE(fast.refresh_time(), 0.79) << times;
            EXPECT_LE(fast.refresh_time(), i % 5 == 4 ? 3.1 : 1.02) << times;
        }
    }
}

TEST(grViewRendererFast, keeps_to_its_part_of_a_frame_of_several_views)
{
    tsHeavyView heavy(n_segments, 10);
    grViewRendererFast fast(&heavy.view());
    fast.views_in_frame(4);
    frames(fast, 2);
    EXPECT_NEAR(fast.followed_ratio(), 0.1, 0.001);
    frames(fast, 20);
    EXPECT_GE(fast.refresh_time(), 0.25 * 0.79);
    EXPECT_LE(fast.refresh_time(), 0.25 * 1.02);
}

TEST(grViewRendererFast, hands_on_what_it_draws)
{
    tsHeavyView heavy(n_segments, 10);
    const tsSetting<int> guard(0, [](int on) { grViewRendererFast::disable_flattening(on); });
    const tsSetting<grViewRendererFast::PrintCallback> print_guard(
        nullptr, [](grViewRendererFast::PrintCallback callback) { grViewRendererFast::set_print_callback(callback); });
    static dgStructure* printed = nullptr;
    grViewRendererFast::set_print_callback([](dgView*, dgStructure* structure) { printed = structure; });
    {
        grViewRendererFast fast(&heavy.view());
        fast.refresh(nullptr, 0);
        EXPECT_NE(printed, heavy.view().root());
    }
    grViewRendererFast::disable_flattening(1);
    grViewRendererFast(&heavy.view()).refresh(nullptr, 0);
    EXPECT_EQ(printed, heavy.view().root());
}

TEST(grViewRendererFast, fits_planes_to_a_box_with_the_icon_in_it_and_prepares_the_final_frame)
{
    tsHeavyView heavy(100, 0.1);
    const tsSetting<int> guard(0, [](int on) { grViewRendererFast::adjust_clip_planes(on); });
    const tsSetting<double> offset_guard(0.0, [](double d) { grViewRendererFast::view_bbox_offset(d); });
    const tsSetting<grViewRendererFast::ClipPlanesResetCB> callback_guard(
        nullptr, [](grViewRendererFast::ClipPlanesResetCB cb) { grViewRendererFast::set_clip_planes_resetCB(cb); });
    grViewRendererFast::adjust_clip_planes(1);
    grViewRendererFast::view_bbox_offset(2);
    static giBox3 reset_box;
    static const dgStructure* flat;
    static bool prepared;
    reset_box = giBox3();
    prepared = false;
    const tsSetting<grViewRendererFast::PrintCallback> print_guard(
        nullptr, [](grViewRendererFast::PrintCallback callback) { grViewRendererFast::set_print_callback(callback); });
    grViewRendererFast::set_print_callback([](dgView*, dgStructure* structure) { flat = structure; });
    grViewRendererFast::set_clip_planes_resetCB(
        [](dgView*, const giBox3& box)
        {
            reset_box = box;
            prepared = flat->draw_quality();
        });
    const dgRef<dgStructure> icon(new dgClientStructure);
    icon->add(new dgPolyline({{0, 0, -500}, {0, 0, 300}}));
    grViewRendererFast fast(&heavy.view());
    frames(fast, 2);
    fast.refresh(icon.get(), 0); // finds the box
    fast.refresh(icon.get(), 0); // uses it
    EXPECT_GE(heavy.view().camera().front_plane(), 300);
    EXPECT_LE(heavy.view().camera().back_plane(), -500);
    EXPECT_EQ(heavy.view().user_clip_planes(), 0);
    fast.refresh(icon.get(), 1);
    EXPECT_EQ(reset_box.low(), giPoint3(-2, -2, -502));
    EXPECT_EQ(reset_box.high(), giPoint3(102, 2, 302));
    EXPECT_TRUE(prepared);
    EXPECT_EQ(flat->draw_quality(), nullptr);
}

TEST(grViewRendererFast, puts_the_accumulation_of_frames_off_while_it_draws)
{
    tsHeavyView heavy(100, 0.1);
    static int accumulating = -1;
    grTwiddleOverlayCallback::register_callback([](dgView& view) { accumulating = view.renderer()->accumulate(); });
    const tsSetting<grViewRendererFast::PrintCallback> print_guard(
        nullptr, [](grViewRendererFast::PrintCallback callback) { grViewRendererFast::set_print_callback(callback); });
    static int accumulating_after = -1;
    grViewRendererFast::set_print_callback([](dgView* view, dgStructure*)
                                           { accumulating_after = view->renderer()->accumulate(); });
    heavy.scene.renderer().accumulate(1);
    grViewRendererFast fast(&heavy.view());
    fast.refresh(nullptr, 0);
    EXPECT_EQ(accumulating, 0);
    EXPECT_EQ(accumulating_after, 1);
    EXPECT_EQ(heavy.scene.renderer().accumulate(), 1);
    grTwiddleOverlayCallback::register_callback(nullptr);
}

TEST(grViewRendererFast, holds_the_budget_on_scenes_of_large_and_small_elements)
{
    // Large lines in the root, small ones under it, and structures of a few segments each with a width of its own, so
    // that nothing of them can be drawn together.
    const dgRef<dgStructure> root(new dgClientStructure), small(new dgClientStructure);
    for (int i = 0; i < 20; ++i)
        root->add(tsLine(5000)->element(0));
    for (int i = 0; i < 50000; ++i)
        small->add(new dgPolyline({{0, 0, 0}, {1, 0, 0}}));
    root->add(new dgStructureCall(small.get()));
    for (int i = 0; i < 5000; ++i)
    {
        const dgRef<dgStructure> part(new dgClientStructure);
        part->add(new dgLineWidth(1 + i % 2));
        part->add(tsLine(10)->element(0));
        root->add(new dgStructureCall(part.get()));
    }
    constexpr int total = 100000 + 50000 + 50000;
    for (const double times : {0.5, 1.5, 2.0, 10.0, 100.0, 1000.0})
    {
        tsHeavyView heavy;
        heavy.view().root(root.get());
        heavy.window().cost_per_feature(times / total);
        grViewRendererFast fast(&heavy.view());
        frames(fast, 2);
        EXPECT_EQ(fast.draw_method(), times < 1 ? grFAST_DRAW_ALL : grFAST_DRAW_SHARE) << times;
        for (int i = 0; i < 10; ++i)
        {
            fast.refresh(nullptr, 0);
            EXPECT_LE(fast.refresh_time(), 1.1) << times;
            EXPECT_GE(fast.refresh_time(), times < 1 ? 0.45 : 0.9) << times;
        }
        if (times < 1)
            continue;
        heavy.window().cost_noise(0.2);
        grViewRendererFast noisy(&heavy.view());
        frames(noisy, 2);
        EXPECT_NEAR(noisy.draw_ratio(), fast.draw_ratio(), 0.2 * fast.draw_ratio()) << times;
        EXPECT_EQ(noisy.draw_method(), grFAST_DRAW_SHARE) << times;
    }
}
