#include "grCameraViewCache.h"
#include "grMouseWheelZoomTool.h"
#include "grMultiIsometricTool.h"
#include "grMultiMouseWheelZoomTool.h"
#include "grMultiMoveFrontBackTool.h"
#include "grMultiPanCentreTool.h"
#include "grMultiPanTool.h"
#include "grMultiResetFrontBackTool.h"
#include "grMultiResetTool.h"
#include "grMultiRotateViewTool.h"
#include "grMultiSpaceballTool.h"
#include "grMultiToggleDepthCueingTool.h"
#include "grMultiTrackballTool.h"
#include "grMultiViewIndexTool.h"
#include "grMultiZoomBoxTool.h"
#include "grMultiZoomTool.h"
#include "grView.h"
#include "gwSpaceballEvent.h"
#include "tsToolScene.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

// Three views that the hooks group: the target of 401 x 201 pixels, one on a window of 800 x 600, and one in a corner
// of that window. All start with windows, planes and orientations of their own.
namespace
{
constexpr double pi = std::numbers::pi;

class GroupScene : public tsToolScene
{
public:
    GroupScene()
    {
        the_scene.add_view(the_scene.add_window(800, 600));
        the_scene.add_view(2, giBox2(0, 0, 99, 149));
        other(1).view_window(giBox2(-8, -6, 8, 6));
        other(1).front_back_plane(1, -1);
        other(2).view_window(giBox2(1, 1, 2, 2.5));
        other(2).front_back_plane(6, 4);
        other(2).orientation(giXform3::rotation(giAngle(1), gi_Y_AXIS));
        camera().front_back_plane(10, -30);
        the_hooks.the_grouped_views = {the_scene.view(1), the_scene.view(2)};
    }
    dgCamera& other(int i) { return the_scene.view(i)->camera(); }
    void drag(int x0, int y0, int x1, int y1)
    {
        press(x0, y0);
        for (int i = 1; i <= 4; ++i)
            move(x0 + (x1 - x0) * i / 4, y0 + (y1 - y0) * i / 4);
        release(x1, y1);
    }
};

void expect_same(const giXform3& a, const giXform3& b)
{
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(a.data()[i], b.data()[i], 1e-9) << "element " << i;
}
}

TEST(grMultiTools, views_of_all_sizes_zoom_by_one_factor_from_their_own_starts)
{
    GroupScene scene;
    scene.bind<grMultiZoomTool>();
    scene.drag(50, 20, 50, 87);
    const double factor = 0.01; // 67 of the target's 201 pixels, also where the renderer has 600
    EXPECT_NEAR(scene.camera().view_window().width() / 4.01, factor, 1e-12);
    EXPECT_NEAR(scene.other(1).view_window().width() / 16, factor, 1e-12);
    EXPECT_NEAR(scene.other(2).view_window().width() / 1, factor, 1e-12);
    EXPECT_NEAR(scene.other(2).view_window().middle().x(), 1.5, 1e-12);
    EXPECT_NEAR(scene.other(2).view_window().middle().y(), 1.75, 1e-12);
}

TEST(grMultiTools, pictures_move_by_the_same_pixels)
{
    GroupScene scene;
    scene.bind<grMultiPanTool>();
    scene.drag(50, 20, 90, 0);
    EXPECT_NEAR(scene.camera().view_window().low().x(), -2.005 - 0.4, 1e-12);
    EXPECT_NEAR(scene.other(1).view_window().low().x(), -8 - 40 * 16 / 800.0, 1e-12);
    EXPECT_NEAR(scene.other(1).view_window().low().y(), -6 + 20 * 12 / 600.0, 1e-12);
    EXPECT_NEAR(scene.other(2).view_window().low().x(), 1 - 40 / 100.0, 1e-12);

    scene.bind<grMultiPanCentreTool>();
    const giBox2 before = scene.other(1).view_window();
    scene.press(150, 120); // 50 pixels left of the target's middle and 20 above it
    EXPECT_NEAR(scene.other(1).view_window().low().x(), before.low().x() - 50 * 16 / 800.0, 1e-12);
    EXPECT_NEAR(scene.other(1).view_window().low().y(), before.low().y() + 20 * 12 / 600.0, 1e-12);
    scene.release(150, 120);

    scene.bind<grMultiPanTool>("and_pan_centre");
    scene.press(150, 120);
    scene.release(150, 120);
    EXPECT_NEAR(scene.other(1).view_window().low().x(), before.low().x() - 100 * 16 / 800.0, 1e-12);
}

