#include "grViewIndexTool.h"
#include "grCameraInterpolation.h"
#include "grCameraViewCache.h"
#include "grMultiViewIndexTool.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double pi = std::numbers::pi;

// A scene with three saved cameras: at the start, zoomed by 4 and turned by 90 degrees about z, and moved.
class IndexScene : public tsToolScene
{
public:
    IndexScene()
    {
        grStdViewTwiddleTool::initialise_cache(nullptr);
        save();
        camera().zoom(0.25);
        camera().orientation(giXform3::rotation(giAngle(pi / 2), gi_Z_AXIS));
        camera().front_back_plane(3, -5);
        view()->user_clip_planes(1);
        save();
        camera().view_window(giBox2(1, 1, 2, 1.5));
        view()->user_clip_planes(0);
        save();
    }
    ~IndexScene() { grStdViewTwiddleTool::delete_camera_cache(); }
    void save() { cache().push(*view()); }
    grCameraViewCache& cache() { return *grStdViewTwiddleTool::camera_cache(view()); }
    void click()
    {
        press(50, 50);
        release(50, 50);
    }
    apClockOverride clock{100};
};
}

TEST(grViewIndexTool, glides_to_the_saved_camera_by_the_clock)
{
    IndexScene scene;
    const grSavedCameraPosition third(*scene.view());
    scene.bind<grViewIndexTool>("previous");
    scene.click();
    EXPECT_EQ(third.is_position_of(*scene.view()), 1) << "the way has only begun";
    scene.clock.advance(0.2);
    EXPECT_EQ(scene.the_man.idle(), grIDLE_AGAIN);
    const giPoint2 half_way = scene.camera().view_window().middle();
    EXPECT_NEAR(half_way.x(), 0.75, 1e-12) << "from 1.5 to 0";
    EXPECT_NEAR(half_way.y(), 0.625, 1e-12);
    scene.clock.advance(0.05);
    scene.the_man.idle();
    // Five eighths of the time are 0.68359375 of the way: u u (3 - 2 u).
    EXPECT_NEAR(scene.camera().view_window().middle().x(), 1.5 * (1 - 0.68359375), 1e-12);
    scene.clock.advance(1);
    scene.the_man.idle();
    EXPECT_EQ(scene.cache().current()->is_position_of(*scene.view()), 1) << "exactly there, planes and all";
    EXPECT_EQ(scene.view()->user_clip_planes(), 1);
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
    EXPECT_EQ(scene.cache().count(), 3) << "nothing is saved on the way";
}

TEST(grViewIndexTool, steps_on_when_it_is_pressed_on_the_way_and_stops_at_the_ends)
{
    IndexScene scene;
    scene.bind<grViewIndexTool>("previous");
    scene.click();
    scene.click();
    EXPECT_EQ(scene.cache().position(), 0);
    scene.clock.advance(0.2);
    scene.the_man.idle();
    // Half of the way of a quarter turn and a factor of 4, from the second camera: where the first press would have
    // led.
    const giVector3 x = scene.camera().orientation().transform(giVector3(1, 0, 0));
    EXPECT_NEAR(std::atan2(x.y(), x.x()), pi / 4, 1e-12);
    EXPECT_NEAR(scene.camera().view_window().width(), 4.01 * 0.5, 1e-12);
    EXPECT_NEAR(scene.camera().front_plane(), (3 + 1) / 2.0, 1e-12);
    scene.click();
    EXPECT_EQ(scene.cache().position(), 0);
    EXPECT_EQ(scene.cache().current()->is_position_of(*scene.view()), 1) << "brought to the end by the press";

    scene.bind<grViewIndexTool>("next");
    scene.click();
    scene.clock.advance(1);
    scene.the_man.idle();
    EXPECT_EQ(scene.cache().position(), 1);
    EXPECT_EQ(scene.cache().current()->is_position_of(*scene.view()), 1);
}

