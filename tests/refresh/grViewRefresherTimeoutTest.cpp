#include "grViewRefresherTimeout.h"

#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grViewRefresherFull.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
using Log = std::vector<std::string>;

const std::string erase_all = "clear 0 0 99 99 colour depth";

// A view of 100 lines of 64 segments, which takes times seconds to draw.
struct Lines : tsHeavyView
{
    explicit Lines(double times)
    {
        const dgRef<dgStructure> root(new dgClientStructure);
        for (int i = 0; i < 100; ++i)
            root->add(new dgPolyline(std::vector<giPoint3>(65)));
        view().root(root.get());
        window().cost_per_feature(times / 6400);
    }
    grTimeoutRendererCache cache{16};
};

int count(const Log& log, const std::string& line)
{
    return static_cast<int>(std::count(log.begin(), log.end(), line));
}
}

TEST(grViewRefresherTimeout, draws_a_share_of_heavy_views_and_everything_at_the_end)
{
    Lines heavy(10);
    grViewRefresherTimeout refresher({&heavy.view()}, &heavy.cache, 1, 1, 1, 1);
    refresher.base_start_twiddle();
    for (int i = 0; i < 5; ++i)
    {
        const long long drawn = heavy.drawn([&] { refresher.base_refresh(); });
        EXPECT_GE(drawn, 9 * 64); // whole elements
        EXPECT_LE(drawn, 11 * 64);
    }
    EXPECT_EQ(refresher.use_full_refresh(), 0);
    long long completed = 0;
    grIdleAction action = grIDLE_AGAIN;
    while (action != grIDLE_DONE && completed < 10000)
        completed += heavy.drawn([&] { action = refresher.base_idle(); });
    EXPECT_EQ(completed, 6400);
    EXPECT_EQ(heavy.drawn([&] { refresher.base_end_twiddle(); }), 6400);
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE);
}

TEST(grViewRefresherTimeout, draws_in_full_only_once_that_is_known_to_be_quicker_than_a_frame)
{
    const struct
    {
        const char* name;
        double full_time;
        int allow, full;
    } cases[] = {{"quicker", 0.75, 1, 1}, {"as long", 1, 1, 0}, {"longer", 1.5, 1, 0}, {"not allowed", 0.75, 0, 0}};
    for (const auto& c : cases)
    {
        Lines heavy(c.full_time);
        grViewRefresherTimeout refresher({&heavy.view()}, &heavy.cache, 1, 1, 1, 1);
        refresher.allow_full_refresh(c.allow);
        refresher.base_start_twiddle();
        refresher.base_refresh();
        EXPECT_EQ(refresher.use_full_refresh(), 0) << c.name << ": nothing is known before the first frame";
        // What the frame estimated is rounded up to a whole number of elements; here it is told exactly.
        heavy.cache.find_timeout_renderer(&heavy.view())->full_refresh_time(c.full_time);
        refresher.base_refresh();
        EXPECT_EQ(refresher.use_full_refresh(), c.full) << c.name;
        heavy.cache.find_timeout_renderer(&heavy.view())->full_refresh_time(0.1);
        refresher.base_refresh();
        EXPECT_EQ(refresher.use_full_refresh(), c.full) << c.name << ": asked for once in a twiddle";
    }
}

TEST(grViewRefresherTimeout, a_heavy_scene_is_not_drawn_in_full_on_the_second_frame)
{
    Lines heavy(100);
    grViewRefresherTimeout refresher({&heavy.view()}, &heavy.cache, 1, 1, 1, 1);
    refresher.base_start_twiddle();
    refresher.base_refresh();
    EXPECT_LT(heavy.drawn([&] { refresher.base_refresh(); }), 200);
    EXPECT_EQ(refresher.use_full_refresh(), 0);
}

