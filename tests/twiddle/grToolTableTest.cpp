#include "dgClientStructure.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "grMouseWheelZoomTool.h"
#include "grStdToolFactory.h"
#include "grStdTwiddling.h"
#include "grWorkPlane.h"
#include "gwSpaceballEvent.h"
#include "tsToolScene.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

// One recorded drag through every tool of the standard factory, from the resource text to the camera. The scene is 401
// x 201 pixels, a world unit is 100 of them, and the world's origin shows at (200, 100).
namespace
{
constexpr double pi = std::numbers::pi;
constexpr double tolerance = 1e-9;

// What a drag leaves.
struct Camera
{
    giXform3 orientation;
    giBox2 window{-2.005, -1.005, 2.005, 1.005};
    double front = 10, back = -30;
};

giBox2 window_about_middle(double factor)
{
    return giBox2(-2.005 * factor, -1.005 * factor, 2.005 * factor, 1.005 * factor);
}

giXform3 turned(gi_Axis axis, double radians)
{
    return giXform3::rotation(giAngle(radians), axis);
}

Camera with_orientation(const giXform3& orientation)
{
    return {orientation, Camera().window};
}

struct Row
{
    const char* name;
    const char* tool; // with arguments
    int x, y;         // of the drag, which starts at the origin (200, 100)
    Camera expected;
};

const Row rows[] = {
    {"the whole height is a whole turn", "rotate_view", 0, 201, {}},
    {"a third of it is a third, and what is near follows", "rotate_view (x_axis)", 0, 67,
     with_orientation(turned(gi_X_AXIS, -2 * pi / 3))},
    {"to the right about y", "rotate_view (y_axis)", 67, 0, with_orientation(turned(gi_Y_AXIS, 2 * pi / 3))},
    {"to the right about z is clockwise", "rotate_view (z_axis)", 67, 0,
     with_orientation(turned(gi_Z_AXIS, -2 * pi / 3))},
    {"about the axis across the travel", "rotate_view (xyz_axis)", 67, 0,
     with_orientation(turned(gi_Y_AXIS, 2 * pi / 3))},
    // On the sphere of radius 0.4 x 401 pixels, 40 pixels from its middle stand for that arc.
    {"40 pixels on the ball", "trackball", 40, 0, with_orientation(turned(gi_Y_AXIS, std::asin(40 / 401.0 / 0.4)))},
    {"20 pixels up on a ball that is half as high", "trackball", 0, 20,
     with_orientation(turned(gi_X_AXIS, -std::asin(20 / 201.0 / 0.4)))},
    {"a third of the height is 10 squared", "zoom", 0, 67, {{}, window_about_middle(0.01)}},
    {"the same down", "zoom", 0, -67, {{}, window_about_middle(100)}},
    {"half the height is the limit of 1000", "zoom", 0, 150, {{}, window_about_middle(0.001)}},
    {"only the vertical drag zooms", "zoom", 150, 0, {}},
    {"the picture moves with the pointer", "pan", 30, -20, {{}, giBox2(-2.305, -0.805, 1.705, 1.205)}},
    {"the pressed point comes to the middle, the drag does nothing", "pan_centre", 50, 50, {}},
    // A third of the height is two thirds of the distance of 40.
    {"up pushes the front plane away", "move_front_back", 0, 67, {{}, Camera().window, 10 - 80 / 3.0, -30}},
    {"or the back plane", "move_front_back (back)", 0, 67, {{}, Camera().window, 10, -30 - 80 / 3.0}},
    {"or both", "move_front_back (both)", 0, 67, {{}, Camera().window, 10 - 80 / 3.0, -30 - 80 / 3.0}},
    {"half the height is the limit", "move_front_back (both)", 0, -150, {{}, Camera().window, 50, 10}},
    // 134 of 401 x 201 pixels to the upper right of the middle: the proportions are the viewport's by the width.
    {"the dragged box fills the view",
     "zoom_box",
     134,
     67,
     {{}, giBox2(0, 0.335 - 0.67 * 201 / 401, 1.34, 0.335 + 0.67 * 201 / 401)}},
    {"the hooks are told, the camera stays", "aperture", 50, 50, {}},
    {"nothing", "no_op", 50, 50, {}},
    {"a change of the renderer alone", "toggle_depth_cueing", 50, 50, {}},
    {"the hooks name no structure", "translate_structure", 50, 50, {}},
    {"the hooks name no structure", "scale_structure", 50, 50, {}},
    {"the hooks name no structure", "rotate_structure", 50, 50, {}},
    {"nothing is saved yet", "view_index (previous)", 50, 50, {}},
    {"a mouse moves no spaceball", "spaceball", 50, 50, {}},
};

void expect_camera(const dgCamera& camera, const Camera& expected, const std::string& name)
{
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(camera.orientation().data()[i], expected.orientation.data()[i], tolerance)
            << name << ", element " << i;
    const double scale = expected.window.width();
    EXPECT_NEAR(camera.view_window().low().x() / scale, expected.window.low().x() / scale, tolerance) << name;
    EXPECT_NEAR(camera.view_window().low().y() / scale, expected.window.low().y() / scale, tolerance) << name;
    EXPECT_NEAR(camera.view_window().high().x() / scale, expected.window.high().x() / scale, tolerance) << name;
    EXPECT_NEAR(camera.view_window().high().y() / scale, expected.window.high().y() / scale, tolerance) << name;
    EXPECT_NEAR(camera.front_plane(), expected.front, tolerance) << name;
    EXPECT_NEAR(camera.back_plane(), expected.back, tolerance) << name;
}

// A scene whose mouse button 1 starts a tool of the standard factory.
class Played
{
public:
    Played(const std::string& tool, int multi)
    {
        scene.camera().front_back_plane(10, -30);
        scene.the_resources.set_resource("translations", utString("mouse_button 1 : " + tool));
        twiddling = std::make_unique<grStdTwiddling>(&scene.the_input, &scene.the_resources, &scene.the_hooks, nullptr);
        grStdToolFactoryOptions options;
        options.use_multi_tools(multi);
        twiddling->factory()->push_options(options);
    }
    // In ten steps.
    void drag(int x, int y)
    {
        scene.press(tsToolScene::middle_x, tsToolScene::middle_y);
        for (int i = 1; i <= 10; ++i)
            scene.move(tsToolScene::middle_x + x * i / 10, tsToolScene::middle_y + y * i / 10);
        scene.release(tsToolScene::middle_x + x, tsToolScene::middle_y + y);
    }

