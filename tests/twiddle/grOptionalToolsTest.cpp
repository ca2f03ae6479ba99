#include "dgClientStructure.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"
#include "grMouseWheelZoomTool.h"
#include "grMultiTrackballTool.h"
#include "grRotateViewTool.h"
#include "grSpaceballTool.h"
#include "grTrackballTool.h"
#include "grTwiddleTimer.h"
#include "gwSpaceballEvent.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

// What resources can change beyond the default behaviour: each test shows the default first, and then the cure.
namespace
{
class Wheel
{
public:
    explicit Wheel(const char* key = nullptr)
    {
        if (key)
            the_db.set_resource(key, "yes");
        grMouseWheelZoomTool::reread_resources(&the_db);
        scene.bind<grMouseWheelZoomTool>();
    }
    ~Wheel() { grMouseWheelZoomTool::reread_resources(nullptr); }
    void turn(int count, double delta)
    {
        for (int i = 0; i < count; ++i)
            scene.wheel(200, 100, delta);
    }
    double zoomed() { return scene.camera().view_window().width() / 4.01; }

private:
    apClockOverride the_clock{1e9};
    gwResourceDB the_db;
    tsToolScene scene;
};

double angle_of(const giXform3& turn)
{
    return std::acos(std::clamp((turn(0, 0) + turn(1, 1) + turn(2, 2) - 1) / 2, -1.0, 1.0));
}

struct Throw
{
    double mouse_rate; // events a second
    double idle_rate;  // idle calls a second
    double speed;      // pixels a second
    double decay = 0;  // seconds
    int time_true = 0;
};

// Throws a view with the rotate tool, and answers what it turns by in a time after the release, as pixels of travel a
// second; 0 when it does not spin. The hand rests at whole pixels, as a mouse does.
double thrown(const Throw& t, double seconds = 1)
{
    apClockOverride clock(1000);
    tsToolScene scene;
    scene.the_hooks.allow_spinning(1);
    if (t.time_true)
        scene.the_resources.set_resource("spin_time_true", "yes");
    if (t.decay > 0)
        scene.the_resources.set_resource("spin_decay", utString(std::to_string(t.decay)));
    scene.bind<grRotateViewTool>("z_axis");
    scene.press(0, 100);
    const int events = static_cast<int>(0.2 * t.mouse_rate);
    int last = 0, x = 0;
    for (int i = 1; i <= events; ++i)
    {
        clock.set_time(1000 + i / t.mouse_rate);
        x = static_cast<int>(std::floor(t.speed * i / t.mouse_rate));
        if (x != last) // a mouse that has not moved reports nothing
            scene.move(x, 100);
        last = x;
    }
    scene.release(x, 100);
    // The first step is made at the release.
    giXform3 before = scene.camera().orientation();
    double radians = 0;
    const int calls = static_cast<int>(seconds * t.idle_rate);
    for (int i = 1; i <= calls; ++i)
    {
        clock.advance(1 / t.idle_rate);
        scene.the_man.idle();
        radians += angle_of(before.inverse() * scene.camera().orientation());
        before = scene.camera().orientation();
    }
    return radians / (2 * std::numbers::pi) * tsToolScene::height / seconds;
}
}

TEST(grOptionalTools, wheel_in_and_out_again)
{
    Wheel described;
    described.turn(10, 1);
    described.turn(10, -1);
    EXPECT_NEAR(described.zoomed(), std::pow(0.9, 10) * std::pow(1.1, 10), 1e-12) << "10 % of the picture is lost";

    Wheel cured("mouse_wheel_zoom_reversible");
    cured.turn(10, 1);
    EXPECT_NEAR(cured.zoomed(), std::pow(0.9, 10), 1e-12) << "in is as before";
    cured.turn(10, -1);
    EXPECT_NEAR(cured.zoomed(), 1, 1e-12);
}

TEST(grOptionalTools, a_fine_wheel_and_a_notched_one)
{
    Wheel described;
    described.turn(30, 1 / 30.0);
    EXPECT_NEAR(described.zoomed(), std::pow(0.9, 30), 1e-12) << "a notch of a fine wheel is 24 times too much";

    Wheel cured("mouse_wheel_zoom_proportional");
    cured.turn(30, 1 / 30.0);
    EXPECT_NEAR(cured.zoomed(), 0.9, 1e-12);
    cured.turn(1, 3);
    EXPECT_NEAR(cured.zoomed(), std::pow(0.9, 4), 1e-12) << "three notches in one event";
    cured.turn(30, -1 / 30.0);
    EXPECT_NEAR(cured.zoomed(), std::pow(0.9, 4) * 1.1, 1e-12);
}

