#include "grRotateViewTool.h"

#include "grWorkPlane.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

#include <numbers>

namespace
{
constexpr double interval = 1.0 / 64; // seconds between mouse events
constexpr int middle_x = tsToolScene::middle_x, middle_y = tsToolScene::middle_y;
constexpr int height = tsToolScene::height;
constexpr double radians_per_pixel = 2 * std::numbers::pi / height;

void expect_orientation(tsToolScene& scene, const giXform3& expected, const char* name)
{
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(scene.camera().orientation().data()[i], expected.data()[i], 1e-12) << name << ", element " << i;
}
}

TEST(grRotateViewTool, turns_about_the_axis_of_its_arguments)
{
    const struct
    {
        const char* args;
        int dx, dy; // travel of the pointer
        giVector3 axis;
        double pixels;
    } cases[] = {
        // Up turns what is near the eye upwards, from z to y: about -x.
        {"x_axis", 30, 20, {-1, 0, 0}, 20},     {"y_axis", 30, 20, {0, 1, 0}, 30}, {"z_axis", 30, 20, {0, 0, -1}, 30},
        {"xyz_axis", 30, 40, {-40, 30, 0}, 50}, {"", 30, 20, {-1, 0, 0}, 20},      {"Y_axis", 30, 20, {-1, 0, 0}, 20},
    };
    for (const auto& c : cases)
    {
        tsToolScene scene;
        scene.bind<grRotateViewTool>(c.args);
        scene.press(middle_x, middle_y);
        scene.move(middle_x + c.dx, middle_y + c.dy);
        expect_orientation(scene, giXform3::rotation(giAngle(c.pixels * radians_per_pixel), c.axis), c.args);
    }
}

TEST(grRotateViewTool, makes_one_turn_for_a_drag_over_the_height_of_the_view)
{
    for (const char* args : {"x_axis", "xyz_axis"})
    {
        tsToolScene scene;
        scene.bind<grRotateViewTool>(args);
        scene.press(middle_x, 0);
        for (int y = 10; y < 200; y += 10)
            scene.move(middle_x, y);
        EXPECT_GT(std::abs(scene.camera().orientation()(1, 2)), 0.1) << "on its way";
        scene.move(middle_x, height);
        expect_orientation(scene, giXform3(), args);
    }
}

TEST(grRotateViewTool, turns_about_the_workplane_s_origin_while_that_is_on)
{
    const giPoint3 world_centre(0.5, 0.25, 3);
    grWorkPlane plane(giPoint3(-1, 0.5, -2), giVector3(0, 0, 1));
    for (const int on : {0, 1})
    {
        tsToolScene scene;
        plane.on(on);
        scene.the_hooks.the_workplane = &plane;
        scene.the_hooks.the_centre = &world_centre;
        scene.bind<grRotateViewTool>("xyz_axis");
        scene.press(10, 10);
        scene.move(40, 60);
        const giPoint3 centre = on ? plane.origin() : world_centre;
        EXPECT_TRUE((centre * scene.camera().orientation()).coincident(centre, 1e-12)) << on;
        EXPECT_LT(scene.camera().orientation()(0, 0), 0.9);
    }
}

TEST(grRotateViewTool, tells_and_draws_a_step_of_nothing_too)
{
    tsToolScene scene;
    scene.bind<grRotateViewTool>();
    scene.press(10, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "start refresher"}));
    scene.move(10, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"mouse", "refresh"}));
    EXPECT_EQ(scene.camera().orientation(), giXform3());
    scene.release(10, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "end refresher", "end"}));
}

TEST(grRotateViewTool, spins_on_in_the_direction_of_the_drag)
{
    apClockOverride clock(10);
    tsToolScene scene;
    scene.the_hooks.allow_spinning(1);
    scene.bind<grRotateViewTool>("y_axis");
    scene.press(100, 50);
    for (int x = 110; x <= 150; x += 10)
    {
        clock.advance(interval);
        scene.move(x, 50);
    }
    clock.advance(interval);
    scene.release(160, 50);
    // Dragged by 50 pixels, and one step of 10 taken at the release.
    expect_orientation(scene, giXform3::rotation(giAngle(60 * radians_per_pixel), gi_Y_AXIS), "released");
    EXPECT_EQ(scene.the_man.current_tool()->busy_state(), grTWID_NOT_BUSY);
    scene.taken_log();
    EXPECT_EQ(scene.the_man.idle(), grIDLE_AGAIN);
    EXPECT_EQ(scene.taken_log(), (tsLog{"idle refresh", "idle again"}));
    expect_orientation(scene, giXform3::rotation(giAngle(70 * radians_per_pixel), gi_Y_AXIS), "one idle call");
}