    tsToolScene scene;
    std::unique_ptr<grStdTwiddling> twiddling;
};
}

TEST(grStdTools, turn_zoom_and_move_as_reckoned_by_hand)
{
    for (const Row& row : rows)
        for (int multi : {0, 1})
        {
            Played played(row.tool, multi);
            if (std::string(row.tool).starts_with("trackball"))
            {
                // A path over the ball has its own length; one step is the arc.
                played.scene.press(tsToolScene::middle_x, tsToolScene::middle_y);
                played.scene.move(tsToolScene::middle_x + row.x, tsToolScene::middle_y + row.y);
            }
            else
                played.drag(row.x, row.y);
            expect_camera(played.scene.camera(), row.expected,
                          std::string(row.tool) + ": " + row.name + (multi ? ", multi" : ""));
        }
}

TEST(grStdTools, wheel_steps_zoom_by_their_factors)
{
    const struct
    {
        double delta;
        int modifiers;
        double factor;
    } steps[] = {{1, 0, 0.9}, {1, gwMODIFIER_CONTROL, 0.18}, {-1, 0, 1.1}, {-1, gwMODIFIER_CONTROL, 5.5}};
    const apClockOverride clock(1e9);
    grMouseWheelZoomTool::reread_resources(nullptr);
    for (const auto& step : steps)
        for (int multi : {0, 1})
        {
            Played played("no_op", multi);
            played.scene.wheel(20, 30, step.delta, step.modifiers);
            expect_camera(played.scene.camera(), {{}, window_about_middle(step.factor)}, std::to_string(step.factor));
        }
    grMouseWheelZoomTool::reread_resources(nullptr);
}

