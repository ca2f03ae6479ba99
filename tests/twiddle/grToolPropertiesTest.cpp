#include "dgClientStructure.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"
#include "grCameraInterpolation.h"
#include "grIsometricTool.h"
#include "grMouseWheelZoomTool.h"
#include "grMoveFrontBackTool.h"
#include "grPanCentreTool.h"
#include "grPanTool.h"
#include "grResetFrontBackTool.h"
#include "grResetTool.h"
#include "grRotateViewTool.h"
#include "grSavedCameraPosition.h"
#include "grSpaceballTool.h"
#include "grToggleDepthCueingTool.h"
#include "grTrackballTool.h"
#include "grZoomTool.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"
#include "gwSpaceballEvent.h"
#include "tsStage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

// What holds for tools whatever the numbers are.
namespace
{
constexpr double pi = std::numbers::pi;
// A world unit is 100 pixels and the world's origin shows at (200, 100).
const char* const scene = "window 401 201; view; look a -2.005 -1.005 2.005 1.005;";

double angle_of(const giXform3& turn)
{
    return std::acos(std::clamp((turn(0, 0) + turn(1, 1) + turn(2, 2) - 1) / 2, -1.0, 1.0));
}

giPoint2 shown(dgView& view, const giPoint3& world)
{
    giPoint3 device;
    view.camera().transform(world, device, dgSPACE_WORLD, dgSPACE_DEVICE);
    return giPoint2(device.x(), device.y());
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
// second; 0 when it does not spin. The hand rests at whole pixels, as a mouse does, which then reports nothing.
double thrown(const Throw& t, double seconds = 1)
{
    tsStage stage;
    stage.run(std::string(scene) + "spinning 1; resource spin_decay " + std::to_string(t.decay) +
              "; resource spin_time_true " + (t.time_true ? "yes" : "no") +
              "; bind rotate_view (z_axis); press 1 0 100");
    const double begin = stage.clock.time();
    int last = 0, x = 0;
    for (int i = 1; i <= static_cast<int>(0.2 * t.mouse_rate); ++i)
    {
        stage.clock.set_time(begin + i / t.mouse_rate);
        x = static_cast<int>(std::floor(t.speed * i / t.mouse_rate));
        if (x != last)
            stage.run("move " + std::to_string(x) + " 100");
        last = x;
    }
    stage.run("release");
    const giXform3& orientation = stage.find_view("a")->camera().orientation();
    giXform3 before = orientation; // the first step is made at the release
    double radians = 0;
    for (int i = 1; i <= static_cast<int>(seconds * t.idle_rate); ++i)
    {
        stage.run("idle 1 1/" + std::to_string(t.idle_rate));
        radians += angle_of(before.inverse() * orientation);
        before = orientation;
    }
    return radians / (2 * pi) * 201 / seconds;
}
}

TEST(grSpin, is_as_fast_as_the_hand_at_all_rates_when_it_is_true_to_time)
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

TEST(grSpin, decays)
{
    const double hand = 400, first = thrown({125, 60, hand, 0, 1}, 1);
    EXPECT_NEAR(thrown({125, 60, hand, 0, 1}, 20), first, 0.01 * first) << "for ever";
    // Halving every 0.5 seconds, all of the way is 0.5 / ln 2 seconds at the first speed, half of it done by 0.5.
    const double all = first * 0.5 / std::numbers::ln2;
    EXPECT_NEAR(thrown({125, 60, hand, 0.5, 1}, 0.5) * 0.5, all / 2, 0.02 * all);
    EXPECT_NEAR(thrown({125, 60, hand, 0.5, 1}, 20) * 20, all, 0.03 * all) << "it comes to rest";
    EXPECT_NEAR(thrown({125, 60, hand, 0.5, 0}, 20) * 20, thrown({125, 60, hand}) * 0.5 / std::numbers::ln2, 0.05 * all)
        << "also where steps are counted by idle calls";
}

// Two squares of side 1 around (1, 0.5), 0.5 and 2 units in front of the view plane, called under a transform.
TEST(gr_surface_point, stays_under_the_cursor_when_views_turn_about_it)
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
    block->triangles().emplace_back(-1, 1000000000, 4); // is as if it were not there
    dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgTransform(giXform3::translation(giVector3(10, 0, 0))));
    root->add(new dgTriangleBlock(block, 1));
    const giPoint3 seen(0.9, 0.3, 2);
    const struct
    {
        const char *set_up, *press;
        giPoint3 world;
        int stays;
    } cases[] = {
        {"bind trackball", "290 130", seen, 0},
        {"bind rotate_view", "290 130", seen, 0},
        {"resource rotate_about_cursor yes; bind trackball", "290 130", seen, 1},
        {"resource rotate_about_cursor yes; bind rotate_view", "290 130", seen, 1},
        // From a distance of 5, depth 2 shows larger by 5 / 3.
        {"resource rotate_about_cursor yes; perspective a; bind trackball", "350 150", seen, 1},
        {"resource rotate_about_cursor yes; bind trackball", "250 100", giPoint3(0.5, 0, 2), 1}, // a corner
        {"resource rotate_about_cursor yes; bind trackball", "350 100", giPoint3(1.5, 0, 2), 1}, // and another
        {"resource rotate_about_cursor yes; set_planes a 1 -9 1; bind trackball", "290 130", giPoint3(0.9, 0.3, 0.5),
         1},
        {"resource rotate_about_cursor yes; section a; bind section (z); press 1 9 9; release 1 9 9; bind trackball",
         "290 130", giPoint3(0.9, 0.3, 0.5), 1},                                      // what lies before is cut away
        {"resource rotate_about_cursor yes; bind trackball", "20 20", giPoint3(), 1}, // beside: the view's centre
    };
    for (const auto& c : cases)
    {
        tsStage stage;
        stage.run(scene);
        dgView& view = *stage.find_view("a");
        view.root(root.get());
        stage.run(c.set_up);
        const giPoint2 before = shown(view, c.world);
        stage.run("press 1 " + std::string(c.press) + "; drag 321 147 1");
        EXPECT_NE(view.camera().orientation(), giXform3()) << c.set_up;
        EXPECT_EQ((shown(view, c.world) - before).length() < 1e-9, c.stays) << c.set_up << ' ' << c.press;
    }
}

