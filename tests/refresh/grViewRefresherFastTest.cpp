#include "grViewRefresherFast.h"

#include "dgRenderNetworkAction.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grTwiddleOverlayCallback.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
using Log = std::vector<std::string>;

const std::string erase_all = "clear 0 0 99 99 colour depth";

int count(const Log& log, const std::string& line)
{
    return static_cast<int>(std::count(log.begin(), log.end(), line));
}

class BlockSlices : public dgRenderNetworkAction
{
public:
    bool check(const dgView&) const override { return blocked; }
    bool blocked = true;
};

// Drops what is cached at the end of a test.
class NoCache
{
public:
    ~NoCache() { grViewRefresherFast::cache_graphics(0); }
};

void frames(grViewRefresherFast& refresher, int n)
{
    for (int i = 0; i < n; ++i)
        refresher.base_refresh();
}
}

TEST(grViewRefresherFast, draws_views_from_last_to_first_with_one_swap_per_renderer)
{
    tsHeavyView heavy;
    tsScene& scene = heavy.scene;
    scene.add_window();
    scene.add_view(1);
    scene.add_view(0);
    grViewRefresherFast refresher({scene.view(0), scene.view(1), scene.view(2)});
    refresher.base_start_twiddle();
    refresher.base_refresh();
    EXPECT_EQ(scene.take_log(0),
              (Log{"select_buffer back", erase_all, "draw lines 3 of 1", "finish", "select_buffer back", erase_all,
                   "draw lines 1 of 1", "finish", "swap_buffers 0"}));
    EXPECT_EQ(scene.take_log(1),
              (Log{"select_buffer back", erase_all, "draw lines 2 of 1", "finish", "swap_buffers 0"}));
}

TEST(grViewRefresherFast, fills_the_front_buffer_in_idle_time_until_the_picture_is_complete)
{
    tsHeavyView heavy(100000, 10);
    grViewRefresherFast refresher({&heavy.view()});
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE) << "not started";
    refresher.base_start_twiddle();
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE) << "nothing drawn";
    frames(refresher, 3);
    heavy.scene.take_log();
    long long drawn = 0;
    int calls = 0;
    for (; calls < 100; ++calls)
    {
        grIdleAction action = grIDLE_DONE;
        drawn += heavy.drawn([&] { action = refresher.base_idle(); });
        if (action == grIDLE_DONE)
            break;
    }
    EXPECT_EQ(drawn, 100000);
    EXPECT_EQ(calls, 10);
    const Log log = heavy.scene.take_log();
    EXPECT_EQ(log.front(), "select_buffer front");
    EXPECT_EQ(count(log, erase_all), 0);
    EXPECT_EQ(count(log, "swap_buffers 0"), 0);
    // A new frame starts over.
    refresher.base_refresh();
    EXPECT_EQ(refresher.base_idle(), grIDLE_AGAIN);
    refresher.base_end_twiddle();
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE);
}

TEST(grViewRefresherFast, does_not_draw_slices_where_that_is_forbidden)
{
    tsHeavyView heavy(100000, 10);
    grViewRefresherFast refresher({&heavy.view()});
    refresher.base_start_twiddle();
    frames(refresher, 3);
    heavy.scene.renderer().idle_slicing_forbidden(1);
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE);
    heavy.scene.renderer().idle_slicing_forbidden(0);
    EXPECT_EQ(refresher.base_idle(), grIDLE_AGAIN);

    BlockSlices action;
    dgView::the_global_render_network_action = &action;
    refresher.base_refresh();
    dgView::the_global_render_network_action = nullptr;
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE);
    refresher.base_refresh();
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE) << "for the rest of the twiddle";
}

TEST(grViewRefresherFast, a_views_own_action_goes_before_the_global_one)
{
    tsHeavyView heavy(100000, 10);
    BlockSlices global, own;
    own.blocked = false;
    dgView::the_global_render_network_action = &global;
    heavy.view().render_network_action(&own);
    grViewRefresherFast refresher({&heavy.view()});
    refresher.base_start_twiddle();
    frames(refresher, 3);
    EXPECT_EQ(refresher.base_idle(), grIDLE_AGAIN);
    dgView::the_global_render_network_action = nullptr;
}

