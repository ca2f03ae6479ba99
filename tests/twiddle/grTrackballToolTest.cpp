#include "grTrackballTool.h"

#include "grWorkPlane.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>

namespace
{
constexpr double interval = 1.0 / 64; // seconds between mouse events
constexpr int middle_x = tsToolScene::middle_x, middle_y = tsToolScene::middle_y;

// The angle of a drag along the x axis from the middle of a ball, while it stays on the sphere.
double rolled(double pixels, double radius = 0.4)
{
    return std::asin(pixels / tsToolScene::width / radius);
}

giXform3 about_y(double radians)
{
    return giXform3::rotation(giAngle(radians), gi_Y_AXIS);
}

double largest_difference(const giXform3& a, const giXform3& b)
{
    double largest = 0;
    for (int i = 0; i < 16; ++i)
        largest = std::max(largest, std::abs(a.data()[i] - b.data()[i]));
    return largest;
}

// Drags to the middle of the view in steps of 10 pixels and lets go there, a while after the last movement.
void drag_to_middle(tsToolScene& scene, apClockOverride& clock, double gap = interval)
{
    scene.press(middle_x - 60, middle_y);
    for (int x = middle_x - 50; x < middle_x; x += 10)
    {
        clock.advance(interval);
        scene.move(x, middle_y);
    }
    clock.advance(gap);
    scene.release(middle_x, middle_y);
}
}

TEST(grTrackballTool, turns_what_is_near_the_eye_along_with_the_pointer)
{
    tsToolScene scene;
    scene.bind<grTrackballTool>();
    scene.press(middle_x, middle_y);
    scene.move(middle_x + 80, middle_y);
    EXPECT_LT(largest_difference(scene.camera().orientation(), about_y(rolled(80))), 1e-12);

    // Back at the press point the view is as it was.
    scene.move(middle_x, middle_y);
    EXPECT_LT(largest_difference(scene.camera().orientation(), giXform3()), 1e-12);

    scene.move(middle_x, middle_y + 40);
    const giXform3 up = giXform3::rotation(giAngle(-std::asin(40.0 / tsToolScene::height / 0.4)), gi_X_AXIS);
    EXPECT_LT(largest_difference(scene.camera().orientation(), up), 1e-12);
}

TEST(grTrackballTool, tells_hooks_and_refresher_in_order)
{
    tsToolScene scene;
    scene.bind<grTrackballTool>();
    scene.press(10, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"update centre", "start", "start refresher"}));
    scene.move(12, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"mouse", "refresh"}));
    scene.move(12, 10);
    EXPECT_EQ(scene.taken_log(), tsLog()) << "a step of nothing is neither told nor drawn";
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
    EXPECT_EQ(scene.taken_log(), (tsLog{"idle refresher", "idle done"}));
    scene.release(12, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "end refresher", "end"}));
    scene.move(50, 50);
    EXPECT_EQ(scene.taken_log(), tsLog()) << "the twiddle is over";
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
    EXPECT_EQ(scene.taken_log(), (tsLog{"idle refresher", "idle done"}));
    EXPECT_EQ(scene.the_man.current_tool()->busy_state(), grTWID_BUSY);
    scene.the_man.delete_current_tool();
    EXPECT_EQ(scene.taken_log(), tsLog{"destruction"});
}

TEST(grTrackballTool, fires_the_view_s_callbacks_once_for_each_step)
{
    tsToolScene scene;
    int fired = 0;
    struct Counter : coReceiver
    {
        explicit Counter(int& n) : count(n) {}
        void altered() { ++count; }
        int& count;
    } counter(fired);
    scene.view()->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Counter::altered>(&counter));
    scene.bind<grTrackballTool>();
    scene.press(10, 10);
    scene.move(20, 20);
    scene.move(20, 20);
    scene.move(30, 20);
    EXPECT_EQ(fired, 2);
}

TEST(grTrackballTool, limits_the_radius_of_the_ball)
{
    const struct
    {
        const char* text;
        double angle; // of a drag by 80 pixels from the middle
    } cases[] = {
        {"0.4", rolled(80)},
        {"1", rolled(80, 1)},
        {"5", rolled(80, 1)},
        // A ball of 1e-5: the chord is many times its thickness.
        {"0", std::numbers::pi},
        {"-3", std::numbers::pi},
        {"large", rolled(80)},
        {"nan", rolled(80)},
    };
    for (const auto& c : cases)
    {
        tsToolScene scene;
        scene.the_resources.set_resource("trackball_virtual_radius", c.text);
        scene.bind<grTrackballTool>();
        scene.press(middle_x, middle_y);
        scene.move(middle_x + 80, middle_y);
        EXPECT_LT(largest_difference(scene.camera().orientation(), about_y(c.angle)), 1e-9) << c.text;
    }
}

