#include "grCameraViewCache.h"
#include "grCameraViewCacheMan.h"
#include "grIsometricTool.h"
#include "grMouseWheelZoomTool.h"
#include "grMoveFrontBackTool.h"
#include "grPanCentreTool.h"
#include "grPanTool.h"
#include "grResetFrontBackTool.h"
#include "grResetTool.h"
#include "grRotateViewTool.h"
#include "grSpaceballTool.h"
#include "grToggleDepthCueingTool.h"
#include "grTrackballTool.h"
#include "grZoomTool.h"
#include "gwSpaceballEvent.h"
#include "tsToolScene.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

// What all view tools have in common, whatever happens to the view while they live.
namespace
{
constexpr double interval = 1.0 / 64; // seconds between mouse events

template <class... Tools>
struct ToolList
{
    template <class Function>
    static void each(Function function)
    {
        (function.template operator()<Tools>(), ...);
    }
};
using RotationTools = ToolList<grTrackballTool, grRotateViewTool>;
using AllTools =
    ToolList<grTrackballTool, grRotateViewTool, grSpaceballTool, grZoomTool, grPanTool, grPanCentreTool,
             grMoveFrontBackTool, grResetTool, grResetFrontBackTool, grIsometricTool, grToggleDepthCueingTool>;
using SavingTools = ToolList<grTrackballTool, grRotateViewTool, grZoomTool, grPanTool, grPanCentreTool, grResetTool,
                             grResetFrontBackTool, grIsometricTool>;
using OtherTools = ToolList<grSpaceballTool, grMoveFrontBackTool, grToggleDepthCueingTool>;

template <class Tool>
const char* name()
{
    return Tool::ut_static_type().name();
}

// Closes the view of a scene when it is told of the start.
class ClosingHooks : public grStdTwiddleHooks
{
public:
    explicit ClosingHooks(tsToolScene& scene) : the_scene(scene) {}
    void start_twiddle(grStdTwiddleTool*, const gwKeyEvent&) override { the_scene.delete_view(); }
    void end_twiddle(grStdTwiddleTool*, const gwKeyEvent&) override { ++the_ends; }
    int the_ends = 0;

private:
    tsToolScene& the_scene;
};

gwKeyEvent button(tsToolScene& scene, int x, int y, int transition)
{
    return gwKeyEvent(scene.window(), x, y, 0, transition, gwMOUSE_BUTTON, 1);
}

// The whole life of a tool, without a manager.
void live(grTwiddleTool& tool, tsToolScene& scene, apClockOverride& clock)
{
    tool.base_start_twiddle(button(scene, 50, 50, gwPRESSED));
    for (int x = 60; x < 100; x += 10)
    {
        clock.advance(interval);
        tool.base_mouse_event(gwMouseEvent(scene.window(), x, x));
        tool.base_spaceball_event(gwSpaceballEvent(scene.window(), x, x, 0, giVector3(1, 1, 1), giVector3(1, 1, 1)));
    }
    tool.base_idle_event();
    clock.advance(interval);
    tool.base_end_twiddle(button(scene, 100, 100, gwRELEASED));
    tool.base_idle_event();
    tool.base_destruction_twiddle();
}

// A camera cache for one test.
struct Caches
{
    Caches() { grStdViewTwiddleTool::initialise_cache(nullptr); }
    ~Caches() { grStdViewTwiddleTool::delete_camera_cache(); }
};
}

TEST(grViewTools, change_nothing_without_hooks)
{
    apClockOverride clock(10);
    tsToolScene scene;
    AllTools::each(
        [&]<class Tool>()
        {
            Tool tool("", nullptr, nullptr);
            live(tool, scene, clock);
            EXPECT_EQ(tool.detail(), nullptr) << name<Tool>();
        });
    grMouseWheelZoomTool wheel("", nullptr, nullptr);
    wheel.base_start_twiddle(gwKeyEvent(scene.window(), 50, 50, 0, gwPRESSED, gwMOUSE_WHEEL, 1, 1.0));
    EXPECT_EQ(scene.camera().orientation(), giXform3());
    EXPECT_EQ(scene.camera().view_window(), giBox2(-2.005, -1.005, 2.005, 1.005));
}

