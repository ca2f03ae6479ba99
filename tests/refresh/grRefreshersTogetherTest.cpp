// What a user sees of several views, bands and lists of views under the fast and the time-out refresher.

#include "grRubberBandCallback.h"
#include "grRubberBandManager.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTimingStats.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherTimeout.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{
using Log = std::vector<std::string>;

int count(const Log& log, const std::string& start)
{
    return static_cast<int>(
        std::count_if(log.begin(), log.end(), [&](const auto& line) { return line.rfind(start, 0) == 0; }));
}

// A heavy view of many elements, which either refresher draws in part.
struct Scene : tsHeavyView
{
    Scene()
    {
        const dgRef<dgStructure> root(new dgClientStructure);
        for (int i = 0; i < 100; ++i)
            root->add(tsLine(1000)->element(0)->copy());
        view().root(root.get());
        window().cost_per_feature(1e-4); // 10 s in all
    }
    std::unique_ptr<grViewRefresher> refresher(int fast, const dgViewcoDList& views)
    {
        if (fast)
            return std::make_unique<grViewRefresherFast>(views);
        return std::make_unique<grViewRefresherTimeout>(views, &cache, 1, 1, 1, 1);
    }
    // The frames after which either is thinned.
    static void thin(grViewRefresher& refresher)
    {
        refresher.base_start_twiddle();
        for (int i = 0; i < 3; ++i)
            refresher.base_refresh();
    }
    // Idle calls until one says that it was the last.
    static void idle(grViewRefresher& refresher)
    {
        for (int i = 0; i < 1000 && refresher.base_idle() != grIDLE_DONE; ++i)
            ;
    }
    grTimeoutRendererCache cache{16};
};
}

TEST(grViewRefresher, idle_drawing_of_a_view_leaves_those_on_top_of_it_alone)
{
    const struct
    {
        const char* name;
        giBox2 inset;
        Log clips;
        int hidden = 0;
        grViewBackground background = grVIEW_BACKGROUND_OPAQUE;
    } cases[] = {
        {"inside", {20, 30, 39, 49}, {"clip 0 0 99 29", "clip 0 30 19 49", "clip 40 30 99 49", "clip 0 50 99 99"}},
        {"in a corner", {80, 80, 99, 99}, {"clip 0 0 99 79", "clip 0 80 79 99"}},
        {"hidden", {80, 80, 99, 99}, {"clip 0 0 99 79", "clip 0 80 79 99"}, 1},
        {"transparent", {80, 80, 99, 99}, {"clip 0 0 99 79", "clip 0 80 79 99"}, 0, grVIEW_BACKGROUND_TRANSPARENT},
        {"hidden and transparent", {80, 80, 99, 99}, {}, 1, grVIEW_BACKGROUND_TRANSPARENT},
        {"beside", {100, 0, 120, 99}, {}},
        {"all over it", {0, 0, 99, 99}, {}},
    };
    for (const int fast : {1, 0})
    {
        for (const auto& c : cases)
        {
            Scene scene;
            scene.scene.add_view();
            scene.scene.view(1)->camera().view_port_dc(c.inset);
            grView companion(scene.scene.view(1));
            companion.hidden(c.hidden);
            companion.background(c.background);
            const auto refresher = scene.refresher(fast, {&scene.view()});
            Scene::thin(*refresher);
            scene.scene.take_log();
            const long long drawn = scene.drawn([&] { Scene::idle(*refresher); });
            const Log log = scene.scene.take_log();
            for (const std::string& clip : c.clips)
                EXPECT_GT(count(log, clip), 0) << c.name << ' ' << clip;
            EXPECT_EQ(count(log, "clip") > 0, !c.clips.empty()) << c.name;
            EXPECT_EQ(drawn == 0, std::string(c.name) == "all over it") << c.name;
            if (!c.clips.empty())
            {
                // Every part gets everything that the frame left out, fast ones all there is.
                EXPECT_EQ(drawn % static_cast<long long>(c.clips.size()), 0) << c.name;
                EXPECT_GE(drawn, static_cast<long long>(c.clips.size()) * 80000) << c.name;
            }
        }
    }
}

