#include "dgClientStructure.h"
#include "grIsometricTool.h"
#include "grMoveFrontBackTool.h"
#include "grNoOpTool.h"
#include "grResetFrontBackTool.h"
#include "grResetTool.h"
#include "grSpaceballTool.h"
#include "grToggleDepthCueingTool.h"
#include "grViewCubeTool.h"
#include "gwSpaceballEvent.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

namespace
{
constexpr double height = tsToolScene::height;

// Remembers the camera of a view as its callbacks see it.
class CameraWatch : public coReceiver
{
public:
    explicit CameraWatch(dgView* view) : the_view(view)
    {
        view->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&CameraWatch::altered>(this));
    }
    void altered() { the_seen = the_view->camera().orientation(); }
    const giXform3& seen() const { return the_seen; }

private:
    dgView* the_view;
    giXform3 the_seen = giXform3::translation(giVector3(9, 9, 9));
};

const tsLog one_shot_start{"start", "start refresher", "refresh"};
const tsLog common_end{"final frame", "end refresher", "end"};
}

TEST(grResetTool, looks_along_z_again_and_shows_everything)
{
    // The scene's content is a line from the origin to (1, 0, 0).
    tsToolScene scene;
    scene.camera().orientation(giXform3::rotation(giAngle(1), giVector3(1, 2, 3), giPoint3(4, 5, 6)));
    scene.camera().zoom(100);
    scene.bind<grResetTool>();
    const CameraWatch watch(scene.view());
    scene.press(10, 10);
    EXPECT_EQ(scene.taken_log(), one_shot_start);
    // Nothing is turned any more, and the middle of the line is the middle of the view.
    const giXform3& found = scene.camera().orientation();
    EXPECT_TRUE((giPoint3(1, 0, 0) * found - giPoint3(0, 0, 0) * found - giVector3(1, 0, 0)).length() < 1e-12);
    EXPECT_TRUE((giPoint3(0, 1, 0) * found - giPoint3(0, 0, 0) * found - giVector3(0, 1, 0)).length() < 1e-12);
    const giPoint2 left = scene.device(giPoint3(0, 0, 0)), right = scene.device(giPoint3(1, 0, 0));
    EXPECT_NEAR((left.x() + right.x()) / 2, tsToolScene::middle_x, 1e-9);
    EXPECT_GT(right.x() - left.x(), 0.8 * tsToolScene::width);
    EXPECT_LT(right.x(), tsToolScene::width);
    EXPECT_EQ(watch.seen(), found) << "views locked to this one follow what it ends at";
    scene.release(10, 10);
    EXPECT_EQ(scene.taken_log(), common_end);
}

TEST(grIsometricTool, shows_all_axes_at_the_same_slant)
{
    tsToolScene scene;
    scene.camera().orientation(giXform3::rotation(giAngle(1), giVector3(1, 2, 3)));
    scene.bind<grIsometricTool>();
    const CameraWatch watch(scene.view());
    scene.press(10, 10);
    EXPECT_EQ(scene.taken_log(), one_shot_start);
    // The eye sits at (-1, -1, 1): x and y lead away from it to the right and left, z up and towards it. The tilt is
    // rounded in its sixth digit.
    const double s = std::sqrt(0.5), third = std::sqrt(1 / 3.0), sixth = std::sqrt(1 / 6.0);
    const giXform3& found = scene.camera().orientation();
    EXPECT_NEAR((giVector3(1, 0, 0) * found - giVector3(s, sixth, -third)).length(), 0, 1e-5);
    EXPECT_NEAR((giVector3(0, 1, 0) * found - giVector3(-s, sixth, -third)).length(), 0, 1e-5);
    EXPECT_NEAR((giVector3(0, 0, 1) * found - giVector3(0, 2 * sixth, third)).length(), 0, 1e-5);
    EXPECT_EQ((giVector3(0, 0, 1) * found).y(), -std::sin(-0.9553234193716161)) << "the tilt is this very number";
    EXPECT_TRUE(scene.device(giPoint3(0.5, 0, 0)).coincident({tsToolScene::middle_x, tsToolScene::middle_y}, 1e-9));
    EXPECT_EQ(watch.seen(), found);
}