TEST(grStdTools, isometric_turns_by_45_and_54_7_degrees_and_fits)
{
    for (int multi : {0, 1})
    {
        Played played("isometric", multi);
        // A line of length 1 along x, from the origin.
        played.drag(50, 50);
        const giXform3& orientation = played.scene.camera().orientation();
        const giVector3 x = orientation.transform(giVector3(1, 0, 0)), y = orientation.transform(giVector3(0, 1, 0)),
                        z = orientation.transform(giVector3(0, 0, 1));
        EXPECT_NEAR(x.x(), std::cos(pi / 4), 1e-12);
        EXPECT_NEAR(y.x(), -std::sin(pi / 4), 1e-12);
        EXPECT_NEAR(z.x(), 0, 1e-12);
        EXPECT_NEAR(z.y(), std::sin(0.9553234193716161), 1e-12);
        EXPECT_NEAR(z.z(), std::cos(0.9553234193716161), 1e-12);
        const giPoint3 middle = giPoint3(0.5, 0, 0) * orientation;
        EXPECT_NEAR(middle.x(), 0, 1e-12);
        EXPECT_NEAR(middle.y(), 0, 1e-12);
    }
}

TEST(grStdTools, reset_looks_along_z_again_and_fits)
{
    for (int multi : {0, 1})
    {
        Played played("reset", multi);
        played.scene.camera().orientation(turned(gi_Y_AXIS, 1));
        played.drag(0, 0);
        const giXform3& orientation = played.scene.camera().orientation();
        EXPECT_EQ(orientation.transform(giVector3(1, 0, 0)), giVector3(1, 0, 0));
        EXPECT_NEAR((giPoint3(0.5, 0, 0) * orientation).x(), 0, 1e-12) << "the middle of what there is";
        EXPECT_NEAR(played.scene.camera().view_window().width(), 1.05, 0.01) << "with the margin of the fit";
    }
}

TEST(grStdTools, the_spaceball_turns_and_moves)
{
    for (int multi : {0, 1})
    {
        Played played("no_op", multi);
        tsToolScene& scene = played.scene;
        scene.the_input.post(gwKeyEvent(scene.window(), 200, 100, 0, gwPRESSED, gwSPACEBALL_BUTTON, gwSPACEBALL_MOVED));
        scene.the_input.post(gwSpaceballEvent(scene.window(), 200, 100, 0, giVector3(0, 1, 0), giVector3()));
        expect_camera(scene.camera(), with_orientation(turned(gi_Y_AXIS, 0.05)), "full deflection about y");
        scene.the_input.post(
            gwSpaceballEvent(scene.window(), 200, 100, 0, giVector3(0, -0.5, 0), giVector3(), 2 / 60.0));
        expect_camera(scene.camera(), {}, "half of it for twice the time, back");
        scene.the_input.post(gwSpaceballEvent(scene.window(), 200, 100, 0, giVector3(), giVector3(0, 0, 1)));
        expect_camera(scene.camera(), {{}, window_about_middle(1 / 1.02)}, "pulled");
    }
}