TEST(grViewRefresher, idle_calls_touch_rubber_bands_only_when_they_draw)
{
    for (const int fast : {1, 0})
    {
        Scene scene;
        const grRubberBandManager manager;
        int drawings = 0;
        const auto draw = [](grRubberBandItem* item, grRubberBandIt) { ++*static_cast<int*>(item->user_data()); };
        const dgRef<grRubberBandCallback> item(new grRubberBandCallback(&scene.scene.renderer(), draw, &drawings));
        grRubberBandManager::add(item.get());
        const auto refresher = scene.refresher(fast, {&scene.view()});
        Scene::thin(*refresher);
        grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
        drawings = 0;
        refresher->base_idle();
        EXPECT_EQ(drawings, 2) << "off and back";
        Scene::idle(*refresher);
        drawings = 0;
        for (int i = 0; i < 3; ++i)
            refresher->base_idle();
        EXPECT_EQ(drawings, 0);
        grRubberBandManager::remove(item.get());
    }
}

TEST(grViewRefresherTimeout, views_that_draw_nothing_do_not_keep_it_from_full_drawing)
{
    const dgRef<dgStructure> empty(new dgClientStructure);
    const std::vector<std::function<void(tsScene&, grView&)>> cases = {
        [](tsScene&, grView& companion) { companion.hidden(1); },
        [](tsScene& scene, grView&) { scene.view(1)->root(nullptr); },
        [&](tsScene& scene, grView&) { scene.view(1)->root(empty.get()); },
    };
    for (const auto& make : cases)
    {
        Scene scene;
        scene.window().cost_per_feature(1e-6); // a tenth of a second
        scene.scene.add_view();
        grView companion(scene.scene.view(1));
        make(scene.scene, companion);
        grViewRefresherTimeout refresher({scene.scene.view(0), scene.scene.view(1)}, &scene.cache, 1, 1, 1, 1);
        Scene::thin(refresher);
        EXPECT_EQ(refresher.use_full_refresh(), 1);
    }
}

TEST(grViewRefresherTimeout, records_how_long_full_drawing_takes_and_forgets_it_with_an_edit)
{
    Scene scene;
    scene.cache.record_refresh_stats(4);
    {
        grViewRefresherTimeout refresher({&scene.view()}, &scene.cache, 1, 1, 1, 1);
        refresher.base_start_twiddle();
        refresher.base_end_twiddle();
    }
    grTimeoutRenderer& timeout = *scene.cache.find_timeout_renderer(&scene.view());
    EXPECT_NEAR(timeout.full_refresh_time(), 10, 1e-9);
    EXPECT_EQ(timeout.got_full_refresh_time(), 1);
    scene.view().root()->delete_range(1, 99);
    timeout.get_ready(1, 1, 1, 1);
    EXPECT_EQ(timeout.got_full_refresh_time(), 0);
}

TEST(grViewRefresherTimeout, calls_the_overlay_callback_while_it_moves_and_takes_the_stand_in_box_off)
{
    static int calls;
    calls = 0;
    grTwiddleOverlayCallback::register_callback([](dgView&) { ++calls; });
    tsHeavyView scene(100000, 10); // one element, which never fits the frame
    grTimeoutRendererCache cache(16);
    grViewRefresherTimeout refresher({&scene.view()}, &cache, 1, 1, 1, 1);
    Scene::thin(refresher);
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(calls, 3);
    Log log = scene.scene.take_log();
    EXPECT_EQ(count(log, "draw_segments 12"), 1);
    refresher.base_idle();
    log = scene.scene.take_log();
    EXPECT_EQ(count(log, "clear 0 0 99 99 colour depth"), 1) << "the box goes";
    EXPECT_EQ(count(log, "draw lines 100000"), 1);
}

TEST(grViewRefresherTimeout, full_drawing_follows_a_view_to_another_renderer)
{
    Scene scene;
    scene.window().cost_per_feature(1e-6);
    scene.scene.add_window();
    scene.scene.add_view(1);
    const grRubberBandManager manager;
    const auto draw = [](grRubberBandItem* item, grRubberBandIt) { ++*static_cast<int*>(item->user_data()); };
    int drawings = 0;
    grViewRefresherTimeout refresher({&scene.view()}, &scene.cache, 1, 1, 1, 1);
    refresher.force_redraw_on_end_twiddle();
    Scene::thin(refresher);
    EXPECT_EQ(refresher.use_full_refresh(), 1);
    dgRenderer& other = *scene.scene.view(1)->renderer();
    scene.view().renderer(&other);
    const dgRef<grRubberBandCallback> item(new grRubberBandCallback(&other, draw, &drawings));
    grRubberBandManager::add(item.get());
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    drawings = 0;
    refresher.base_end_twiddle();
    EXPECT_EQ(drawings, 2) << "off before the drawing and back after it";
    grRubberBandManager::remove(item.get());
    scene.view().renderer(&scene.scene.renderer());
}