TEST(grMoveFrontBackTool, moves_the_planes_by_a_share_of_their_distance)
{
    // Planes at 3 and -1, 4 apart. Dragged down by 20 pixels: 4 * 2 * 20 / height towards the eye.
    const double step = 4 * 2 * 20 / height;
    const struct
    {
        const char* args;
        int dy;
        double front, back;
    } cases[] = {
        {"front", -20, 3 + step, -1}, {"front", 20, 3 - step, -1},
        {"back", -20, 3, -1 + step},  {"both", -20, 3 + step, -1 + step},
        {"", -20, 3 + step, -1},      {"Back", -20, 3 + step, -1},
        {"both", -5000, 7, 3},        {"both", 5000, -1, -5},
    };
    for (const auto& c : cases)
    {
        tsToolScene scene;
        scene.camera().front_back_plane(3, -1);
        scene.bind<grMoveFrontBackTool>(c.args);
        scene.press(100, 100);
        EXPECT_EQ(scene.view()->user_clip_planes(), 0);
        scene.move(110, 130);
        scene.move(120, 100 + c.dy);
        EXPECT_NEAR(scene.camera().front_plane(), c.front, 1e-12) << c.args << c.dy;
        EXPECT_NEAR(scene.camera().back_plane(), c.back, 1e-12) << c.args << c.dy;
        EXPECT_EQ(scene.view()->user_clip_planes(), 1);

        scene.move(120, 100);
        EXPECT_EQ(scene.camera().front_plane(), 3);
        EXPECT_EQ(scene.camera().back_plane(), -1);
        EXPECT_EQ(scene.view()->user_clip_planes(), 1) << "even where they began";
    }
}

TEST(grResetFrontBackTool, puts_the_planes_around_the_contents_by_the_hooks_mode)
{
    // The line lies along the line of sight now: from 0 to -1.
    const giXform3 along_sight = giXform3::rotation(giAngle(std::acos(0.0)), gi_Y_AXIS);
    for (const dgBoundingViewType mode : {dgBOUNDING_VIEW_BOX, dgBOUNDING_VIEW_SPHERE})
    {
        tsToolScene scene;
        scene.camera().orientation(along_sight);
        dgCamera expected(scene.camera());
        expected.clip_bounding_box(scene.view()->root()->bounding_box(), mode);
        scene.camera().front_back_plane(100, 99);
        scene.view()->user_clip_planes(1);
        scene.the_hooks.clipping_mode(mode);
        scene.bind<grResetFrontBackTool>();
        scene.press(10, 10);
        EXPECT_EQ(scene.taken_log(), one_shot_start);
        EXPECT_EQ(scene.camera().front_plane(), expected.front_plane());
        EXPECT_EQ(scene.camera().back_plane(), expected.back_plane());
        EXPECT_NEAR(scene.camera().front_plane(), 0, 1e-3);
        EXPECT_NEAR(scene.camera().back_plane(), -1, 1e-3);
        EXPECT_EQ(scene.view()->user_clip_planes(), 0) << "the view looks after them again";

        scene.camera().front_back_plane(100, 99);
        scene.view()->render_network(nullptr);
        EXPECT_EQ(scene.camera().front_plane(), expected.front_plane()) << "and fits them in the same mode";
        EXPECT_EQ(scene.camera().back_plane(), expected.back_plane());
    }
}

TEST(grToggleDepthCueingTool, switches_what_the_driver_can_do)
{
    for (const int able : {0, 1})
    {
        tsToolScene scene;
        scene.surface().capability(dgCAPABILITY_DEPTH_CUEING, able);
        scene.bind<grToggleDepthCueingTool>();
        scene.press(10, 10);
        EXPECT_EQ(scene.taken_log(), one_shot_start);
        EXPECT_EQ(scene.renderer().depth_cueing(), able);
        scene.release(10, 10);
        scene.press(10, 10);
        EXPECT_EQ(scene.renderer().depth_cueing(), 0);
    }
}