TEST(grOptionalTools, spin_is_as_fast_as_the_hand_at_all_rates)
{
    const double hand = 400; // pixels a second
    // By default a step of the mouse's rate is made at the idle loop's rate, and a fifth is lost where the button is
    // let go at the last position: four steps count as five.
    EXPECT_NEAR(thrown({125, 60, hand}), 0.8 * hand * 60 / 125, 0.03 * hand);
    EXPECT_NEAR(thrown({125, 240, hand}), 0.8 * hand * 240 / 125, 0.06 * hand);
    EXPECT_LT(thrown({1000, 60, hand}), 0.25 * hand);
    for (const double mouse_rate : {60.0, 125.0, 500.0, 1000.0})
        for (const double idle_rate : {30.0, 60.0, 240.0})
            EXPECT_NEAR(thrown({mouse_rate, idle_rate, hand, 0, 1}), hand, 0.1 * hand)
                << mouse_rate << " Hz, " << idle_rate << " idle calls a second";
    EXPECT_EQ(thrown({1000, 60, 20, 0, 1}), 0) << "below 30 pixels a second it is let go at rest";
}

TEST(grOptionalTools, spin_decays)
{
    const double hand = 400;
    const double first = thrown({125, 60, hand, 0, 1}, 1);
    EXPECT_NEAR(thrown({125, 60, hand, 0, 1}, 20), first, 0.01 * first) << "for ever";
    // Halving every 0.5 seconds, all of the way is 0.5 / ln 2 seconds at the first speed, and half of it is done by
    // 0.5.
    const double all = first * 0.5 / std::numbers::ln2;
    EXPECT_NEAR(thrown({125, 60, hand, 0.5, 1}, 0.5) * 0.5, all / 2, 0.02 * all);
    EXPECT_NEAR(thrown({125, 60, hand, 0.5, 1}, 20) * 20, all, 0.03 * all) << "it comes to rest";
    EXPECT_NEAR(thrown({125, 60, hand, 0.5, 0}, 20) * 20, thrown({125, 60, hand}) * 0.5 / std::numbers::ln2, 0.05 * all)
        << "also where steps are counted by idle calls";
}

TEST(grOptionalTools, a_time_true_throw_that_has_come_to_rest_stays)
{
    apClockOverride clock(0);
    grTwiddleTimer timer(256);
    timer.time_true(1);
    for (int i = 0; i < 20; ++i)
    {
        timer.add_mouse_event(giPoint2(4 * i, 0));
        clock.advance(0.008);
    }
    clock.advance(0.05);
    timer.end_twiddle_event(giPoint2(76, 0));
    EXPECT_EQ(timer.can_spin(), 0);
}

TEST(grOptionalTools, a_ball_that_is_round)
{
    const auto rolled = [](int round, int x, int y)
    {
        tsToolScene scene;
        if (round)
            scene.the_resources.set_resource("trackball_round", "yes");
        scene.bind<grTrackballTool>();
        scene.press(200, 100);
        scene.move(200 + x, 100 + y);
        return angle_of(scene.camera().orientation());
    };
    // The view is twice as wide as it is high, and so is the ball.
    EXPECT_GT(rolled(0, 0, 30), 1.9 * rolled(0, 30, 0));
    EXPECT_NEAR(rolled(1, 30, 0), std::asin(30 / 201.0 / 0.4), 1e-12);
    EXPECT_NEAR(rolled(1, 0, 30), rolled(1, 30, 0), 1e-12);
    EXPECT_NEAR(rolled(1, 18, -24), rolled(1, 30, 0), 1e-12);
}

namespace
{
// Two squares of side 1 around the middle (1, 0.5) of the picture, 0.5 and 2 units in front of the view plane, called
// under a transform.
dgRef<dgStructure> squares()
{
    auto* block = new giTriBlock;
    for (const double z : {0.5, 2.0})
    {
        const int first = block->node_count();
        for (const giPoint3& corner :
             {giPoint3(0.5, 0, z), giPoint3(1.5, 0, z), giPoint3(1.5, 1, z), giPoint3(0.5, 1, z)})
            block->nodes().append(corner - giVector3(10, 0, 0));
        block->triangles().emplace_back(first, first + 1, first + 2);
        block->triangles().emplace_back(first, first + 2, first + 3);
    }
    dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgTransform(giXform3::translation(giVector3(10, 0, 0))));
    root->add(new dgTriangleBlock(block, 1));
    return root;
}

template <class Tool>
double moved_on_screen(const char* resource, dgProjection projection, int x, int y, const giPoint3& world)
{
    tsToolScene scene;
    const dgRef<dgStructure> root = squares();
    scene.view()->root(root.get());
    scene.camera().projection(projection);
    if (resource)
        scene.the_resources.set_resource(resource, "yes");
    scene.bind<Tool>();
    const giPoint2 before = scene.device(world);
    scene.press(x, y);
    scene.move(x + 31, y + 17);
    EXPECT_NE(scene.camera().orientation(), giXform3());
    return (scene.device(world) - before).length();
}
}