TEST(grMouseWheelZoomTool, keeps_the_point_under_the_cursor_in_a_thousand_steps)
{
    for (const char* projection : {"wait 0", "perspective a 0.3 -0.2 7"})
    {
        tsStage stage;
        stage.run(std::string(scene) +
                  "resource mouse_wheel_zoom_centre no; bind no_op; turn a 0.7 1 0 0; turn a 0.4 0 1 0");
        stage.run(projection);
        dgView& view = *stage.find_view("a");
        view.camera().view_port_dc(giBox2(37, 21, 311, 180));
        giPoint3 world; // where the pointer is taken to be
        view.camera().transform(giPoint3(80.5, 149, 0), world, dgSPACE_DEVICE, dgSPACE_WORLD);
        // In steps of 0.9 and 1.1, the picture gets larger and smaller by up to a million times.
        for (int i = 0; i < 1000; ++i)
        {
            stage.run((i / 125) % 2 == 0 ? "wheel 80 150 1" : "wheel 80 150 -1");
            ASSERT_LT((shown(view, world) - giPoint2(80.5, 149)).length(), 0.1) << "step " << i;
        }
    }
}

TEST(grCameraInterpolation, turns_the_shorter_way_whatever_the_turn)
{
    tsStage stage;
    stage.run(scene);
    dgView& view = *stage.find_view("a");
    const giVector3 axes[] = {giVector3(1, 0, 0), giVector3(0, 1, 0), giVector3(0, 0, 1), giVector3(1, -2, 3).unit()};
    for (const giVector3& axis : axes)
        for (const double angle : {0.0, 1e-9, 0.5, pi / 2, 3.0, pi, 3.5, 2 * pi - 0.25})
        {
            const giXform3 start = giXform3::rotation(giAngle(0.3), giVector3(3, 1, -1), giPoint3(1, 2, 3));
            view.camera().orientation(start);
            const grSavedCameraPosition from(view);
            view.camera().orientation(start * giXform3::rotation(giAngle(angle), axis));
            const grSavedCameraPosition to(view);
            const grCameraInterpolation way(from, to);
            // Ten steps of a tenth each, and never more than half a turn together.
            const double step = std::min(angle, 2 * pi - angle) / 10;
            giXform3 last = start;
            for (int i = 1; i < 10; ++i)
            {
                way.apply(view, i / 10.0);
                EXPECT_NEAR(angle_of(last.inverse() * view.camera().orientation()), step, 1e-6)
                    << axis << " by " << angle;
                last = view.camera().orientation();
            }
            way.apply(view, 1);
            EXPECT_EQ(to.is_position_of(view), 1);
        }
}

namespace
{
template <class... Tools, class Function>
void with_each(Function function)
{
    (function.template operator()<Tools>(), ...);
}
}