TEST(grMultiTools, views_turn_about_their_own_centres)
{
    GroupScene scene;
    scene.bind<grMultiRotateViewTool>("y_axis");
    const giPoint3 centre = scene.other(2).view_centre();
    const giXform3 before = scene.other(2).orientation();
    scene.drag(50, 50, 117, 50);
    expect_same(scene.camera().orientation(), giXform3::rotation(giAngle(2 * pi / 3), gi_Y_AXIS));
    const giXform3 turn = giXform3::rotation(giAngle(2 * pi * 67 / 600), gi_Y_AXIS, centre * before);
    expect_same(scene.other(2).orientation(), before * turn);
    EXPECT_TRUE(scene.other(2).view_centre().coincident(centre, 1e-9));

    // The ball is the target's: 40 of 401 pixels are the same turn for all.
    GroupScene rolled;
    rolled.bind<grMultiTrackballTool>();
    rolled.press(200, 100);
    rolled.move(240, 100);
    const giAngle arc(std::asin(40 / 401.0 / 0.4));
    expect_same(rolled.camera().orientation(), giXform3::rotation(arc, gi_Y_AXIS));
    expect_same(rolled.other(1).orientation(), giXform3::rotation(arc, gi_Y_AXIS));
    expect_same(rolled.other(2).orientation(), before * giXform3::rotation(arc, gi_Y_AXIS, centre * before));
}

TEST(grMultiTools, views_spin_together)
{
    apClockOverride clock(10);
    GroupScene scene;
    scene.the_hooks.allow_spinning(1);
    const auto spin_with = [&]<class Tool>(Tool*)
    {
        scene.bind<Tool>("y_axis");
        scene.other(1).orientation(giXform3());
        scene.press(180, 100);
        for (int x = 184; x <= 200; x += 4)
        {
            clock.advance(1 / 64.0);
            scene.move(x, 100);
        }
        clock.advance(1 / 64.0);
        scene.release(200, 100);
        const giXform3 released = scene.other(1).orientation();
        EXPECT_EQ(scene.the_man.idle(), grIDLE_AGAIN);
        const giXform3 once = scene.other(1).orientation();
        scene.the_man.idle();
        EXPECT_NE(once, released) << Tool::ut_static_type().name();
        expect_same(released.inverse() * once, once.inverse() * scene.other(1).orientation());
        scene.the_man.stop_twiddling();
    };
    spin_with(static_cast<grMultiTrackballTool*>(nullptr));
    spin_with(static_cast<grMultiRotateViewTool*>(nullptr));
}

TEST(grMultiTools, planes_move_by_shares_of_their_own_distances)
{
    GroupScene scene;
    scene.bind<grMultiMoveFrontBackTool>("both");
    scene.drag(50, 20, 50, 87);
    EXPECT_NEAR(scene.camera().front_plane(), 10 - 40 * 2 / 3.0, 1e-9);
    EXPECT_NEAR(scene.other(1).front_plane(), 1 - 2 * 2 * 67 / 600.0, 1e-9);
    EXPECT_NEAR(scene.other(2).back_plane(), 4 - 2 * 2 * 67 / 600.0, 1e-9);
    EXPECT_EQ(scene.the_scene.view(2)->user_clip_planes(), 1);
    scene.bind<grMultiResetFrontBackTool>();
    scene.press(50, 50);
    EXPECT_EQ(scene.the_scene.view(2)->user_clip_planes(), 0);
    EXPECT_EQ(scene.view()->user_clip_planes(), 0);
}

TEST(grMultiTools, resets_and_isometric_reach_all_before_the_one_refresh)
{
    GroupScene scene;
    scene.bind<grMultiIsometricTool>();
    scene.press(50, 50);
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "start refresher", "refresh"}));
    const giVector3 z = scene.camera().orientation().transform(giVector3(0, 0, 1));
    for (int i : {1, 2})
        EXPECT_EQ(scene.other(i).orientation().transform(giVector3(0, 0, 1)), z);
    scene.bind<grMultiResetTool>();
    scene.press(50, 50);
    for (int i : {1, 2})
        EXPECT_EQ(scene.other(i).orientation().transform(giVector3(0, 0, 1)), giVector3(0, 0, 1));
}

TEST(grMultiTools, depth_cueing_of_a_shared_renderer_is_switched_once)
{
    GroupScene scene;
    for (int i : {1, 2})
        scene.the_scene.window(i).capability(dgCAPABILITY_DEPTH_CUEING, 1);
    scene.bind<grMultiToggleDepthCueingTool>();
    scene.press(50, 50);
    EXPECT_EQ(scene.the_scene.renderer(1).depth_cueing(), 1);
    EXPECT_EQ(scene.the_scene.renderer(2).depth_cueing(), 1);
}

TEST(grMultiTools, wheel_measures_against_the_target)
{
    const apClockOverride clock(1e9);
    gwResourceDB db;
    db.set_resource("mouse_wheel_zoom_centre", "no");
    grMouseWheelZoomTool::reread_resources(&db);
    GroupScene scene;
    scene.bind<grMultiMouseWheelZoomTool>();
    scene.wheel(100, 51, 1);
    EXPECT_EQ(scene.the_man.current_tool(), nullptr) << "a step and over";
    // The pointer stands at a quarter of the target, so that the picture of all shrinks towards their quarters: the
    // shift by a share moves the window's middle by that share of 0.1 of its size.
    const double share = (200 - 100.5) / 401;
    EXPECT_NEAR(scene.other(1).view_window().width(), 16 * 0.9, 1e-12);
    EXPECT_NEAR(scene.other(1).view_window().middle().x(), -16 * share * 0.1, 1e-12);
    EXPECT_NEAR(scene.camera().view_window().middle().x(), -4.01 * share * 0.1, 1e-12);
    grMouseWheelZoomTool::reread_resources(nullptr);
}