TEST(grOptionalTools, rotation_about_the_point_under_the_cursor)
{
    // The pointer is over the nearer square, at (0.9, 0.3) in parallel projection.
    const giPoint3 parallel(0.9, 0.3, 2);
    EXPECT_GT(moved_on_screen<grTrackballTool>(nullptr, dgPROJECTION_PARALLEL, 290, 130, parallel), 20);
    EXPECT_NEAR(moved_on_screen<grTrackballTool>("rotate_about_cursor", dgPROJECTION_PARALLEL, 290, 130, parallel), 0,
                1e-9);
    EXPECT_GT(moved_on_screen<grRotateViewTool>(nullptr, dgPROJECTION_PARALLEL, 290, 130, parallel), 20);
    EXPECT_NEAR(moved_on_screen<grRotateViewTool>("rotate_about_cursor", dgPROJECTION_PARALLEL, 290, 130, parallel), 0,
                1e-9);
    // In perspective from a distance of 5, depth 2 shows larger by 5 / 3.
    const giPoint3 perspective(0.9, 0.3, 2);
    EXPECT_NEAR(
        moved_on_screen<grTrackballTool>("rotate_about_cursor", dgPROJECTION_PERSPECTIVE, 350, 150, perspective), 0,
        1e-9);
    // Beside the squares it is the centre of the view, as without the resource.
    EXPECT_NEAR(moved_on_screen<grTrackballTool>("rotate_about_cursor", dgPROJECTION_PARALLEL, 20, 20, giPoint3()), 0,
                1e-9);
}

TEST(grOptionalTools, other_views_turn_about_their_own_centres_wherever_the_cursor_is)
{
    tsToolScene scene;
    const dgRef<dgStructure> root = squares();
    dgView* other = scene.the_scene.add_view(scene.the_scene.add_window(tsToolScene::width, tsToolScene::height));
    other->camera().view_window(scene.camera().view_window());
    for (dgView* view : {scene.view(), other})
        view->root(root.get());
    scene.the_hooks.the_grouped_views = {other};
    scene.the_resources.set_resource("rotate_about_cursor", "yes");
    scene.bind<grMultiTrackballTool>();
    const giPoint3 centre = other->camera().view_centre();
    scene.press(290, 130);
    scene.move(321, 147);
    EXPECT_NE(other->camera().orientation(), giXform3());
    EXPECT_TRUE((centre * other->camera().orientation()).coincident(centre, 1e-9));
}

TEST(grOptionalTools, settings_of_the_spaceball)
{
    // The orientation after one event about x and y and a pull.
    const auto moved = [](const char* key, const char* value)
    {
        tsToolScene scene;
        if (key)
            scene.the_resources.set_resource(key, value);
        scene.bind<grSpaceballTool>();
        scene.press(200, 100);
        scene.the_input.post(
            gwSpaceballEvent(scene.window(), 200, 100, 0, giVector3(0.2, 0.8, 0), giVector3(0.5, 0, 0)));
        return scene.camera().orientation();
    };
    const auto expected = [](double rx, double ry, double tx)
    {
        const giVector3 turn(0.05 * rx, 0.05 * ry, 0);
        return giXform3::rotation(giAngle(turn.length()), turn) *
               giXform3::translation(giVector3(0.02 * 2.01 * tx, 0, 0));
    };
    const auto expect_same = [](const giXform3& a, const giXform3& b, const char* name)
    {
        for (int i = 0; i < 16; ++i)
            EXPECT_NEAR(a.data()[i], b.data()[i], 1e-12) << name;
    };
    expect_same(moved(nullptr, nullptr), expected(0.2, 0.8, 0.5), "default");
    expect_same(moved("spaceball_rotation_gain", "2"), expected(0.4, 1.6, 0.5), "rotation gain");
    expect_same(moved("spaceball_translation_gain", "-0.5"), expected(0.2, 0.8, -0.25), "translation gain");
    expect_same(moved("spaceball_axes", "x,y,z,ry,rx,rz"), expected(0.8, 0.2, 0.5), "axes");
    expect_same(moved("spaceball_axes", "x,y,z,ry,rx"), expected(0.2, 0.8, 0.5), "five axes are refused");
    expect_same(moved("spaceball_signs", "1 1 1 1 -1 1"), expected(0.2, -0.8, 0.5), "signs");
    expect_same(moved("spaceball_dead_zone", "0.2"), expected(0, 0.75, 0.375), "dead zone");
    expect_same(moved("spaceball_dominant_axis", "yes"), expected(0, 0.8, 0), "dominant axis");
}
