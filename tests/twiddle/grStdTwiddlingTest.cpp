#include "grStdTwiddling.h"

#include "grIsometricTool.h"
#include "grPanTool.h"
#include "grStdTwiddleHooks.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTwiddleMan.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwResourceDB.h"
#include "tsScene.h"

#include <gtest/gtest.h>

namespace
{
tsSetting<double> keep_minimum_framerate()
{
    return tsSetting<double>(grViewRendererFast::minimum_framerate(),
                             [](double rate) { grViewRendererFast::minimum_framerate(rate); });
}
}

TEST(grStdTwiddling, without_translations_no_event_starts_a_tool)
{
    gwInput input;
    gwResourceDB db;
    for (const gwResourceDB* resources :
         {static_cast<const gwResourceDB*>(&db), static_cast<const gwResourceDB*>(nullptr)})
    {
        const grStdTwiddling twiddling(&input, resources, nullptr, nullptr);
        input.post(gwKeyEvent(nullptr, 0, 0, 0, gwPRESSED, gwMOUSE_WHEEL, 1, 1.0));
        EXPECT_EQ(twiddling.twiddle_man()->current_tool(), nullptr);
        EXPECT_EQ(twiddling.twiddle_man()->actions().count(), 0) << "not even what the code adds";
    }
    db.set_resource("translations", "");
    EXPECT_EQ(grStdTwiddling(&input, &db, nullptr, nullptr).twiddle_man()->actions().count(), 3);
}

TEST(grStdTwiddlingDeathTest, a_static_one_goes_at_the_exit_in_the_middle_of_a_drag)
{
    EXPECT_EXIT(
        {
            static tsScene scene;
            static gwInput input;
            static gwResourceDB db;
            db.set_resource("translations", "mouse_button 1 : trackball");
            static const grStdTwiddling twiddling(&input, &db, nullptr, nullptr);
            scene.add_view();
            input.post(gwKeyEvent(&scene.input_window(), 50, 50, 0, gwPRESSED, gwMOUSE_BUTTON, 1));
            std::exit(twiddling.twiddle_man()->current_tool() ? 3 : 4);
        },
        testing::ExitedWithCode(3), "");
}

TEST(grStdTwiddling, tells_of_faults_in_the_text)
{
    gwInput input;
    gwResourceDB db;
    std::string told;
    grStdTwiddling::fault_callback([&](const std::string& fault) { told = fault; });
    db.set_resource("translations", "mouse_button 1 : pan mouse_button 2 : pam");
    grStdTwiddling twiddling(&input, &db, nullptr, nullptr);
    EXPECT_EQ(told, "line 1, column 39: there is no tool 'pam'");
    EXPECT_EQ(twiddling.fault(), told);
    EXPECT_EQ(twiddling.twiddle_man()->actions().count(), 4);
    db.set_resource("translations", "mouse_button 2 : pan");
    twiddling.change_translation_actions("translations", &db);
    EXPECT_EQ(twiddling.fault(), "");
    grStdTwiddling::fault_callback(nullptr);
}

TEST(grMouseWheelZoomToolDeathTest, the_first_resources_of_the_process_are_read_and_stay)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe"; // in a process of its own
    EXPECT_EXIT(
        {
            tsScene scene;
            const dgCamera& camera = scene.add_view()->camera();
            const double height = camera.view_window().height();
            gwInput input;
            for (const char* increment : {"0.5", "0.75"})
            {
                gwResourceDB db;
                db.set_resource("translations", "");
                db.set_resource("mouse_wheel_zoom_increment", increment);
                const grStdTwiddling twiddling(&input, &db, nullptr, nullptr);
                input.post(gwKeyEvent(&scene.input_window(), 50, 50, 0, gwPRESSED, gwMOUSE_WHEEL, 1, 1));
            }
            std::exit(std::lround(height / camera.view_window().height()));
        },
        testing::ExitedWithCode(4), ""); // halved twice
}

TEST(grStdTwiddling, frame_rate_is_read_only_for_hooks_of_its_own)
{
    const auto guard = keep_minimum_framerate();
    grViewRendererFast::minimum_framerate(2.0);
    gwInput input;
    gwResourceDB db;
    db.set_resource("framerate", "12.5");
    db.set_resource("disable_refresher_fast", "true");
    grStdTwiddleHooks hooks(&db);
    const grStdTwiddling with_hooks(&input, &db, &hooks, nullptr);
    EXPECT_EQ(with_hooks.hooks(), &hooks);
    EXPECT_EQ(hooks.get_timeout_twiddling_flag(), 0);
    EXPECT_EQ(grViewRendererFast::minimum_framerate(), 2.0);
    hooks.use_refresher_fast(1);
    EXPECT_EQ(hooks.use_refresher_fast(), 0);

    const grStdTwiddling own_hooks(&input, &db, nullptr, nullptr);
    EXPECT_EQ(own_hooks.hooks()->get_timeout_twiddling_flag(), 1);
    EXPECT_EQ(grViewRendererFast::minimum_framerate(), 12.5);
    own_hooks.hooks()->disable_timeout_twiddling();
    EXPECT_EQ(own_hooks.hooks()->get_timeout_twiddling_flag(), 0);
    EXPECT_EQ(own_hooks.hooks()->get_timeout_twiddling(), 12.5) << "the rate stays where it was";
    own_hooks.hooks()->use_refresher_fast(1);
    EXPECT_EQ(own_hooks.hooks()->use_refresher_fast(), 1) << "hooks of its own get no resources";
    for (const char* rate : {"0", "-3", "fast"})
    {
        db.set_resource("framerate", rate);
        EXPECT_EQ(grStdTwiddling(&input, &db, nullptr, nullptr).hooks()->get_timeout_twiddling_flag(), 0) << rate;
    }
}

TEST(grStdTwiddleHooks, hand_their_settings_and_cache_to_refreshers)
{
    tsScene scene;
    scene.add_view();
    const auto guard = keep_minimum_framerate();
    grStdTwiddleHooks hooks;
    const grPanTool pan("", nullptr, &hooks);
    hooks.use_refresher_fast(1);
    for (const int wanted : {0, 4})
    {
        hooks.record_refresh_stats(wanted);
        const std::unique_ptr<grViewRefresher> refresher(hooks.view_refresher(nullptr, {scene.view(0)}));
        refresher->base_refresh();
        EXPECT_EQ(hooks.timeout_renderer_cache().size(), wanted ? 1 : 0) << "frame times are recorded when asked for";
    }
    hooks.enable_timeout_twiddling(10);
    hooks.allow_full_refresh(0);
    const std::unique_ptr<grViewRefresher> refresher(hooks.view_refresher(&pan, {scene.view(0)}));
    EXPECT_EQ(static_cast<grViewRefresherTimeout&>(*refresher).allow_full_refresh(), 0);
    EXPECT_NE(hooks.timeout_renderer_cache().find_timeout_renderer(scene.view(0)), nullptr);
}