TEST(grViewRefresherTimeout, full_drawing_shows_icons_and_ends_only_when_forced)
{
    Lines heavy(0.1);
    const dgRef<dgStructure> icon = tsLine(7);
    heavy.cache.add_timeout_renderer_and_time(&heavy.view(), 0.1);
    {
        grViewRefresherTimeout refresher({&heavy.view()}, &heavy.cache, 1, 1, 1, 1);
        refresher.set_twiddle_icon(icon.get(), &heavy.view());
        refresher.base_start_twiddle();
        EXPECT_EQ(heavy.drawn([&] { refresher.base_refresh(); }), 6407);
        EXPECT_EQ(refresher.base_idle(), grIDLE_DONE);
        EXPECT_EQ(heavy.drawn([&] { refresher.base_end_twiddle(); }), 0);
    }
    EXPECT_EQ(icon->reference_count(), 1);
    grViewRefresherTimeout forced({&heavy.view()}, &heavy.cache, 1, 1, 1, 1, new grViewRefresherFull({&heavy.view()}));
    forced.base_start_twiddle();
    forced.base_refresh();
    forced.force_redraw_on_end_twiddle();
    EXPECT_EQ(heavy.drawn([&] { forced.base_end_twiddle(); }), 6400);
}

TEST(grViewRefresherTimeout, shares_the_budget_among_views_with_a_root_and_swaps_once_per_renderer)
{
    Lines heavy(12.5);
    tsScene& scene = heavy.scene;
    scene.add_view();
    scene.add_view();
    scene.view(1)->root(scene.view(0)->root());
    scene.view(2)->root(nullptr);
    grViewRefresherTimeout refresher({scene.view(0), scene.view(1), scene.view(2)}, &heavy.cache, 1, 1, 1, 1);
    const dgRef<dgStructure> icon = tsLine(7);
    refresher.set_twiddle_icon(icon.get(), scene.view(1));
    refresher.base_start_twiddle();
    scene.take_log();
    // Half a second each: 256 segments in lines of 64, and one more, as 256 is not over; and the icon.
    EXPECT_EQ(heavy.drawn([&] { refresher.base_refresh(); }), 2 * 5 * 64 + 7);
    const Log log = scene.take_log();
    EXPECT_EQ(count(log, erase_all), 3);
    EXPECT_EQ(log.back(), "swap_buffers 0");
    EXPECT_EQ(count(log, "swap_buffers 0"), 1);
}

TEST(grViewRefresherTimeout, an_idle_refresh_draws_everything_without_icons)
{
    Lines heavy(10);
    const dgRef<dgStructure> icon = tsLine(7);
    grViewRefresherTimeout refresher({&heavy.view()}, &heavy.cache, 1, 1, 1, 1);
    refresher.set_twiddle_icon(icon.get(), &heavy.view());
    refresher.base_start_twiddle();
    refresher.base_refresh();
    EXPECT_EQ(heavy.drawn([&] { refresher.base_idle_refresh(); }), 6400);
}

TEST(grViewRefresherTimeout, views_may_go_in_the_middle_of_a_twiddle)
{
    Lines heavy(10);
    heavy.scene.add_view();
    heavy.scene.add_view();
    grViewRefresherTimeout refresher({heavy.scene.view(0), heavy.scene.view(1), heavy.scene.view(2)}, &heavy.cache, 1,
                                     1, 1, 1);
    refresher.base_start_twiddle();
    refresher.base_refresh();
    refresher.base_idle_refresh();
    heavy.scene.delete_view(1);
    EXPECT_EQ(heavy.cache.size(), 2);
    refresher.base_refresh();
    refresher.base_idle();
    refresher.remove(heavy.scene.view(2));
    heavy.scene.take_log();
    refresher.base_idle_refresh();
    EXPECT_EQ(count(heavy.scene.take_log(), erase_all), 1);
    EXPECT_EQ(refresher.nviews(), 1);
    // The window's other view is redrawn too: a swap shows both.
    EXPECT_EQ(heavy.drawn([&] { refresher.base_end_twiddle(); }), 6400);
}
