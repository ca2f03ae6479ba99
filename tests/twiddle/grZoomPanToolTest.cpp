#include "grPanCentreTool.h"
#include "grPanTool.h"
#include "grZoomTool.h"
#include "tsToolScene.h"

#include <gtest/gtest.h>

namespace
{
constexpr int middle_x = tsToolScene::middle_x, middle_y = tsToolScene::middle_y;
constexpr double height = tsToolScene::height;

// Gives tests the process-wide switch and puts it back.
class ZoomSwitch : public grZoomTool
{
public:
    ZoomSwitch() : grZoomTool("", nullptr, nullptr), the_invert(the_invert_zoom), the_read(the_invert_zoom_read)
    {
        the_invert_zoom = 0;
        the_invert_zoom_read = 0;
    }
    ~ZoomSwitch() override
    {
        the_invert_zoom = the_invert;
        the_invert_zoom_read = the_read;
    }

private:
    int the_invert, the_read;
};

void expect_same(const giPoint2& found, const giPoint2& expected, const char* name)
{
    EXPECT_TRUE(found.coincident(expected, 1e-9)) << name << ": " << found << " instead of " << expected;
}
}

TEST(grZoomTool, zooms_by_a_power_of_the_drag_from_the_press)
{
    const ZoomSwitch guard;
    const struct
    {
        const char* name;
        int y;
        double factor; // of the size of the view window
    } cases[] = {
        {"up comes closer", middle_y + 50, std::pow(10.0, -3 * 2 * 50 / height)},
        {"down goes away", middle_y - 50, std::pow(10.0, 3 * 2 * 50 / height)},
        {"a tenth of a pixel short of half the height", middle_y + 100, std::pow(10.0, -3 * 200 / height)},
        {"beyond half the height no further", middle_y + 101, 1e-3},
        {"far beyond", middle_y + 3000, 1e-3},
        {"far beyond the other way", middle_y - 3000, 1e3},
    };
    for (const auto& c : cases)
    {
        tsToolScene scene;
        scene.bind<grZoomTool>();
        const giBox2 start = scene.camera().view_window();
        scene.press(middle_x, middle_y);
        scene.move(middle_x + 31, middle_y + 17);
        scene.move(middle_x + 30, c.y);
        EXPECT_NEAR(scene.camera().view_window().height() / (start.height() * c.factor), 1, 1e-12) << c.name;
        EXPECT_NEAR(scene.camera().view_window().width() / (start.width() * c.factor), 1, 1e-12) << c.name;

        scene.move(middle_x, middle_y);
        EXPECT_EQ(scene.camera().view_window(), start) << c.name << ", and back";
    }
}

TEST(grZoomTool, reads_once_whether_to_reverse_the_drag)
{
    const ZoomSwitch guard;
    tsToolScene scene;
    scene.the_resources.set_resource("invert_zoom", "yes");
    scene.bind<grZoomTool>();
    const double start = scene.camera().view_window().height();
    scene.press(middle_x, middle_y);
    scene.move(middle_x, middle_y + 1000);
    EXPECT_NEAR(scene.camera().view_window().height() / start, 1e3, 1e-9);
    scene.move(middle_x, middle_y);
    scene.release(middle_x, middle_y);

    scene.the_resources.set_resource("invert_zoom", "no");
    scene.press(middle_x, middle_y);
    scene.move(middle_x, middle_y + 1000);
    EXPECT_NEAR(scene.camera().view_window().height() / start, 1e3, 1e-9);
}

TEST(grZoomTool, forgets_a_pan_made_during_the_drag)
{
    const ZoomSwitch guard;
    tsToolScene scene;
    scene.bind<grZoomTool>();
    scene.press(middle_x, middle_y);
    scene.camera().pan_view(giVector2(0.5, 0));
    scene.move(middle_x, middle_y + 20);
    expect_same(scene.device(giPoint3(0, 0, 0)), giPoint2(middle_x, middle_y), "middle");
}

TEST(grPanTool, moves_the_picture_with_the_pointer)
{
    tsToolScene scene;
    scene.bind<grPanTool>();
    scene.press(150, 60);
    const giPoint3 held = scene.world(giPoint2(150, 60));
    scene.move(160, 70);
    scene.move(333, 3);
    expect_same(scene.device(held), giPoint2(333, 3), "held point");
    scene.move(150, 60);
    expect_same(scene.device(held), giPoint2(150, 60), "back again");
}