TEST(grTrackballTool, turns_about_the_centre_that_was_asked_for)
{
    const giPoint3 world_centre(0.5, 0.25, 3);
    const giPoint3 plane_origin(-1, 0.5, -2);
    const giPoint3 port_middle(0, 0, 0);
    const struct
    {
        const char* name;
        const char* args;
        grTrackballCentreType type;
        int workplane; // 0 none, 1 on, 2 off
        giPoint3 centre;
    } cases[] = {
        {"world by default", "", dgLEAVS_TRACKBALL_CENTRE_VIEW, 1, world_centre},
        {"viewport by the hooks", "", dgLEAVS_TRACKBALL_CENTRE_VIEWPORT, 1, port_middle},
        {"workplane by the hooks", "", dgLEAVS_TRACKBALL_CENTRE_WORKPLANE, 1, plane_origin},
        {"world by argument", "world", dgLEAVS_TRACKBALL_CENTRE_WORKPLANE, 1, world_centre},
        {"view by argument is the viewport", "view", dgLEAVS_TRACKBALL_CENTRE_VIEW, 1, port_middle},
        {"workplane by argument", "workplane", dgLEAVS_TRACKBALL_CENTRE_VIEWPORT, 1, plane_origin},
        {"no workplane: the world, not the hooks' type", "workplane", dgLEAVS_TRACKBALL_CENTRE_VIEWPORT, 0,
         world_centre},
        {"workplane switched off", "", dgLEAVS_TRACKBALL_CENTRE_WORKPLANE, 2, world_centre},
        {"other arguments keep the hooks' type", "World", dgLEAVS_TRACKBALL_CENTRE_VIEWPORT, 1, port_middle},
    };
    for (const auto& c : cases)
    {
        tsToolScene scene;
        grWorkPlane plane(plane_origin, giVector3(0, 0, 1));
        plane.on(c.workplane == 1);
        scene.the_hooks.the_workplane = c.workplane ? &plane : nullptr;
        scene.the_hooks.the_centre = &world_centre;
        scene.the_hooks.set_trackball_centre_type(c.type);
        scene.bind<grTrackballTool>(c.args);
        const giPoint3 before = c.centre * scene.camera().orientation();
        scene.press(50, 60);
        const int updated = scene.taken_log().front() == "update centre";
        EXPECT_EQ(updated, c.centre == world_centre) << c.name;
        scene.move(90, 70);
        scene.move(95, 120);
        const giPoint3 after = c.centre * scene.camera().orientation();
        EXPECT_TRUE(after.coincident(before, 1e-12)) << c.name << ": " << before << " went to " << after;
        EXPECT_GT(largest_difference(scene.camera().orientation(), giXform3()), 0.1) << c.name;
    }
}

TEST(grTrackballTool, puts_the_middle_of_the_ball_under_the_centre)
{
    // The centre shows 100 pixels to the right of the middle: a drag from there is a drag from the middle of the ball.
    tsToolScene scene;
    const giPoint3 centre(1, 0, 0);
    scene.the_hooks.the_centre = &centre;
    scene.bind<grTrackballTool>();
    scene.press(middle_x + 100, middle_y);
    scene.move(middle_x + 180, middle_y);
    const giXform3 expected = giXform3::rotation(giAngle(rolled(80)), gi_Y_AXIS, centre);
    EXPECT_LT(largest_difference(scene.camera().orientation(), expected), 1e-12);
}

TEST(grTrackballTool, turns_and_spins_in_view_space_about_a_centre_in_world_space)
{
    // The centre shows in the middle, one unit in front of the view plane; the world is upside down and moved.
    apClockOverride clock(10);
    tsToolScene scene;
    const giXform3 start =
        giXform3::rotation(giAngle(std::numbers::pi), gi_Z_AXIS) * giXform3::translation(giVector3(3, 4, 0));
    const giPoint3 centre(3, 4, 1), centre_view(0, 0, 1);
    scene.camera().orientation(start);
    scene.the_hooks.the_centre = &centre;
    scene.the_hooks.allow_spinning(1);
    scene.bind<grTrackballTool>();
    scene.press(middle_x, middle_y);
    clock.advance(interval);
    scene.move(middle_x + 80, middle_y);
    const auto turned = [&](double pixels)
    { return start * giXform3::rotation(giAngle(rolled(pixels)), gi_Y_AXIS, centre_view); };
    EXPECT_LT(largest_difference(scene.camera().orientation(), turned(80)), 1e-12);

    scene.the_man.stop_twiddling();
    scene.camera().orientation(start);
    drag_to_middle(scene, clock);
    const giXform3 before = scene.camera().orientation();
    scene.the_man.idle();
    const giXform3 step = giXform3::rotation(giAngle(rolled(10)), gi_Y_AXIS, centre_view);
    EXPECT_LT(largest_difference(scene.camera().orientation(), before * step), 1e-12);
}

