#include "grCameraViewCache.h"

#include "grCameraViewCacheMan.h"
#include "grStdViewTwiddleTool.h"
#include "grZoomTool.h"
#include "gwResourceDB.h"
#include "tsScene.h"

#include <gtest/gtest.h>

namespace
{
// The camera that shows the square of that size about the origin.
void look(dgView* view, double size)
{
    view->camera().view_window(giBox2(-size, -size, size, size));
}

// The process-wide caches for the life of a test.
struct Caches
{
    explicit Caches(const gwResourceDB* db = nullptr)
    {
        grStdViewTwiddleTool::delete_camera_cache();
        grStdViewTwiddleTool::initialise_cache(db);
    }
    ~Caches() { grStdViewTwiddleTool::delete_camera_cache(); }
};
}

TEST(grSavedCameraPosition, puts_the_look_back_and_leaves_the_place_on_the_screen)
{
    tsScene scene;
    dgView* view = scene.add_view();
    const giXform3 turned = giXform3::rotation(giAngle(0.5), gi_Y_AXIS);
    view->camera().orientation(turned);
    view->camera().front_back_plane(7, -8);
    view->user_clip_planes(1);
    view->camera().projection(dgPROJECTION_PERSPECTIVE);
    view->camera().projection_reference_point(giPoint3(1, 2, 9));
    look(view, 3);
    const grSavedCameraPosition saved(*view);
    EXPECT_EQ(saved.is_position_of(*view), 1);

    view->camera().reset_orientation();
    view->camera().projection(dgPROJECTION_PARALLEL);
    view->camera().projection_reference_point(giPoint3(0, 0, 5));
    view->camera().front_back_plane(1, -1);
    view->user_clip_planes(0);
    look(view, 1);
    const giBox2 resized(0, 0, 9, 9);
    view->camera().view_port_dc(resized);
    EXPECT_EQ(saved.is_position_of(*view), 0);
    saved.restore(*view);
    EXPECT_EQ(saved.is_position_of(*view), 1);
    EXPECT_EQ(view->camera().orientation(), turned);
    EXPECT_EQ(view->camera().front_plane(), 7);
    EXPECT_EQ(view->camera().projection(), dgPROJECTION_PERSPECTIVE);
    EXPECT_EQ(view->camera().projection_reference_point(), giPoint3(1, 2, 9));
    EXPECT_EQ(view->user_clip_planes(), 1);
    EXPECT_EQ(view->camera().view_port_dc(), resized);
}

TEST(grStdViewTwiddleTool, saves_cameras_only_when_its_flags_and_a_manager_allow_it)
{
    tsScene scene;
    dgView* view = scene.add_view();
    grZoomTool tool("", nullptr, nullptr);
    const grStdViewTwiddleTool& base = tool;
    grStdViewTwiddleTool::delete_camera_cache();
    EXPECT_EQ(grStdViewTwiddleTool::camera_cache(view), nullptr);
    base.save_camera(view);

    const Caches caches;
    tool.flags().can_save_camera(0);
    base.save_camera(view);
    EXPECT_EQ(grCameraViewCacheMan::instance()->has_cache(view), 0);
    tool.flags().can_save_camera(1);
    base.save_camera(nullptr);
    base.save_camera(); // no target view
    EXPECT_EQ(grCameraViewCacheMan::instance()->count(), 0);
    base.save_camera(view);
    EXPECT_EQ(grStdViewTwiddleTool::camera_cache(view)->count(), 1);

    // A second assembly of the application keeps what is there.
    grStdViewTwiddleTool::initialise_cache(nullptr);
    EXPECT_EQ(grStdViewTwiddleTool::camera_cache(view)->count(), 1);
    scene.delete_view(0);
    EXPECT_EQ(grCameraViewCacheMan::instance()->count(), 0) << "a view takes its cache with it";
}

TEST(grCameraViewCacheMan, takes_its_size_from_the_resources)
{
    tsScene scene;
    dgView* view = scene.add_view();
    gwResourceDB db;
    for (const auto& [text, capacity] : {std::pair("3", 3), std::pair("0", 50), std::pair("many", 50)})
    {
        db.set_resource("camera_cache_size", text);
        const Caches caches(&db);
        EXPECT_EQ(grStdViewTwiddleTool::camera_cache(view)->capacity(), capacity) << text;
    }
}