TEST(grStdTools, wheel_keeps_the_point_under_the_cursor)
{
    const apClockOverride clock(1e9);
    gwResourceDB db;
    db.set_resource("mouse_wheel_zoom_centre", "no");
    grMouseWheelZoomTool::reread_resources(&db);
    for (const dgProjection projection : {dgPROJECTION_PARALLEL, dgPROJECTION_PERSPECTIVE})
    {
        Played played("no_op", 0);
        tsToolScene& scene = played.scene;
        scene.camera().view_port_dc(giBox2(37, 21, 311, 180));
        scene.camera().projection(projection);
        scene.camera().projection_reference_point(giPoint3(0.3, -0.2, 7));
        scene.camera().orientation(turned(gi_X_AXIS, 0.7) * turned(gi_Y_AXIS, 0.4));
        // Where the pointer is taken to be.
        const giPoint2 pointer(80.5, 149);
        const giPoint3 world = scene.world(pointer);
        // In steps of 0.9 and 1.1, the picture gets larger and smaller by up to a million times.
        for (int i = 0; i < 1000; ++i)
        {
            scene.wheel(80, 150, (i / 125) % 2 == 0 ? 1 : -1);
            const giPoint2 shown = scene.device(world);
            ASSERT_NEAR(shown.x(), pointer.x(), 0.1) << "step " << i;
            ASSERT_NEAR(shown.y(), pointer.y(), 0.1) << "step " << i;
        }
    }
    grMouseWheelZoomTool::reread_resources(nullptr);
}

namespace
{
// Hooks that name a structure to be moved.
class StructureHooks : public grStdTwiddleHooks
{
public:
    explicit StructureHooks(dgStructure* structure) : the_structure(structure) {}
    dgStructure* identify_structure() override { return the_structure; }
    grWorkPlane* identify_workplane() override { return the_workplane; }
    grWorkPlane* the_workplane = nullptr;

private:
    dgStructure* the_structure;
};

// A line from (0, 0, 0) to (1, 0, 0) that is called under a transform: twice as large, turned to lie along y, and
// beginning at (1, 0, 0).
class StructureScene
{
public:
    explicit StructureScene(const std::string& tool)
    {
        placement = giXform3::scaling(2) * turned(gi_Z_AXIS, pi / 2) * giXform3::translation(giVector3(1, 0, 0));
        part = tsLine(1);
        root = dgRef<dgStructure>(new dgClientStructure);
        root->add(new dgTransform(placement));
        root->add(new dgStructureCall(part.get()));
        scene.view()->root(root.get());
        scene.camera().orientation(turned(gi_X_AXIS, -pi / 2));
        hooks = std::make_unique<StructureHooks>(part.get());
        scene.the_resources.set_resource("translations", utString("mouse_button 1 : " + tool));
        twiddling = std::make_unique<grStdTwiddling>(&scene.the_input, &scene.the_resources, hooks.get(), nullptr);
    }
    /// Where a point of the part is in the world now.
    giPoint3 world(const giPoint3& p) const
    {
        const dgTransform* own = ut_cast<dgTransform>(part->element(0));
        return p * (own ? own->transform() * placement : placement);
    }
    void drag(int x0, int y0, int x1, int y1)
    {
        scene.press(x0, y0);
        for (int i = 1; i <= 4; ++i)
            scene.move(x0 + (x1 - x0) * i / 4, y0 + (y1 - y0) * i / 4);
        scene.release(x1, y1);
    }

    giXform3 placement;
    dgRef<dgStructure> part, root;
    tsToolScene scene;
    std::unique_ptr<StructureHooks> hooks;
    std::unique_ptr<grStdTwiddling> twiddling;
};

void expect_point(const giPoint3& p, const giPoint3& expected)
{
    EXPECT_TRUE(p.coincident(expected, 1e-9)) << p << " is not " << expected;
}
}

TEST(grStructureTools, translate_keeps_the_structure_under_the_pointer)
{
    // The camera looks along world y: pixels to the right are x, upwards z.
    StructureScene s("translate_structure");
    s.drag(100, 100, 140, 180);
    expect_point(s.world(giPoint3(0, 0, 0)), giPoint3(1.4, 0, 0.8));
    expect_point(s.world(giPoint3(1, 0, 0)), giPoint3(1.4, 2, 0.8));
    s.drag(10, 20, 10, 10);
    expect_point(s.world(giPoint3(0, 0, 0)), giPoint3(1.4, 0, 0.7));
    EXPECT_EQ(s.part->nelements(), 2) << "the transform made by the first drag is used again";
    EXPECT_EQ(s.scene.camera().orientation(), turned(gi_X_AXIS, -pi / 2)) << "the camera stays";
}