TEST(grPanTool, follows_the_pointer_in_a_view_that_is_a_part_of_its_window)
{
    tsToolScene scene;
    scene.camera().view_port_dc(giBox2(100, 50, 299, 199));
    scene.bind<grPanTool>();
    scene.press(150, 60);
    const giPoint3 held = scene.world(giPoint2(150, 60));
    scene.move(250, 190);
    expect_same(scene.device(held), giPoint2(250, 190), "held point");
}

TEST(grZoomAndPanTools, tell_hooks_and_refresher_in_order)
{
    const ZoomSwitch guard;
    for (const int pan : {0, 1})
    {
        tsToolScene scene;
        if (pan)
            scene.bind<grPanTool>();
        else
            scene.bind<grZoomTool>();
        scene.the_hooks.the_detail_logged = 1;
        scene.press(10, 10);
        EXPECT_EQ(scene.taken_log(), (tsLog{"detail", "start", "start refresher"}));
        scene.move(12, 10);
        EXPECT_EQ(scene.taken_log(), (tsLog{"mouse", "refresh"}));
        scene.the_man.idle();
        EXPECT_EQ(scene.taken_log(), (tsLog{"idle refresher", "idle done"}));
        scene.release(12, 10);
        EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "end refresher", "end"}));
        scene.move(50, 50);
        EXPECT_EQ(scene.taken_log(), tsLog());
    }
}

TEST(grZoomAndPanTools, centre_the_point_of_a_click_when_told_so)
{
    const ZoomSwitch guard;
    const struct
    {
        const char* name;
        const char* args;
        int moves; // mouse events between press and release, each at the press point
        int centred;
    } cases[] = {
        {"click", "and_pan_centre", 0, 1},
        {"a mouse event that moves nothing makes it a drag", "and_pan_centre", 1, 0},
        {"not told so", "", 0, 0},
        {"other case", "And_Pan_Centre", 0, 0},
    };
    for (const int pan : {0, 1})
        for (const auto& c : cases)
        {
            tsToolScene scene;
            if (pan)
                scene.bind<grPanTool>(c.args);
            else
                scene.bind<grZoomTool>(c.args);
            const giPoint3 clicked = scene.world(giPoint2(50, 150));
            scene.press(50, 150);
            for (int i = 0; i < c.moves; ++i)
                scene.move(50, 150);
            scene.taken_log();
            scene.release(50, 150);
            const giPoint2 expected = c.centred ? giPoint2(middle_x, middle_y) : giPoint2(50, 150);
            expect_same(scene.device(clicked), expected, c.name);
            tsLog log{"final frame"};
            if (c.centred)
                log.emplace_back("refresh");
            log.insert(log.end(), {"end refresher", "end"});
            EXPECT_EQ(scene.taken_log(), log) << c.name;
        }
}

TEST(grZoomAndPanTools, ignore_the_mouse_once_the_view_is_gone)
{
    const ZoomSwitch guard;
    for (const int pan : {0, 1})
    {
        tsToolScene scene;
        if (pan)
            scene.bind<grPanTool>("and_pan_centre");
        else
            scene.bind<grZoomTool>("and_pan_centre");
        scene.press(50, 50);
        scene.delete_view();
        scene.taken_log();
        scene.move(60, 60);
        EXPECT_EQ(scene.taken_log(), tsLog());
        scene.release(60, 60);
        EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "end refresher", "end"}));
    }
}

TEST(grPanCentreTool, centres_the_point_at_the_press)
{
    tsToolScene scene;
    scene.bind<grPanCentreTool>();
    const giPoint3 clicked = scene.world(giPoint2(50, 150));
    scene.press(50, 150);
    expect_same(scene.device(clicked), giPoint2(middle_x, middle_y), "clicked");
    EXPECT_EQ(scene.taken_log(), (tsLog{"start", "start refresher", "refresh"}));
    scene.release(60, 160);
    expect_same(scene.device(clicked), giPoint2(middle_x, middle_y), "clicked");
    EXPECT_EQ(scene.taken_log(), (tsLog{"final frame", "end refresher", "end"}));
}