TEST(grMultiTools, zoom_to_the_same_share_of_their_viewports)
{
    GroupScene scene;
    scene.bind<grMultiZoomBoxTool>();
    // The right half of the target: the box is as high as the viewport, so that it moves and keeps its size.
    const double left = 200.5 - 0.5, right = 400.5 - 0.5;
    scene.press(static_cast<int>(left), 0);
    scene.move(300, 50);
    EXPECT_EQ(scene.other(1).view_window(), giBox2(-8, -6, 8, 6)) << "at the release";
    scene.release(static_cast<int>(right), 200);
    EXPECT_NEAR(scene.camera().view_window().middle().x(), 1, 1e-9);
    EXPECT_NEAR(scene.other(1).view_window().middle().x(), 16 * 100 / 401.0, 1e-9);
    EXPECT_NEAR(scene.other(1).view_window().height(), 12 * 200 / 201.0, 1e-9);

    const giBox2 before = scene.other(1).view_window();
    scene.press(100, 100);
    scene.release(101, 100);
    EXPECT_EQ(scene.other(1).view_window(), before) << "a click";
}

TEST(grMultiTools, the_spaceball_turns_all)
{
    GroupScene scene;
    scene.bind<grMultiSpaceballTool>();
    scene.press(50, 50);
    scene.the_input.post(gwSpaceballEvent(scene.window(), 50, 50, 0, giVector3(0, 1, 0), giVector3()));
    const giXform3 turn = giXform3::rotation(giAngle(0.05), gi_Y_AXIS);
    expect_same(scene.other(1).orientation(), turn);
    expect_same(scene.camera().orientation(), turn);
}

TEST(grMultiTools, hooks_update_the_centre_of_every_view)
{
    GroupScene scene;
    const tsLog expected{"update centre", "start", "start refresher", "update centre", "update centre"};
    scene.bind<grMultiSpaceballTool>();
    scene.press(50, 50);
    EXPECT_EQ(scene.taken_log(), expected);
    scene.release(50, 50);
    scene.bind<grMultiTrackballTool>();
    scene.the_man.delete_current_tool();
    scene.taken_log();
    scene.press(50, 50);
    EXPECT_EQ(scene.taken_log(), expected);
}

TEST(grMultiTools, a_view_closed_in_the_drag_leaves_the_others_their_own_starts)
{
    GroupScene scene;
    scene.bind<grMultiZoomTool>();
    scene.press(50, 20);
    scene.move(50, 30);
    scene.the_scene.delete_view(1);
    scene.move(50, 87);
    EXPECT_NEAR(scene.other(2).view_window().width(), 0.01, 1e-12);

    GroupScene turned;
    turned.bind<grMultiRotateViewTool>("y_axis");
    const giPoint3 centre = turned.other(2).view_centre();
    turned.press(50, 50);
    turned.the_scene.delete_view(1);
    turned.move(80, 50);
    EXPECT_TRUE(turned.other(2).view_centre().coincident(centre, 1e-9));
    EXPECT_NE(turned.other(2).orientation(), giXform3::rotation(giAngle(1), gi_Y_AXIS));
    turned.delete_view();
    const giXform3 left = turned.other(2).orientation();
    turned.move(120, 50);
    turned.release(120, 50);
    EXPECT_EQ(turned.other(2).orientation(), left) << "without a target nothing moves";
}

TEST(grMultiTools, locked_views_are_left_out)
{
    GroupScene scene;
    grView companion(scene.the_scene.view(1));
    companion.add_twiddle_lock(grMultiPanTool::ut_static_type());
    const giBox2 before = scene.other(1).view_window();
    scene.bind<grMultiPanTool>();
    scene.drag(50, 20, 90, 0);
    EXPECT_EQ(scene.other(1).view_window(), before);
    EXPECT_NE(scene.other(2).view_window(), giBox2(1, 1, 2, 2.5));
}

TEST(grMultiTools, cameras_of_all_are_saved)
{
    grStdViewTwiddleTool::initialise_cache(nullptr);
    GroupScene scene;
    scene.bind<grMultiTrackballTool>();
    scene.drag(50, 50, 100, 100);
    for (int i = 0; i < 3; ++i)
    {
        const grCameraViewCache& cache = *grStdViewTwiddleTool::camera_cache(scene.the_scene.view(i));
        ASSERT_EQ(cache.count(), 1) << i;
        EXPECT_EQ(cache.current()->is_position_of(*scene.the_scene.view(i)), 1);
    }
    grStdViewTwiddleTool::delete_camera_cache();
}