TEST(grViewRefresherFast, ends_on_full_detail_without_icons_in_the_front_buffer)
{
    tsHeavyView heavy(100000, 10);
    const dgRef<dgStructure> icon = tsLine(7);
    grViewRefresherFast refresher({&heavy.view()});
    refresher.set_twiddle_icon(icon.get(), &heavy.view());
    refresher.base_start_twiddle();
    frames(refresher, 3);
    EXPECT_GT(grViewRefresherFast::in_refresh(), 0);
    heavy.scene.take_log();
    refresher.base_end_twiddle();
    EXPECT_EQ(heavy.scene.take_log(), (Log{"select_buffer back", erase_all, "draw lines 100000 of 1", "finish",
                                           "swap_buffers 0", "select_buffer front"}));
    EXPECT_EQ(icon->reference_count(), 1);
    EXPECT_EQ(grViewRefresherFast::in_refresh(), 0);
}

TEST(grViewRefresherFast, an_idle_refresh_draws_everything_even_after_the_end)
{
    tsHeavyView heavy(100000, 10);
    grViewRefresherFast refresher({&heavy.view()});
    refresher.base_start_twiddle();
    EXPECT_EQ(heavy.drawn([&] { refresher.base_idle_refresh(); }), 0) << "there was no frame yet";
    frames(refresher, 3);
    EXPECT_EQ(heavy.drawn([&] { refresher.base_idle_refresh(); }), 100000);
    EXPECT_LT(heavy.drawn([&] { refresher.base_refresh(); }), 10200);
    refresher.base_end_twiddle();
    EXPECT_EQ(heavy.drawn([&] { refresher.base_idle_refresh(); }), 100000);
}

TEST(grViewRefresherFast, without_a_frame_the_end_redraws_as_ever)
{
    tsHeavyView heavy(10, 0.1);
    grViewRefresherFast refresher({&heavy.view()});
    refresher.base_start_twiddle();
    heavy.scene.take_log();
    refresher.base_end_twiddle();
    EXPECT_EQ(heavy.scene.take_log(),
              (Log{"select_buffer back", erase_all, "draw lines 10 of 1", "swap_buffers 0", "select_buffer front"}));
}

TEST(grViewRefresherFast, views_may_go_in_the_middle_of_a_twiddle)
{
    for (const int when : {0, 1, 2, 3})
    {
        tsHeavyView heavy(1000, 10);
        heavy.scene.add_view();
        heavy.scene.add_view();
        grViewRefresherFast refresher({heavy.scene.view(0), heavy.scene.view(1), heavy.scene.view(2)});
        refresher.base_start_twiddle();
        frames(refresher, when);
        heavy.scene.delete_view(1);
        refresher.base_idle();
        frames(refresher, 3);
        refresher.remove(heavy.scene.view(2));
        heavy.scene.take_log();
        refresher.base_refresh();
        const Log log = heavy.scene.take_log();
        EXPECT_EQ(count(log, erase_all), 1) << when;
        EXPECT_EQ(count(log, "swap_buffers 0"), 1) << when;
        EXPECT_EQ(heavy.drawn([&] { refresher.base_end_twiddle(); }), 1000);
        EXPECT_EQ(heavy.scene.view(2)->reference_count(), 0);
    }
}

TEST(grViewRefresherFast, bears_an_overlay_callback_that_destroys_the_view_being_drawn)
{
    static tsHeavyView* the_heavy = nullptr;
    tsHeavyView heavy(1000, 10);
    heavy.scene.add_view();
    the_heavy = &heavy;
    grViewRefresherFast refresher({heavy.scene.view(0), heavy.scene.view(1)});
    refresher.base_start_twiddle();
    frames(refresher, 2);
    grTwiddleOverlayCallback::register_callback(
        [](dgView& view)
        {
            if (the_heavy->scene.view(1) == &view)
                the_heavy->scene.delete_view(1);
        });
    heavy.scene.take_log();
    refresher.base_refresh();
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(count(heavy.scene.take_log(), "swap_buffers 0"), 1);
    EXPECT_EQ(refresher.nviews(), 1);
    EXPECT_EQ(heavy.drawn([&] { refresher.base_end_twiddle(); }), 1000);
}