TEST(grViewTools, change_nothing_without_hooks)
{
    tsStage stage;
    stage.run(scene);
    gwWindow* window = &stage.window().input;
    with_each<grTrackballTool, grRotateViewTool, grSpaceballTool, grZoomTool, grPanTool, grPanCentreTool,
              grMoveFrontBackTool, grResetTool, grResetFrontBackTool, grIsometricTool, grToggleDepthCueingTool,
              grMouseWheelZoomTool>(
        [&]<class Tool>()
        {
            Tool made("", nullptr, nullptr);
            grTwiddleTool& tool = made;
            tool.base_start_twiddle(gwKeyEvent(window, 50, 50, 0, gwPRESSED, gwMOUSE_WHEEL, 1, 1.0));
            tool.base_mouse_event(gwMouseEvent(window, 60, 60));
            tool.base_spaceball_event(gwSpaceballEvent(window, 60, 60, 0, giVector3(1, 1, 1), giVector3(1, 1, 1)));
            EXPECT_EQ(tool.base_idle_event(), grIDLE_DONE);
            tool.base_end_twiddle(gwKeyEvent(window, 99, 99, 0, gwRELEASED, gwMOUSE_BUTTON, 1));
            tool.base_destruction_twiddle();
            EXPECT_EQ(made.detail(), nullptr) << Tool::ut_static_type().name();
        });
    stage.run("turned a; size a");
    const std::vector<std::string> records = stage.take();
    EXPECT_EQ(records.front(), "0");
    EXPECT_EQ(stage.find_view("a")->camera().view_window(), giBox2(-2.005, -1.005, 2.005, 1.005));
}

// The switch is of the process, and is read with the first tool's resources.
TEST(grZoomTool, reads_once_whether_to_reverse_the_drag)
{
    struct ZoomSwitch : grZoomTool
    {
        ZoomSwitch() : grZoomTool("", nullptr, nullptr), the_invert(the_invert_zoom), the_read(the_invert_zoom_read)
        {
            the_invert_zoom = the_invert_zoom_read = 0;
        }
        ~ZoomSwitch() override
        {
            the_invert_zoom = the_invert;
            the_invert_zoom_read = the_read;
        }
        int the_invert, the_read;
    };
    const ZoomSwitch guard;
    for (const char* value : {"yes", "no"})
    {
        tsStage stage;
        stage.run(std::string(scene) + "resource invert_zoom " + value + "; bind zoom; press 1 200 100; move 200 900");
        EXPECT_NEAR(stage.find_view("a")->camera().view_window().width(), 4010, 1e-9) << value;
    }
}

// From a window beside the origin; with control a step is 0.18, so that twenty of them show a share of 1.3e-15.
TEST(grMouseWheelZoomTool, comes_back_from_any_depth_and_never_loses_the_view)
{
    tsStage stage;
    stage.run("window 401 201; view; look a 0 0 4.01 2.01; resource mouse_wheel_zoom_reversible yes; bind no_op");
    const giBox2& window = stage.find_view("a")->camera().view_window();
    const auto turn = [&](int steps, int travel)
    {
        for (int i = 0; i < steps; ++i)
            stage.run("wheel 100 50 " + std::to_string(travel) + " 1");
    };
    const auto expect_start = [&](const char* when)
    {
        for (const double difference : {window.low().x(), window.low().y(), window.high().x() - 4.01,
                                        window.high().y() - 2.01, window.width() / window.height() - 4.01 / 2.01})
            EXPECT_NEAR(difference, 0, 1e-9) << when;
    };
    turn(20, 1);
    turn(20, -1);
    expect_start("from near");
    turn(17, -1);
    turn(17, 1);
    expect_start("from afar");
    turn(200, 1);
    EXPECT_TRUE(window.width() > 0 && window.height() > 0);
    turn(400, -1);
    EXPECT_TRUE(std::isfinite(window.width()) && std::isfinite(window.height()));
    turn(20, 1);
    EXPECT_LT(window.width(), 1e20) << "and comes in again";
}

TEST(grZoomTool, drags_without_end_leave_a_window)
{
    for (const char* const drag : {"press 1 200 100; move 200 0; release", "press 1 200 100; move 200 200; release"})
    {
        tsStage stage;
        stage.run("window 401 201; view; look a 0 0 4.01 2.01; bind zoom");
        for (int i = 0; i < 110; ++i)
            stage.run(drag);
        const giBox2& window = stage.find_view("a")->camera().view_window();
        EXPECT_TRUE(window.width() > 0 && std::isfinite(window.width()) && std::isfinite(window.middle().x())) << drag;
    }
}