TEST(grViewIndexTool, keeps_a_change_that_no_tool_has_saved)
{
    IndexScene scene;
    scene.the_resources.set_resource("view_index_seconds", "0");
    const grSavedCameraPosition third(*scene.view());
    scene.camera().zoom(0.5);
    const grSavedCameraPosition changed(*scene.view());
    scene.bind<grViewIndexTool>("previous");
    scene.click();
    EXPECT_EQ(third.is_position_of(*scene.view()), 1);
    scene.bind<grViewIndexTool>("next");
    scene.click();
    EXPECT_EQ(changed.is_position_of(*scene.view()), 1);
}

TEST(grViewIndexTool, does_not_take_planes_fitted_by_a_drawing_for_a_change)
{
    IndexScene scene;
    scene.camera().front_back_plane(8, -8);
    scene.bind<grViewIndexTool>("previous");
    scene.click();
    EXPECT_EQ(scene.cache().count(), 3);
    EXPECT_EQ(scene.cache().position(), 1);
}

TEST(grViewIndexTool, survives_the_view_that_it_moves)
{
    IndexScene scene;
    scene.bind<grViewIndexTool>("previous");
    scene.click();
    scene.delete_view();
    scene.clock.advance(0.2);
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
    scene.the_man.delete_current_tool();
    EXPECT_EQ(scene.the_man.current_tool(), nullptr);
}

TEST(grMultiViewIndexTool, moves_each_view_through_its_own_cameras)
{
    IndexScene scene;
    dgView* other = scene.the_scene.add_view(1, giBox2(0, 0, 9, 9));
    dgView* without = scene.the_scene.add_view(1, giBox2(10, 0, 19, 9));
    scene.the_hooks.the_grouped_views = {other, without};
    const giBox2 first(0, 0, 1, 1), second(3, 3, 4, 4);
    for (const giBox2& window : {first, second})
    {
        other->camera().view_window(window);
        grStdViewTwiddleTool::camera_cache(other)->push(*other);
    }
    const giBox2 unmoved = without->camera().view_window();
    scene.bind<grMultiViewIndexTool>("previous");
    scene.press(300, 150);
    scene.release(300, 150);
    scene.clock.advance(0.2);
    scene.the_man.idle();
    EXPECT_NEAR(other->camera().view_window().low().x(), 1.5, 1e-12);
    scene.clock.advance(0.3);
    scene.the_man.idle();
    EXPECT_EQ(other->camera().view_window(), first);
    EXPECT_EQ(without->camera().view_window(), unmoved);
    EXPECT_EQ(scene.cache().current()->is_position_of(*scene.view()), 1);
}

TEST(grCameraInterpolation, turns_the_shorter_way_whatever_the_turn)
{
    tsToolScene scene;
    const giVector3 axes[] = {giVector3(1, 0, 0), giVector3(0, 1, 0), giVector3(0, 0, 1), giVector3(1, -2, 3).unit()};
    for (const giVector3& axis : axes)
        for (const double angle : {0.0, 1e-9, 0.5, pi / 2, 3.0, pi, 3.5, 2 * pi - 0.25})
        {
            const giXform3 start = giXform3::rotation(giAngle(0.3), giVector3(3, 1, -1), giPoint3(1, 2, 3));
            scene.camera().orientation(start);
            const grSavedCameraPosition from(*scene.view());
            scene.camera().orientation(start * giXform3::rotation(giAngle(angle), axis));
            const grSavedCameraPosition to(*scene.view());
            const grCameraInterpolation way(from, to);
            // Ten steps of a tenth each, and never more than half a turn together.
            const double step = std::min(angle, 2 * pi - angle) / 10;
            giXform3 last = start;
            for (int i = 1; i < 10; ++i)
            {
                way.apply(*scene.view(), i / 10.0);
                const giXform3& now = scene.camera().orientation();
                const giXform3 turn = last.inverse() * now;
                const double trace = turn(0, 0) + turn(1, 1) + turn(2, 2);
                EXPECT_NEAR(std::acos(std::clamp((trace - 1) / 2, -1.0, 1.0)), step, 1e-6) << axis << " by " << angle;
                last = now;
            }
            way.apply(*scene.view(), 1);
            EXPECT_EQ(to.is_position_of(*scene.view()), 1);
        }
}