TEST(grViewTools, outlive_a_view_that_the_hooks_close_at_the_start)
{
    apClockOverride clock(10);
    AllTools::each(
        [&]<class Tool>()
        {
            tsToolScene scene;
            ClosingHooks hooks(scene);
            hooks.allow_spinning(1);
            Tool tool("and_pan_centre", nullptr, &hooks);
            live(tool, scene, clock);
            ASSERT_NE(tool.detail(), nullptr) << name<Tool>();
            EXPECT_EQ(tool.detail()->target_view(), nullptr) << name<Tool>();
            EXPECT_EQ(hooks.the_ends, 1) << name<Tool>();
        });
}

TEST(grViewTools, ignore_input_once_the_view_is_gone)
{
    apClockOverride clock(10);
    AllTools::each(
        [&]<class Tool>()
        {
            tsToolScene scene;
            scene.the_hooks.allow_spinning(1);
            scene.bind<Tool>();
            scene.press(50, 50);
            for (int x = 60; x < 100; x += 10)
            {
                clock.advance(interval);
                scene.move(x, x);
            }
            scene.delete_view();
            scene.taken_log();
            scene.move(110, 110);
            scene.the_input.post(gwSpaceballEvent(scene.window(), 110, 110, 0, giVector3(1, 1, 1), giVector3(1, 1, 1)));
            EXPECT_EQ(scene.taken_log(), tsLog()) << name<Tool>();
            clock.advance(interval);
            scene.release(120, 120);
            EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "end refresher", "end"})) << name<Tool>();
            EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE) << name<Tool>();
        });
}

TEST(grViewTools, stop_spinning_once_the_view_is_gone)
{
    apClockOverride clock(10);
    RotationTools::each(
        [&]<class Tool>()
        {
            tsToolScene scene;
            scene.the_hooks.allow_spinning(1);
            scene.bind<Tool>();
            scene.press(50, 50);
            for (int x = 60; x < 100; x += 10)
            {
                clock.advance(interval);
                scene.move(x, x);
            }
            clock.advance(interval);
            scene.release(100, 100);
            EXPECT_EQ(scene.the_man.idle(), grIDLE_AGAIN) << name<Tool>();
            scene.delete_view();
            scene.taken_log();
            EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE) << name<Tool>();
            EXPECT_EQ(scene.taken_log(), (tsLog{"idle refresher", "idle done"})) << name<Tool>();
        });
}

TEST(grViewTools, save_the_camera_that_they_leave)
{
    const Caches caches;
    // Number of cameras saved and whether the last one is that of the view now.
    const auto twiddled = [](tsToolScene& scene)
    {
        scene.press(50, 50);
        scene.move(60, 60);
        scene.release(60, 60);
        const grCameraViewCache& cache = *grStdViewTwiddleTool::camera_cache(scene.view());
        return std::pair(cache.count(), cache.current() && cache.current()->is_position_of(*scene.view()));
    };
    SavingTools::each(
        [&]<class Tool>()
        {
            tsToolScene scene;
            scene.bind<Tool>();
            EXPECT_EQ(twiddled(scene), std::pair(1, true)) << name<Tool>();
        });
    OtherTools::each(
        [&]<class Tool>()
        {
            tsToolScene scene;
            scene.bind<Tool>();
            EXPECT_EQ(twiddled(scene), std::pair(0, false)) << name<Tool>();
        });
}

TEST(grPanCentreTool, saves_the_camera_as_part_of_its_action)
{
    const Caches caches;
    class Refresher : public grViewRefresher
    {
    public:
        using grViewRefresher::grViewRefresher;

    protected:
        void refresh() override { views().first()->camera().zoom(0.5); }
        void end_twiddle() override {}
    };
    class Hooks : public grStdTwiddleHooks
    {
        grViewRefresher* view_refresher(const grStdTwiddleTool*, const dgViewcoDList& views) override
        {
            return new Refresher(views);
        }
    } hooks;
    tsToolScene scene;
    const double start = scene.camera().view_window().height();
    grPanCentreTool tool("", nullptr, &hooks);
    static_cast<grTwiddleTool&>(tool).base_start_twiddle(button(scene, 50, 50, gwPRESSED));
    ASSERT_EQ(scene.camera().view_window().height(), start / 2);
    const grCameraViewCache& cache = *grStdViewTwiddleTool::camera_cache(scene.view());
    ASSERT_EQ(cache.count(), 1);
    scene.camera().zoom(2);
    EXPECT_EQ(cache.current()->is_position_of(*scene.view()), 1) << "before it was drawn";
}
