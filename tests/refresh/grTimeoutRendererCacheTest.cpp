#include "grTimeoutRendererCache.h"

#include "grTimeoutRenderer.h"
#include "grViewRefresherTimeout.h"
#include "tsScene.h"

#include <gtest/gtest.h>

TEST(grTimeoutRendererCache, keeps_one_renderer_a_view_and_lets_it_go_with_the_view)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grTimeoutRendererCache cache(16);
    EXPECT_EQ(cache.find_timeout_renderer(scene.view(0)), nullptr);
    cache.add_timeout_renderers({scene.view(0), scene.view(1)});
    const grTimeoutRenderer* first = cache.find_timeout_renderer(scene.view(0));
    cache.add_timeout_renderers({scene.view(1), scene.view(0)});
    cache.add_timeout_renderer(scene.view(0));
    EXPECT_EQ(cache.find_timeout_renderer(scene.view(0)), first);
    EXPECT_EQ(cache.size(), 2);
    scene.delete_view(0);
    EXPECT_EQ(cache.size(), 1);
    EXPECT_NE(cache.find_timeout_renderer(scene.view(1)), nullptr);
}

TEST(grTimeoutRendererCache, adds_up_the_times_of_views_when_all_are_known)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grTimeoutRendererCache cache(16);
    double seconds = 5;
    EXPECT_EQ(cache.find_full_refresh_time({}, seconds), 1);
    EXPECT_EQ(seconds, 0);
    cache.add_timeout_renderer_and_time(scene.view(0), 2);
    EXPECT_EQ(cache.find_full_refresh_time({scene.view(0), scene.view(1)}, seconds), 0) << "not cached";
    cache.add_timeout_renderer(scene.view(1));
    EXPECT_EQ(cache.find_full_refresh_time({scene.view(0), scene.view(1)}, seconds), 0) << "not known";
    cache.add_timeout_renderer_and_time(scene.view(1), 3);
    EXPECT_EQ(cache.find_full_refresh_time({scene.view(0), scene.view(1)}, seconds), 1);
    EXPECT_EQ(seconds, 5);
    cache.reset_all();
    EXPECT_EQ(cache.find_full_refresh_time({scene.view(0)}, seconds), 0);
}

TEST(grTimeoutRendererCache, evicts_views_unused_for_more_than_ten_twiddles_down_to_the_capacity)
{
    tsScene scene;
    for (int i = 0; i < 6; ++i)
        scene.add_view();
    grTimeoutRendererCache cache(2);
    cache.add_timeout_renderers({scene.view(0), scene.view(1), scene.view(2), scene.view(3)});
    EXPECT_EQ(cache.size(), 4) << "those in use stay, above the capacity";
    for (int i = 0; i < 10; ++i)
        cache.add_timeout_renderers({scene.view(4)});
    EXPECT_EQ(cache.size(), 5) << "ten generations old is kept";
    cache.add_timeout_renderers({scene.view(4)});
    EXPECT_EQ(cache.size(), 2) << "the first ones go, and no more than must";
    EXPECT_EQ(cache.find_timeout_renderer(scene.view(2)), nullptr);
    EXPECT_NE(cache.find_timeout_renderer(scene.view(3)), nullptr);
    // An evicted view may go, and come back, in the middle of its twiddle too.
    grViewRefresherTimeout refresher({scene.view(1)}, &cache, 1, 1, 1, 1);
    refresher.base_start_twiddle();
    for (int i = 0; i < 12; ++i)
        cache.add_timeout_renderers({scene.view(4), scene.view(5)});
    EXPECT_EQ(cache.find_timeout_renderer(scene.view(1)), nullptr);
    scene.delete_view(0);
    refresher.base_refresh();
    EXPECT_NE(cache.find_timeout_renderer(scene.view(1)), nullptr);
}

TEST(grTimeoutRendererCache, tells_new_renderers_how_much_to_remember)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grTimeoutRendererCache cache(16);
    cache.add_timeout_renderer(scene.view(0));
    cache.record_refresh_stats(3);
    cache.add_timeout_renderer(scene.view(1));
    EXPECT_EQ(cache.find_timeout_renderer(scene.view(0))->twiddle_refresh_stats(), nullptr);
    EXPECT_NE(cache.find_timeout_renderer(scene.view(1))->twiddle_refresh_stats(), nullptr);
}