TEST(grStructureTools, translate_in_perspective_and_along_a_workplane)
{
    StructureScene s("translate_structure");
    s.scene.camera().projection(dgPROJECTION_PERSPECTIVE);
    const giPoint3 middle(1, 1, 0); // of the part; it shows where it is grabbed
    s.scene.camera().orientation(turned(gi_X_AXIS, 0.9));
    const giPoint2 grabbed = s.scene.device(middle);
    const int x = static_cast<int>(grabbed.x()), y = static_cast<int>(grabbed.y());
    grWorkPlane floor(giPoint3(0, 0, 0), giVector3(0, 0, 1));
    for (grWorkPlane* workplane : {static_cast<grWorkPlane*>(nullptr), &floor})
    {
        s.hooks->the_workplane = workplane;
        const giPoint3 before = s.world(giPoint3(0.5, 0, 0));
        const giPoint2 before_device = s.scene.device(before);
        s.drag(x, y, x - 60, y + 30);
        const giPoint3 after = s.world(giPoint3(0.5, 0, 0));
        if (workplane)
        {
            // It is moved along the floor, as far as the pointer on the floor.
            EXPECT_NEAR(after.z(), before.z(), 1e-9);
        }
        else
        {
            const giPoint2 moved = s.scene.device(after);
            EXPECT_NEAR(moved.x() - before_device.x(), -60, 1e-6);
            EXPECT_NEAR(moved.y() - before_device.y(), 30, 1e-6);
        }
        EXPECT_GT((after - before).length(), 0.1);
    }
}

TEST(grStructureTools, scale_and_rotate_about_the_middle_or_the_workplane)
{
    {
        StructureScene s("scale_structure");
        // A third of the height is two thirds of a power of ten; the middle of the part is (1, 1, 0).
        s.drag(0, 50, 0, 117);
        const double factor = std::pow(10.0, 2 / 3.0);
        expect_point(s.world(giPoint3(0, 0, 0)), giPoint3(1, 1 - factor, 0));
        expect_point(s.world(giPoint3(1, 0, 0)), giPoint3(1, 1 + factor, 0));
    }
    {
        StructureScene s("scale_structure");
        grWorkPlane workplane(giPoint3(1, 0, 0), giVector3(0, 0, 1));
        s.hooks->the_workplane = &workplane;
        s.drag(0, 150, 0, 0);
        expect_point(s.world(giPoint3(0, 0, 0)), giPoint3(1, 0, 0));
        expect_point(s.world(giPoint3(1, 0, 0)), giPoint3(1, 0.2, 0));
    }
    {
        StructureScene s("rotate_structure (z_axis)");
        s.scene.camera().orientation(giXform3());
        // A third of a turn clockwise about the middle (1, 1, 0).
        s.drag(20, 20, 87, 20);
        const double a = -2 * pi / 3;
        expect_point(s.world(giPoint3(1, 0, 0)), giPoint3(1 - std::sin(a), 1 + std::cos(a), 0));
    }
    {
        StructureScene s("rotate_structure");
        s.scene.camera().orientation(giXform3());
        // The middle (1, 1, 0) shows at (300, 200), and the ball's radius is 0.4 x 201 pixels.
        s.scene.press(300, 200);
        s.scene.move(300, 160);
        const double a = std::asin(40 / 201.0 / 0.4);
        expect_point(s.world(giPoint3(1, 0, 0)), giPoint3(1, 1 + std::cos(a), std::sin(a)));
    }
}

TEST(grStructureTools, let_go_of_a_closed_view)
{
    for (const char* tool : {"translate_structure", "scale_structure", "rotate_structure"})
    {
        StructureScene s(tool);
        s.scene.press(20, 20);
        s.scene.delete_view();
        s.scene.the_input.post(gwMouseEvent(s.scene.window(), 60, 60));
        s.scene.release(80, 80);
        expect_point(s.world(giPoint3(0, 0, 0)), giPoint3(1, 0, 0));
    }
}