TEST(grTrackballTool, spins_on_after_a_release_in_motion_until_the_next_key_press)
{
    apClockOverride clock(10);
    tsToolScene scene;
    scene.the_hooks.allow_spinning(1);
    scene.bind<grTrackballTool>();
    drag_to_middle(scene, clock);
    const auto& tool = *grTrackballTool::ut_dynamic_cast(scene.the_man.current_tool());
    EXPECT_EQ(tool.state(), grTWID_ENDED);
    EXPECT_EQ(tool.spinning(), 1);
    EXPECT_EQ(tool.busy_state(), grTWID_NOT_BUSY);

    // The mean of the five steps up to the release is 10 pixels, laid from the middle of the ball on.
    scene.taken_log();
    for (int i = 0; i < 3; ++i)
    {
        const giXform3 before = scene.camera().orientation();
        clock.advance(5);
        EXPECT_EQ(scene.the_man.idle(), grIDLE_AGAIN);
        EXPECT_LT(largest_difference(scene.camera().orientation(), before * about_y(rolled(10))), 1e-12) << i;
        EXPECT_EQ(scene.taken_log(), (tsLog{"idle refresh", "idle again"}));
    }

    scene.press(10, 10);
    scene.release(10, 10);
    const giXform3 stopped = scene.camera().orientation();
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
    EXPECT_EQ(scene.camera().orientation(), stopped);
}

TEST(grTrackballTool, takes_the_first_spin_step_at_the_release)
{
    apClockOverride clock(10);
    tsToolScene spinning, still;
    spinning.the_hooks.allow_spinning(1);
    spinning.bind<grTrackballTool>();
    still.bind<grTrackballTool>();
    drag_to_middle(spinning, clock);
    drag_to_middle(still, clock);
    EXPECT_LT(largest_difference(spinning.camera().orientation(), still.camera().orientation() * about_y(rolled(10))),
              1e-12);
}

TEST(grTrackballTool, does_not_spin_when_let_go_late_or_not_allowed)
{
    for (const int allowed : {0, 1})
    {
        apClockOverride clock(10);
        tsToolScene scene;
        scene.the_hooks.allow_spinning(allowed);
        scene.bind<grTrackballTool>();
        drag_to_middle(scene, clock, allowed ? 2.5 * interval : interval);
        const giXform3 released = scene.camera().orientation();
        EXPECT_EQ(scene.the_man.current_tool()->busy_state(), grTWID_BUSY);
        EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
        EXPECT_EQ(scene.camera().orientation(), released);
    }
}

TEST(grTrackballTool, feeds_steps_of_nothing_to_the_timer_but_not_the_press)
{
    apClockOverride clock(10);
    tsToolScene scene;
    scene.the_hooks.allow_spinning(1);
    scene.bind<grTrackballTool>();
    scene.press(50, 50);
    clock.advance(interval);
    scene.move(90, 50);
    clock.advance(interval);
    scene.release(90, 50);
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE) << "one mouse event is one position";

    // The repeated position turns nothing, but it makes the release come two intervals after the last position, not
    // three.
    scene.press(50, 50);
    for (const int x : {60, 61, 61})
    {
        clock.advance(interval);
        scene.move(x, 50);
    }
    clock.advance(2 * interval);
    scene.release(61, 50);
    EXPECT_EQ(scene.the_man.idle(), grIDLE_AGAIN);
}

TEST(grTrackballTool, stays_inert_without_a_view_under_the_pointer)
{
    apClockOverride clock(10);
    tsToolScene scene;
    scene.the_hooks.allow_spinning(1);
    scene.bind<grTrackballTool>();
    scene.press(1000, 1000);
    for (int x = 100; x < 200; x += 10)
    {
        clock.advance(interval);
        scene.move(x, 50);
    }
    EXPECT_EQ(scene.the_man.idle(), grIDLE_DONE);
    clock.advance(interval);
    scene.release(200, 50);
    scene.the_man.delete_current_tool();
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "destruction"}));
    EXPECT_EQ(scene.camera().orientation(), giXform3());
}

