#include "grTimeoutRendererCache.h"
#include "grTwiddleOverlayCallback.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Every refresher bears an overlay callback that destroys the very view that is drawn, and others with it.
namespace
{
tsScene* the_scene = nullptr;

void destroy_even_views(dgView& view)
{
    if (&view != the_scene->view(2))
        return;
    for (int i = 0; i < the_scene->n_views(); i += 2)
        the_scene->delete_view(i);
}

int the_drawings = 0;

// Destroys view 0 when view 2 has been drawn.
void count_and_destroy_first(dgView& view)
{
    ++the_drawings;
    if (&view == the_scene->view(2))
        the_scene->delete_view(0);
}

// While it lives the callback is in force.
struct Destroying
{
    explicit Destroying(tsScene& scene, void (*callback)(dgView&) = &destroy_even_views)
    {
        the_scene = &scene;
        grTwiddleOverlayCallback::register_callback(callback);
    }
    ~Destroying() { grTwiddleOverlayCallback::register_callback(nullptr); }
};

using Maker = std::function<std::unique_ptr<grViewRefresher>(const dgViewcoDList&)>;

struct Refreshers : testing::Test
{
    grTimeoutRendererCache cache{16};
    const Maker makers[3] = {
        [](const dgViewcoDList& views) { return std::make_unique<grViewRefresherFull>(views); },
        [](const dgViewcoDList& views) { return std::make_unique<grViewRefresherFast>(views); },
        [this](const dgViewcoDList& views)
        { return std::make_unique<grViewRefresherTimeout>(views, &cache, 10.0, 1, 1, 1); },
    };
};

int swaps(tsScene& scene)
{
    const std::vector<std::string> log = scene.take_log();
    return static_cast<int>(std::count(log.begin(), log.end(), "swap_buffers 0"));
}
}

TEST_F(Refreshers, go_on_when_the_overlay_callback_destroys_the_view_being_drawn)
{
    for (const Maker& make : makers)
    {
        tsScene scene;
        for (int i = 0; i < 4; ++i)
            scene.add_view();
        const auto refresher = make({scene.view(0), scene.view(1), scene.view(3), scene.view(2)});
        const char* name = refresher->ut_dynamic_type().name();
        const dgRef<dgStructure> icon = tsLine(10);
        refresher->set_twiddle_icon(icon.get(), scene.view(2));
        refresher->base_start_twiddle();
        {
            const Destroying destroying(scene);
            refresher->base_refresh();
            refresher->base_refresh();
            refresher->base_idle_refresh();
        }
        refresher->base_refresh();
        refresher->base_idle();
        refresher->base_end_twiddle();
        EXPECT_GT(swaps(scene), 0) << name;
        EXPECT_EQ(refresher->views(), (dgViewcoDList{scene.view(1), scene.view(3)})) << name;
    }
}

TEST_F(Refreshers, go_on_when_views_are_destroyed_in_the_last_redraw)
{
    for (const Maker& make : makers)
    {
        // The last redraw shows the other views of the window too, from a list of its own.
        tsScene scene;
        for (int i = 0; i < 4; ++i)
            scene.add_view();
        const auto refresher = make({scene.view(1), scene.view(2)});
        refresher->force_redraw_on_end_twiddle();
        refresher->base_start_twiddle();
        refresher->base_refresh();
        scene.take_log();
        {
            const Destroying destroying(scene);
            refresher->base_end_twiddle();
        }
        const char* name = refresher->ut_dynamic_type().name();
        EXPECT_EQ(swaps(scene), 1) << name;
        EXPECT_EQ(refresher->views(), dgViewcoDList{scene.view(1)}) << name;
    }
}

TEST_F(Refreshers, draw_no_view_twice_when_another_is_destroyed)
{
    for (const Maker& make : {makers[0], makers[1]})
    {
        tsScene scene;
        for (int i = 0; i < 3; ++i)
            scene.add_view();
        const auto refresher = make({scene.view(0), scene.view(1), scene.view(2)});
        refresher->base_start_twiddle();
        the_drawings = 0;
        const Destroying destroying(scene, &count_and_destroy_first);
        refresher->base_refresh();
        const char* name = refresher->ut_dynamic_type().name();
        EXPECT_EQ(the_drawings, 2) << name;
        EXPECT_EQ(swaps(scene), 1) << name;
    }
}
