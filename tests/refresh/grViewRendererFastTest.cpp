#include "grViewRendererFast.h"

#include "dgAppElement.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgStructureCall.h"
#include "giBox3.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int n_segments = 1 << 18;

// An element that draws by itself: 3 segments.
class Own : public dgAppElement
{
public:
    Own* copy() const override { return new Own; }
    void draw(dgRenderer* renderer) const override { renderer->draw_primitive(*the_line); }

private:
    dgRef<dgPolyline> the_line{new dgPolyline({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}})};
};

void frames(grViewRendererFast& fast, int n)
{
    for (int i = 0; i < n; ++i)
        fast.refresh(nullptr, 0);
}
}

TEST(grViewRendererFast, draws_everything_on_scenes_that_fit_the_frame)
{
    tsHeavyView heavy(n_segments, 0.5);
    grViewRendererFast fast(&heavy.view());
    EXPECT_EQ(fast.refresh_time(), -1.0);
    for (int i = 0; i < 4; ++i)
    {
        EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), n_segments);
        EXPECT_DOUBLE_EQ(fast.refresh_time(), 0.5);
    }
    EXPECT_EQ(fast.draw_method(), grFAST_DRAW_ALL);
    EXPECT_EQ(fast.draw_a_slice(), 0);
}

TEST(grViewRendererFast, a_time_equal_to_the_budget_is_too_long)
{
    tsHeavyView heavy(n_segments, 1);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 2);
    EXPECT_EQ(fast.draw_method(), grFAST_DRAW_SHARE);
    EXPECT_EQ(fast.draw_ratio(), 1.0);
    EXPECT_EQ(fast.total_prims(), n_segments);
    EXPECT_EQ(fast.slice_prims(), n_segments);
    EXPECT_EQ(heavy.drawn([&] { fast.draw_a_slice(); }), n_segments);
    EXPECT_EQ(fast.draw_a_slice(), 0);
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

TEST(grViewRendererFast, noise_moves_the_share_by_less_than_itself)
{
    tsHeavyView heavy(n_segments, 10);
    heavy.window().cost_noise(0.2);
    for (int twiddle = 0; twiddle < 20; ++twiddle)
    {
        grViewRendererFast fast(&heavy.view());
        frames(fast, 2);
        EXPECT_NEAR(fast.draw_ratio(), 0.1, 0.02);
        const double ratio = fast.draw_ratio();
        for (int i = 0; i < 10; ++i)
        {
            fast.refresh(nullptr, 0);
            EXPECT_EQ(fast.draw_method(), grFAST_DRAW_SHARE);
            EXPECT_EQ(fast.draw_ratio(), ratio);
        }
    }
}

TEST(grViewRendererFast, without_a_minimum_rate_draws_all_as_one_share)
{
    tsHeavyView heavy(1000, 50);
    grViewRendererFast::minimum_framerate(1e-5);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 2);
    EXPECT_EQ(fast.frame_time(), 0.0);
    EXPECT_EQ(fast.draw_method(), grFAST_DRAW_SHARE);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), 1000);
    EXPECT_EQ(heavy.drawn([&] { fast.draw_a_slice(); }), 1000);
    EXPECT_EQ(fast.draw_a_slice(), 0);
}

TEST(grViewRendererFast, draws_everything_when_forced_and_at_the_end)
{
    tsHeavyView heavy(n_segments, 10);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 3);
    fast.force_full_refresh(1);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), n_segments);
    fast.force_full_refresh(0);
    EXPECT_LT(heavy.drawn([&] { fast.refresh(nullptr, 0); }), n_segments / 9);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 1); }), n_segments);
}

TEST(grViewRendererFast, draws_the_icon_from_the_third_frame_on_past_the_thinning)
{
    tsHeavyView heavy(n_segments, 10);
    const dgRef<dgStructure> icon = tsLine(7);
    grViewRendererFast fast(&heavy.view());
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(icon.get(), 0); }), n_segments);
    const long long fitted = heavy.drawn([&] { fast.refresh(icon.get(), 0); });
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(icon.get(), 0); }), fitted + 7);
    EXPECT_DOUBLE_EQ(fast.refresh_time(), static_cast<double>(fitted) * 10 / n_segments) << "outside the time";
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(icon.get(), 1); }), n_segments);
}

TEST(grViewRendererFast, follows_edits_of_the_network_in_the_same_share)
{
    tsHeavyView heavy(n_segments, 10);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 3);
    const dgRef<dgStructure> more = tsLine(n_segments);
    heavy.view().root()->add(more->element(0));
    const long long share = heavy.drawn([&] { fast.refresh(nullptr, 0); });
    EXPECT_NEAR(static_cast<double>(share), 2 * n_segments * fast.draw_ratio(), 65);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 1); }), 2 * n_segments);
    // The next twiddle makes a flat copy of what is there now, and keeps the share.
    const double ratio = fast.draw_ratio();
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), 2 * n_segments);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), share);
    EXPECT_EQ(fast.draw_ratio(), ratio);
}