TEST(grTrackballTool, outlives_its_view)
{
    apClockOverride clock(10);
    tsToolScene dragged, spun;
    for (tsToolScene* scene : {&dragged, &spun})
    {
        scene->the_hooks.allow_spinning(1);
        scene->bind<grTrackballTool>();
    }
    dragged.press(50, 50);
    clock.advance(interval);
    dragged.move(60, 50);
    dragged.delete_view();
    dragged.taken_log();
    clock.advance(interval);
    dragged.move(70, 50);
    EXPECT_EQ(dragged.taken_log(), tsLog());
    clock.advance(interval);
    dragged.release(80, 50);
    EXPECT_EQ(dragged.taken_log(), (tsLog{"final frame", "end refresher", "end"}));
    EXPECT_EQ(dragged.the_man.idle(), grIDLE_DONE);

    drag_to_middle(spun, clock);
    EXPECT_EQ(spun.the_man.idle(), grIDLE_AGAIN);
    spun.delete_view();
    EXPECT_EQ(spun.the_man.idle(), grIDLE_DONE) << "nothing is left to spin";
}

TEST(grTrackballTool, lends_the_refresher_an_icon_around_the_centre)
{
    const giPoint3 centre(1, 0.25, 0);
    const struct
    {
        const char* name;
        int draw;
        const char* radius; // share of the height of the view
        double magnification;
        double expected; // world units, below 0 for no icon
    } cases[] = {
        {"a quarter of 2.01 units", 1, "0.25", 1, 0.5025},
        {"the same share of a closer view", 1, "0.25", 10, 0.05025},
        {"without a resource a point, which is drawn all the same", 1, nullptr, 1, 0},
        {"switched off", 0, "0.25", 1, -1},
        {"a scale of 1e-5 at most", 1, "0.25", 1e-6, -1},
    };
    for (const auto& c : cases)
    {
        tsToolScene scene;
        scene.the_hooks.the_centre = &centre;
        scene.the_hooks.draw_trackball_icon(c.draw);
        if (c.radius)
            scene.the_resources.set_resource("trackball_icon_radius", c.radius);
        scene.camera().zoom(1 / c.magnification);
        scene.bind<grTrackballTool>();
        scene.press(50, 50);
        EXPECT_EQ(scene.taken_log(), (tsLog{"update centre", "start", "start refresher"})) << c.name;
        const giBox3& box = scene.the_hooks.the_icon_box;
        ASSERT_EQ(box.empty(), c.expected < 0) << c.name;
        if (c.expected < 0)
            continue;
        const giVector3 r(c.expected, c.expected, c.expected);
        EXPECT_TRUE(box.low().coincident(centre - r, 1e-12)) << c.name << ": " << box;
        EXPECT_TRUE(box.high().coincident(centre + r, 1e-12)) << c.name << ": " << box;
    }
}

TEST(grTrackballTool, forces_a_redraw_at_the_end_when_the_icon_s_radius_is_set)
{
    // Whether the icon is drawn does not matter, nor what the radius is.
    tsToolScene scene;
    scene.the_resources.set_resource("trackball_icon_radius", "0.0");
    scene.bind<grTrackballTool>();
    scene.press(50, 50);
    scene.release(50, 50);
    EXPECT_EQ(scene.taken_log(),
              (tsLog{"update centre", "start", "start refresher", "final frame", "end refresher, forced", "end"}));
}

TEST(grTrackballTool, turns_a_recorded_drag_into_the_same_camera_every_time)
{
    std::vector<giXform3> ends;
    for (int run = 0; run < 100; ++run)
    {
        apClockOverride clock(10);
        tsToolScene scene;
        scene.the_hooks.allow_spinning(1);
        scene.bind<grTrackballTool>();
        scene.press(20, 30);
        for (int i = 0; i < 50; ++i)
        {
            clock.advance(interval);
            scene.move(20 + 7 * i, 30 + (i * i) % 97);
        }
        clock.advance(interval);
        scene.release(370, 90);
        for (int i = 0; i < 20; ++i)
            scene.the_man.idle();
        ends.push_back(scene.camera().orientation());
    }
    for (const giXform3& end : ends)
        EXPECT_EQ(std::memcmp(end.data(), ends[0].data(), 16 * sizeof(double)), 0);
    EXPECT_GT(largest_difference(ends[0], giXform3()), 0.1);
}
