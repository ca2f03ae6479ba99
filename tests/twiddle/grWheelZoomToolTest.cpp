#include "grMouseWheelZoomTool.h"
#include "grPanCentreTool.h"
#include "grPanTool.h"
#include "grZoomTool.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

namespace
{
// Wheel settings for one test, the defaults before and after it, and a time long after every other test's twiddle,
// which would hold the wheel back.
class WheelResources
{
public:
    explicit WheelResources(std::initializer_list<std::pair<const char*, const char*>> resources = {})
    {
        for (const auto& [key, value] : resources)
            the_db.set_resource(key, value);
        grMouseWheelZoomTool::reread_resources(&the_db);
    }
    ~WheelResources() { grMouseWheelZoomTool::reread_resources(nullptr); }

private:
    gwResourceDB the_db;
    apClockOverride the_clock{1e9};
};

class DerivedZoomTool : public grZoomTool
{
public:
    using grZoomTool::grZoomTool;
    UT_DECLARE_TYPE(DerivedZoomTool, grTwiddleTool);
};
UT_DEFINE_TYPE(DerivedZoomTool, grZoomTool);

// The factor of one wheel step at (100, 50) on the height of the view window.
double factor(double delta, int modifiers = 0)
{
    tsToolScene scene;
    scene.bind<grMouseWheelZoomTool>();
    const double start = scene.camera().view_window().height();
    scene.wheel(100, 50, delta, modifiers);
    return scene.camera().view_window().height() / start;
}

// One twiddle with a tool, then a wheel step a while later; 1 when the step zoomed.
template <class Tool>
int zooms_after(apClockOverride& clock, double seconds, tsToolScene& scene)
{
    scene.bind<Tool>();
    scene.press(50, 50);
    scene.release(50, 50);
    scene.bind<grMouseWheelZoomTool>();
    clock.advance(seconds);
    const giBox2 before = scene.camera().view_window();
    scene.wheel(100, 50, 1);
    return !(scene.camera().view_window() == before);
}

template <class Tool>
int zooms_after(double seconds)
{
    apClockOverride clock(100);
    tsToolScene scene;
    return zooms_after<Tool>(clock, seconds, scene);
}
}

TEST(grMouseWheelZoomTool, zooms_by_one_step_whatever_the_travel)
{
    const WheelResources defaults;
    EXPECT_NEAR(factor(1), 0.9, 1e-12);
    EXPECT_NEAR(factor(1, gwMODIFIER_CONTROL), 0.18, 1e-12);
    EXPECT_NEAR(factor(-1), 1.1, 1e-12);
    EXPECT_NEAR(factor(-1, gwMODIFIER_CONTROL), 5.5, 1e-12);
    EXPECT_NEAR(factor(3), 0.9, 1e-12) << "only the sign counts";
    EXPECT_NEAR(factor(1, gwMODIFIER_CONTROL | gwMODIFIER_ALT), 0.18, 1e-12) << "other modifiers may be held";
    EXPECT_NEAR(factor(1, gwMODIFIER_SHIFT), 0.9, 1e-12);
    EXPECT_EQ(factor(0.0009), 1);
    EXPECT_NEAR(factor(0.001), 0.9, 1e-12);
}

TEST(grMouseWheelZoomTool, follows_its_resources)
{
    {
        const WheelResources resources{{"mouse_wheel_zoom_increment", "0.25"},
                                       {"mouse_wheel_zoom_ctl_multiplier", "2"}};
        EXPECT_NEAR(factor(1), 0.75, 1e-12);
        EXPECT_NEAR(factor(1, gwMODIFIER_CONTROL), 0.375, 1e-12);
        EXPECT_NEAR(factor(-1, gwMODIFIER_CONTROL), 2.5, 1e-12);
    }
    {
        const WheelResources resources{{"invert_zoom", "1"}};
        EXPECT_NEAR(factor(1), 1.1, 1e-12);
        EXPECT_NEAR(factor(-1), 0.9, 1e-12);
    }
    {
        const WheelResources resources{{"mouse_wheel_zoom_disable", "yes"}};
        EXPECT_EQ(factor(1), 1);
    }
    {
        const WheelResources unusable{{"mouse_wheel_zoom_increment", "1"}, {"mouse_wheel_zoom_ctl_multiplier", "0"}};
        EXPECT_NEAR(factor(1, gwMODIFIER_CONTROL), 0.18, 1e-12) << "a view window must keep a size";
    }
}