TEST(grViewRendererFast, an_edit_between_slices_starts_the_picture_anew)
{
    tsHeavyView heavy(n_segments, 10);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 3);
    fast.draw_a_slice();
    heavy.view().root()->delete_range(0, 0);
    heavy.view().root()->add(tsLine(50)->element(0));
    heavy.scene.take_log();
    EXPECT_EQ(heavy.drawn([&] { fast.draw_a_slice(); }), 50);
    EXPECT_EQ(heavy.scene.take_log().front(), "clear 0 0 99 99 colour depth");
    EXPECT_EQ(fast.draw_a_slice(), 0);
}

TEST(grViewRendererFast, a_resize_between_slices_starts_the_picture_anew)
{
    tsHeavyView heavy(n_segments, 10);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 3);
    fast.draw_a_slice();
    heavy.window().resize(200, 150);
    heavy.scene.take_log();
    long long drawn = 0;
    while (const long long slice = heavy.drawn([&] { fast.draw_a_slice(); }))
        drawn += slice;
    EXPECT_EQ(drawn, n_segments);
    EXPECT_EQ(heavy.scene.take_log().front(), "clear 0 0 99 99 colour depth");
}

TEST(grViewRendererFast, measures_another_network_anew)
{
    tsHeavyView heavy(n_segments, 10);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 3);
    heavy.fill(1000, 0.5);
    frames(fast, 2);
    EXPECT_EQ(fast.draw_method(), grFAST_DRAW_ALL);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), 1000);
}

TEST(grViewRendererFast, erases_views_without_a_root_and_keeps_transparent_ones)
{
    tsHeavyView heavy(100, 0.1);
    const dgRef<dgStructure> root(heavy.view().root());
    grView companion(&heavy.view());
    companion.background(grVIEW_BACKGROUND_TRANSPARENT);
    static int overlays = 0;
    overlays = 0;
    grTwiddleOverlayCallback::register_callback([](dgView&) { ++overlays; });
    grViewRendererFast fast(&heavy.view());
    heavy.view().root(nullptr);
    heavy.scene.take_log();
    fast.refresh(nullptr, 0);
    EXPECT_EQ(heavy.scene.take_log().front(), "clear 0 0 99 99 colour depth") << "even though it is transparent";
    EXPECT_EQ(fast.refresh_time(), 0.0);
    EXPECT_EQ(overlays, 0);
    heavy.view().root(root.get());
    fast.refresh(nullptr, 0);
    EXPECT_EQ(heavy.scene.take_log().front(), "draw lines 100 of 1");
    EXPECT_EQ(overlays, 1);
    grTwiddleOverlayCallback::register_callback(nullptr);
}

TEST(grViewRendererFast, ends_on_the_network_itself_when_an_element_draws_by_itself)
{
    tsHeavyView heavy(100, 0.1);
    heavy.view().root()->add(new Own);
    grViewRendererFast fast(&heavy.view());
    for (const int final : {0, 0, 0, 1})
        EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, final); }), 103);
    // The flat copy of an unchanged network is kept all the same.
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), 103);
}

TEST(grViewRendererFast, draws_the_root_when_flattening_is_disabled)
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
    grViewRendererFast fast(&heavy.view());
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 0); }), n_segments);
    EXPECT_EQ(printed, heavy.view().root());
    fast.refresh(nullptr, 0);
    EXPECT_NEAR(fast.draw_ratio(), 0.1, 0.001);
    EXPECT_EQ(heavy.drawn([&] { fast.refresh(nullptr, 1); }), n_segments);
}

TEST(grViewRendererFast, fits_planes_to_a_box_with_the_icon_in_it)
{
    tsHeavyView heavy(100, 0.1);
    const tsSetting<int> guard(0, [](int on) { grViewRendererFast::adjust_clip_planes(on); });
    const tsSetting<double> offset_guard(0.0, [](double d) { grViewRendererFast::view_bbox_offset(d); });
    const tsSetting<grViewRendererFast::ClipPlanesResetCB> callback_guard(
        nullptr, [](grViewRendererFast::ClipPlanesResetCB cb) { grViewRendererFast::set_clip_planes_resetCB(cb); });
    grViewRendererFast::adjust_clip_planes(1);
    grViewRendererFast::view_bbox_offset(2);
    static giBox3 reset_box;
    reset_box = giBox3();
    grViewRendererFast::set_clip_planes_resetCB([](dgView*, const giBox3& box) { reset_box = box; });
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
}

TEST(grViewRendererFast, forgets_a_view_that_is_destroyed)
{
    tsHeavyView heavy(100, 0.1);
    grViewRendererFast fast(&heavy.view());
    frames(fast, 3);
    heavy.scene.delete_view(0);
    EXPECT_EQ(fast.view(), nullptr);
    heavy.scene.take_log();
    fast.refresh(nullptr, 0);
    EXPECT_EQ(fast.draw_a_slice(), 0);
    EXPECT_TRUE(heavy.scene.take_log().empty());
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