TEST(grSpaceballTool, lets_what_is_seen_follow_the_ball)
{
    tsToolScene scene;
    const giPoint3 centre(0.5, 0.25, 3);
    scene.the_hooks.the_centre = &centre;
    scene.bind<grSpaceballTool>();
    scene.press(10, 10);
    EXPECT_EQ(scene.taken_log(), (tsLog{"update centre", "start", "start refresher"}));
    const auto push = [&](const giVector3& rotation, const giVector3& translation)
    { scene.the_input.post(gwSpaceballEvent(scene.window(), 10, 10, 0, rotation, translation)); };

    push(giVector3(0, 0.5, 0), giVector3());
    EXPECT_EQ(scene.taken_log(), tsLog{"refresh"});
    const giXform3 turn = giXform3::rotation(giAngle(0.025), gi_Y_AXIS, centre);
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(scene.camera().orientation().data()[i], turn.data()[i], 1e-12);

    // 2 % of the height of the window, 201 pixels, at full deflection.
    const giPoint2 before = scene.device(centre);
    push(giVector3(), giVector3(1, -0.5, 0));
    EXPECT_TRUE(scene.device(centre).coincident(before + giVector2(4.02, -2.01), 1e-9));

    const double window = scene.camera().view_window().height();
    push(giVector3(), giVector3(0, 0, 1));
    EXPECT_NEAR(scene.camera().view_window().height(), window / 1.02, 1e-12);

    scene.taken_log();
    scene.move(50, 50);
    EXPECT_EQ(scene.taken_log(), tsLog());
    scene.release(10, 10);
    EXPECT_EQ(scene.taken_log(), common_end);
    const giXform3 released = scene.camera().orientation();
    push(giVector3(1, 1, 1), giVector3(1, 1, 1));
    EXPECT_EQ(scene.camera().orientation(), released);
}

TEST(grViewCubeTool, only_tells_the_hooks)
{
    tsToolScene scene;
    scene.the_hooks.the_detail_logged = 1;
    scene.bind<grViewCubeTool>();
    scene.press(10, 10);
    scene.move(20, 20);
    scene.release(20, 20);
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "mouse", "final frame", "end"}));
    scene.move(30, 30);
    EXPECT_EQ(scene.taken_log(), tsLog()) << "a cube that was let go does not follow the pointer";
}

TEST(grNoOpTool, holds_other_tools_off_while_its_key_is_held)
{
    tsToolScene scene;
    scene.the_hooks.the_detail_logged = 1;
    scene.bind<grNoOpTool>();
    scene.press(10, 10);
    scene.move(20, 20);
    scene.wheel(20, 20, 1);
    EXPECT_EQ(scene.taken_log(), tsLog());
    EXPECT_EQ(scene.the_man.current_tool_state(), grTWID_TWIDDLING);
}

TEST(grViewTools, stay_inert_without_a_view_under_the_pointer)
{
    tsToolScene scene;
    const auto try_tool = [&](const char* name)
    {
        scene.press(1000, 1000);
        scene.move(50, 50);
        scene.release(50, 50);
        scene.the_man.delete_current_tool();
        EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "destruction"})) << name;
    };
    scene.bind<grResetTool>();
    try_tool("reset");
    scene.bind<grIsometricTool>();
    try_tool("isometric");
    scene.bind<grMoveFrontBackTool>();
    try_tool("move_front_back");
    scene.bind<grResetFrontBackTool>();
    try_tool("reset_front_back");
    scene.bind<grToggleDepthCueingTool>();
    try_tool("toggle_depth_cueing");
    scene.bind<grSpaceballTool>();
    try_tool("spaceball");
}