TEST(grMouseWheelZoomTool, takes_new_resources_only_when_told_to)
{
    const WheelResources defaults;
    tsToolScene scene;
    scene.the_resources.set_resource("mouse_wheel_zoom_disable", "yes");
    scene.bind<grMouseWheelZoomTool>();
    const giBox2 start = scene.camera().view_window();
    scene.wheel(100, 50, 1);
    EXPECT_NE(scene.camera().view_window(), start);

    const giBox2 zoomed = scene.camera().view_window();
    grMouseWheelZoomTool::reread_resources(&scene.the_resources);
    scene.wheel(100, 50, 1);
    EXPECT_EQ(scene.camera().view_window(), zoomed);
}

TEST(grMouseWheelZoomTool, keeps_the_point_under_the_pointer_or_the_middle)
{
    const giPoint2 pointer(100.5, 49); // of an event at (100, 50)
    const giPoint2 middle(tsToolScene::middle_x, tsToolScene::middle_y);
    const struct
    {
        const char* name;
        const char* about_middle;
        const char* out_about_middle;
        const char* inverted;
        int pan_forbidden;
        double delta;
        giPoint2 fixed;
    } cases[] = {
        {"middle", "yes", "no", "no", 0, 1, middle},
        {"pointer", "no", "no", "no", 0, 1, pointer},
        {"pointer, out", "no", "no", "no", 0, -1, pointer},
        {"in about the pointer", "no", "yes", "no", 0, 1, pointer},
        {"out about the middle", "no", "yes", "no", 0, -1, middle},
        {"inverted, turned in is out", "no", "yes", "yes", 0, 1, middle},
        {"inverted, turned out is in", "no", "yes", "yes", 0, -1, pointer},
        {"view that forbids panning", "no", "no", "no", 1, 1, middle},
    };
    for (const auto& c : cases)
    {
        const WheelResources resources{{"mouse_wheel_zoom_centre", c.about_middle},
                                       {"mouse_wheel_zoom_out_centre", c.out_about_middle},
                                       {"invert_zoom", c.inverted}};
        tsToolScene scene;
        scene.view()->pan_forbidden(c.pan_forbidden);
        scene.bind<grMouseWheelZoomTool>();
        const giPoint3 fixed = scene.world(c.fixed);
        const giBox2 start = scene.camera().view_window();
        scene.wheel(100, 50, c.delta);
        EXPECT_TRUE(scene.device(fixed).coincident(c.fixed, 1e-9)) << c.name << ": went to " << scene.device(fixed);
        EXPECT_NE(scene.camera().view_window(), start) << c.name;
    }
}

TEST(grMouseWheelZoomTool, ignores_a_step_too_soon_after_zooming_or_centring)
{
    const WheelResources resources{{"mouse_wheel_delay", "0.25"}};
    EXPECT_EQ(zooms_after<grZoomTool>(0.25), 0) << "exactly at the delay";
    EXPECT_EQ(zooms_after<grZoomTool>(0.25 + 1.0 / 1024), 1);
    EXPECT_EQ(zooms_after<grPanCentreTool>(0.125), 0);
    EXPECT_EQ(zooms_after<grPanTool>(0), 1) << "other tools do not hold it back";
    EXPECT_EQ(zooms_after<DerivedZoomTool>(0), 1) << "nor do tools of a derived class";
    EXPECT_EQ(zooms_after<grMouseWheelZoomTool>(0), 1) << "nor does the wheel itself";
}

TEST(grMouseWheelZoomTool, is_held_back_for_one_step_only)
{
    // The ignored step ends as a twiddle of its own, so the wheel tool is then the last one.
    const WheelResources defaults;
    apClockOverride clock(100);
    tsToolScene scene;
    EXPECT_EQ(zooms_after<grZoomTool>(clock, 0.001, scene), 0);
    const giBox2 before = scene.camera().view_window();
    clock.advance(0.001);
    scene.wheel(100, 50, 1);
    EXPECT_NE(scene.camera().view_window(), before);
}

TEST(grMouseWheelZoomTool, lives_for_one_event_and_tells_the_hooks_before_it_asks_them)
{
    const WheelResources defaults;
    tsToolScene scene;
    scene.the_hooks.the_detail_logged = 1;
    scene.bind<grMouseWheelZoomTool>();
    scene.wheel(100, 50, 1);
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "detail", "start refresher", "refresh", "final frame", "end refresher",
                                        "end", "destruction"}));
    EXPECT_EQ(scene.the_man.current_tool(), nullptr);

    scene.wheel(100, 50, 0);
    EXPECT_EQ(scene.taken_log(),
              (tsLog{"start", "detail", "start refresher", "final frame", "end refresher", "end", "destruction"}))
        << "nothing to draw";
    scene.wheel(1000, 50, 1);
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "destruction"})) << "no view under the pointer";
    const WheelResources disabled{{"mouse_wheel_zoom_disable", "1"}};
    scene.wheel(100, 50, 1);
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "destruction"}));
}