TEST(grViewRefresherFast, records_frame_times_where_it_is_told_to)
{
    tsHeavyView heavy(1000, 0.5);
    grTimeoutRendererCache cache(16);
    cache.record_refresh_stats(5);
    grViewRefresherFast refresher({&heavy.view()});
    refresher.enable_twiddle_timings(&cache);
    refresher.base_start_twiddle();
    frames(refresher, 3);
    const grTimeoutRenderer* recorded = cache.find_timeout_renderer(&heavy.view());
    ASSERT_NE(recorded, nullptr);
    int n = 0;
    double average = 0;
    recorded->twiddle_refresh_stats()->last_stats(100, n, average);
    EXPECT_EQ(n, 3);
    EXPECT_DOUBLE_EQ(average, 0.5);
}

TEST(grViewRefresherFast, keeps_renderers_from_one_twiddle_to_the_next)
{
    NoCache guard;
    tsHeavyView heavy(100000, 10);
    heavy.scene.add_view();
    const dgViewcoDList views{heavy.scene.view(0), heavy.scene.view(1)};
    const auto first_frame = [&](const dgViewcoDList& list)
    {
        grViewRefresherFast refresher(list);
        refresher.base_start_twiddle();
        const long long drawn = heavy.drawn([&] { refresher.base_refresh(); });
        frames(refresher, 2);
        refresher.base_end_twiddle();
        return drawn;
    };
    EXPECT_EQ(first_frame(views), 100002);
    EXPECT_EQ(first_frame(views), 100002) << "nothing is kept unless it is asked for";
    grViewRefresherFast::cache_graphics(1);
    EXPECT_EQ(first_frame(views), 100002);
    EXPECT_LT(first_frame(views), 10200);
    EXPECT_LT(first_frame(views), 10200);
    grViewRefresherFast::graphics_state_changed();
    EXPECT_EQ(first_frame(views), 100002);
    EXPECT_LT(first_frame(views), 10200);
    EXPECT_EQ(first_frame({heavy.scene.view(1), heavy.scene.view(0)}), 100002) << "another order is another list";
    EXPECT_LT(first_frame({heavy.scene.view(1), heavy.scene.view(0)}), 10200);
    grViewRefresherFast::cache_graphics(0);
    EXPECT_EQ(first_frame({heavy.scene.view(1), heavy.scene.view(0)}), 100002);
}

TEST(grViewRefresherFast, a_change_in_the_middle_of_a_twiddle_keeps_its_renderers_from_the_next)
{
    NoCache guard;
    tsHeavyView heavy(100000, 10);
    grViewRefresherFast::cache_graphics(1);
    for (int i = 0; i < 3; ++i)
    {
        grViewRefresherFast refresher({&heavy.view()});
        refresher.base_start_twiddle();
        EXPECT_EQ(heavy.drawn([&] { refresher.base_refresh(); }), 100000) << i;
        frames(refresher, 2);
        grViewRefresherFast::graphics_state_changed();
        EXPECT_LT(heavy.drawn([&] { refresher.base_refresh(); }), 10200) << "those in use go on";
        refresher.base_end_twiddle();
    }
}

TEST(grViewRefresherFast, does_not_take_a_new_view_for_one_that_is_gone)
{
    NoCache guard;
    tsHeavyView heavy(100000, 10);
    heavy.scene.add_view();
    grViewRefresherFast::cache_graphics(1);
    for (const int gone : {0, 1})
    {
        grViewRefresherFast refresher({heavy.scene.view(0), heavy.scene.view(1)});
        refresher.base_start_twiddle();
        frames(refresher, 3);
        refresher.base_end_twiddle();
        if (gone)
            heavy.scene.delete_view(1);
    }
    heavy.scene.add_view();
    grViewRefresherFast refresher({heavy.scene.view(0), heavy.scene.view(2)});
    refresher.base_start_twiddle();
    EXPECT_EQ(heavy.drawn([&] { refresher.base_refresh(); }), 100003);
}
