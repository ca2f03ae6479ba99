#include "grApertureTool.h"
#include "grRubberBandManager.h"
#include "grZoomBoxTool.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
// Number of lines drawn over the window since the last call; the scene is not drawn by the recording refresher.
long lines_drawn(tsToolScene& scene)
{
    const long count = std::count(scene.surface().log().begin(), scene.surface().log().end(), "xor draw lines 1 of 1");
    scene.surface().clear_log();
    return count;
}

// What the hooks are told of an aperture, in the common log.
class ApertureHooks : public tsRecordingHooks
{
public:
    explicit ApertureHooks(tsToolScene& scene) : tsRecordingHooks(scene.the_log), the_scene(scene) {}
    void aperture_defined(const gwKeyEvent& first, const gwKeyEvent& second) override
    {
        EXPECT_EQ(first.window(), second.window());
        EXPECT_TRUE(grRubberBandManager::empty()) << "the rectangle is off by now";
        the_scene.the_log.push_back(std::to_string(first.x()) + " " + std::to_string(first.y()) + " to " +
                                    std::to_string(second.x()) + " " + std::to_string(second.y()));
    }

private:
    tsToolScene& the_scene;
};

class ApertureFactory : public grToolFactory
{
public:
    explicit ApertureFactory(tsToolScene& scene) : the_scene(scene), the_hooks(scene) {}
    // A tool that has ended stays current, and must not outlive its hooks.
    ~ApertureFactory() override { the_scene.the_man.delete_current_tool(); }
    int identify_tool(utString) const override { return 1; }
    grTwiddleTool* create_tool(int, const utString& args) const override
    {
        return new grApertureTool(args, nullptr, &the_hooks);
    }

private:
    tsToolScene& the_scene;
    mutable ApertureHooks the_hooks;
};

void bind_aperture(tsToolScene& scene, const ApertureFactory& factory, const char* args)
{
    scene.the_man.remove_actions();
    grAction* action = new grAction(grActionTrigger(gwMOUSE_BUTTON, 1, 0, args), "aperture");
    action->bind(grToolDetail(const_cast<ApertureFactory*>(&factory), 1));
    scene.the_man.actions().add_last(action);
}

// The corners that the hooks were told of since the last look at the log; nothing when they were not.
std::string corners(tsToolScene& scene)
{
    for (const std::string& line : scene.taken_log())
        if (line.find(" to ") != std::string::npos)
            return line;
    return {};
}
}

TEST(grZoomBoxTool, zooms_to_the_rectangle_dragged_out_and_refreshes_only_then)
{
    tsToolScene scene;
    scene.bind<grZoomBoxTool>();
    const giPoint3 corner = scene.world({100, 50}), opposite = scene.world({200, 75});
    scene.press(100, 50);
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "start refresher"}));
    EXPECT_EQ(lines_drawn(scene), 0);
    scene.move(150, 60);
    EXPECT_EQ(scene.taken_log(), tsLog{"mouse"});
    EXPECT_EQ(lines_drawn(scene), 4);
    scene.move(200, 75);
    EXPECT_EQ(lines_drawn(scene), 8) << "the old rectangle is taken off";
    scene.taken_log();
    scene.release(200, 75);
    EXPECT_EQ(lines_drawn(scene), 4);
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "refresh", "end refresher", "end"}));
    EXPECT_TRUE(grRubberBandManager::empty());
    // 100 pixels fill the width of 401 pixels, and the middle comes to the middle.
    const giPoint2 left = scene.device(corner), right = scene.device(opposite);
    EXPECT_NEAR(right.x() - left.x(), 401, 1e-9);
    EXPECT_NEAR((left.x() + right.x()) / 2, tsToolScene::middle_x, 1e-9);
    EXPECT_NEAR((left.y() + right.y()) / 2, tsToolScene::middle_y, 1e-9);
}

TEST(grZoomBoxTool, a_click_or_a_stopped_twiddle_zooms_nothing)
{
    tsToolScene scene;
    scene.bind<grZoomBoxTool>();
    const giBox2 before = scene.camera().view_window();
    scene.press(100, 50);
    scene.release(100, 50);
    EXPECT_EQ(scene.camera().view_window(), before);
    scene.press(100, 50);
    scene.move(200, 75);
    lines_drawn(scene);
    scene.the_man.stop_twiddling();
    EXPECT_EQ(lines_drawn(scene), 4) << "the rectangle is taken off";
    EXPECT_EQ(scene.camera().view_window(), before);
}

TEST(grZoomBoxTool, outlives_a_view_that_closes_during_the_drag)
{
    tsToolScene scene;
    scene.bind<grZoomBoxTool>();
    scene.press(100, 50);
    scene.move(150, 60);
    scene.delete_view();
    lines_drawn(scene);
    scene.move(160, 70);
    scene.release(160, 70);
    EXPECT_EQ(lines_drawn(scene), 0);
    EXPECT_TRUE(grRubberBandManager::empty());
}

TEST(grZoomBoxTool, a_drag_under_suspended_rubber_banding_leaves_no_trace)
{
    const grRubberBandManager manager;
    tsToolScene scene;
    scene.bind<grZoomBoxTool>();
    scene.press(100, 50);
    scene.move(150, 60);
    EXPECT_EQ(lines_drawn(scene), 4);
    grRubberBandManager::suspend_rubber_banding(1);
    scene.move(160, 60);
    EXPECT_EQ(lines_drawn(scene), 0);
    grRubberBandManager::suspend_rubber_banding(0);
    scene.release(160, 60);
    EXPECT_EQ(lines_drawn(scene), 4);
}

TEST(grApertureTool, hands_its_corners_on_between_the_rectangle_and_the_end)
{
    tsToolScene scene;
    const ApertureFactory factory(scene);
    bind_aperture(scene, factory, "");
    const giBox2 before = scene.camera().view_window();
    scene.press(10, 20);
    scene.move(30, 50);
    EXPECT_EQ(lines_drawn(scene), 4);
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "start refresher", "mouse"}));
    scene.release(31, 52);
    EXPECT_EQ(lines_drawn(scene), 4);
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "10 20 to 31 52", "end refresher", "end"}));
    EXPECT_EQ(scene.camera().view_window(), before);
}

TEST(grApertureTool, takes_the_press_for_the_middle_when_told_so)
{
    tsToolScene scene;
    const ApertureFactory factory(scene);
    bind_aperture(scene, factory, "centre");
    scene.press(100, 50);
    scene.release(90, 70);
    EXPECT_EQ(corners(scene), "110 30 to 90 70");
    bind_aperture(scene, factory, "center");
    scene.press(100, 50);
    scene.release(90, 70);
    EXPECT_EQ(corners(scene), "100 50 to 90 70") << "no other word";
    scene.press(100, 50);
    scene.the_man.stop_twiddling();
    EXPECT_EQ(corners(scene), "") << "no release, no aperture";
}
