#include "vwScene.h"

#include "vwHooks.h"
#include "vwResources.h"
#include "vwSessionClock.h"

#include "dgClientStructure.h"
#include "dgPolyline.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "grViewOperations.h"
#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace
{
// Four views, 2 by 2, of a line.
class Four
{
public:
    explicit Four(vwSceneSettings settings = {}) : model(new dgClientStructure)
    {
        model->add(new dgPolyline({giPoint3(0, 0, 0), giPoint3(1, 2, 3)}));
        std::string error;
        EXPECT_EQ(vw_load_resources("", db, error), 1) << error;
        db.set_resource("view_index_seconds", "0");
        settings.views = 4; // on a sheet there are as many
        scene = std::make_unique<vwScene>(&window, &window, area, db, *model, settings);
        for (int i = 0; i < 4; ++i)
            before.push_back(scene->view(i).camera());
    }
    // With a button, the left one if no other is named, in a view.
    void drag(int view, int dx, int dy, int modifiers = 0, int button = 1)
    {
        const giPoint2 middle = scene->view(view).camera().view_port_dc().middle();
        const int x = static_cast<int>(middle.x()), y = static_cast<int>(middle.y());
        post(gwMOUSE_BUTTON, button, x, y, gwPRESSED, modifiers);
        area.input().post(gwMouseEvent(&area, x + dx, y + dy, modifiers));
        post(gwMOUSE_BUTTON, button, x + dx, y + dy, gwRELEASED, modifiers);
    }
    void post(gwKeyType type, int number, int x, int y, int transition, int modifiers = 0)
    {
        area.input().post(gwKeyEvent(&area, x, y, modifiers, transition, type, number));
    }
    void press(gwKeyType type, int number, int view)
    {
        const giPoint2 middle = scene->view(view).camera().view_port_dc().middle();
        post(type, number, static_cast<int>(middle.x()), static_cast<int>(middle.y()), gwPRESSED);
        post(type, number, static_cast<int>(middle.x()), static_cast<int>(middle.y()), gwRELEASED);
    }
    // What a view was turned by in world space.
    giXform3 turn(int i) const
    {
        return scene->view(i).camera().orientation() * before[static_cast<std::size_t>(i)].orientation().inverse();
    }
    int turned(int i) const
    {
        return std::abs(turn(i)(0, 0) - 1) + std::abs(turn(i)(1, 1) - 1) + std::abs(turn(i)(2, 2) - 1) > 1e-6;
    }
    double zoomed(int i) const
    {
        return scene->view(i).camera().view_window().width() /
               before[static_cast<std::size_t>(i)].view_window().width();
    }

    dgRef<dgClientStructure> model;
    vwSessionClock clock;
    gwHeadlessWindow area{400, 300};
    dgTraceWindow window{400, 300};
    gwResourceDB db;
    std::unique_ptr<vwScene> scene;
    std::vector<dgCamera> before;
};
}

TEST(vwScene, views_follow_the_first_one_when_it_turns)
{
    Four four;
    four.drag(0, 30, 10);
    ASSERT_TRUE(four.turned(0));
    // Placed as before to the first one: its camera and theirs were turned by the same turn of the world.
    const auto placement = [&](int i)
    { return four.scene->view(i).camera().orientation() * four.scene->view(0).camera().orientation().inverse(); };
    for (int i = 1; i < 4; ++i)
    {
        EXPECT_TRUE(four.turned(i)) << i;
        const auto index = static_cast<std::size_t>(i);
        const giXform3 as_before = four.before[index].orientation() * four.before[0].orientation().inverse();
        for (int k = 0; k < 11; ++k)
            EXPECT_NEAR(placement(i).data()[k], as_before.data()[k], 1e-9) << i << ", element " << k;
    }

    Four second;
    second.drag(1, 30, 10);
    EXPECT_TRUE(second.turned(1));
    EXPECT_FALSE(second.turned(0)) << "the others turn by themselves";
    EXPECT_FALSE(second.turned(2));
}

TEST(vwScene, independent_views_do_not_follow)
{
    vwSceneSettings settings;
    settings.independent = 1;
    Four four(settings);
    four.drag(0, 30, 10);
    EXPECT_TRUE(four.turned(0));
    for (int i = 1; i < 4; ++i)
        EXPECT_FALSE(four.turned(i)) << i;
}

TEST(vwScene, with_multi_every_tool_acts_on_all_views)
{
    vwSceneSettings settings;
    settings.multi = 1;
    Four four(settings);
    four.drag(2, 0, 15, gwMODIFIER_CONTROL);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(four.zoomed(i), std::pow(10.0, -3 * 2 * 15 / 300.0), 1e-9) << i;
    Four single;
    single.drag(2, 0, 15, gwMODIFIER_CONTROL);
    EXPECT_NEAR(single.zoomed(0), 1, 1e-12);
    EXPECT_LT(single.zoomed(2), 0.8);
}

TEST(vwScene, the_left_arrow_leads_back_to_the_start)
{
    Four four;
    four.drag(0, 0, 15, gwMODIFIER_CONTROL);
    EXPECT_LT(four.zoomed(0), 0.8);
    four.press(gwOTHER_KEY, gwKEY_LEFT_ARROW, 0);
    EXPECT_EQ(four.scene->view(0).camera().view_window(), four.before[0].view_window());
}

TEST(vwScene, a_key_shows_one_view_in_perspective_and_back)
{
    vwSceneSettings settings;
    settings.perspective = 1;
    Four four(settings);
    const auto projection = [&](int i) { return four.scene->view(i).camera().projection(); };
    EXPECT_EQ(projection(0), dgPROJECTION_PERSPECTIVE);
    const double shown = four.scene->view(0).camera().view_window().height();
    grViewOperations::fit(four.scene->view(0));
    EXPECT_NEAR(four.scene->view(0).camera().view_window().height() / shown, 1, 1e-9) << "fitted in perspective";
    four.press(gwQWERTY_KEY, 'V', 1);
    EXPECT_EQ(projection(1), dgPROJECTION_PARALLEL);
    EXPECT_EQ(projection(2), dgPROJECTION_PERSPECTIVE);
    four.press(gwQWERTY_KEY, 'V', 1);
    const dgCamera& camera = four.scene->view(1).camera();
    EXPECT_EQ(projection(1), dgPROJECTION_PERSPECTIVE);
    EXPECT_GT(camera.projection_reference_point().z(), camera.front_plane()) << "the eye is in front of everything";
}

TEST(vwScene, views_on_a_sheet_of_paper_are_drawn_over_it_and_go_along_when_it_moves)
{
    vwSceneSettings settings;
    settings.paper = 1;
    Four four(settings);
    const auto port = [&](int i) { return four.scene->view(i).camera().view_port_dc(); };
    const giBox2 before[] = {port(0), port(1), port(2), port(3)};
    EXPECT_EQ(before[0], giBox2(0, 0, 399, 299));
    for (int i = 1; i < 4; ++i)
        EXPECT_TRUE(before[0].contains(before[i].low()) && before[0].contains(before[i].high())) << i;
    four.drag(1, 20, 10, gwMODIFIER_SHIFT);
    EXPECT_EQ(port(1), before[1]) << "inside a view its own picture moves";
    four.post(gwMOUSE_BUTTON, 2, 2, 2, gwPRESSED); // on the desk
    four.area.input().post(gwMouseEvent(&four.area, 32, 12, 0));
    four.post(gwMOUSE_BUTTON, 2, 32, 12, gwRELEASED);
    for (int i = 1; i < 4; ++i)
    {
        EXPECT_NEAR(port(i).low().x() - before[i].low().x(), 30, 1) << i;
        EXPECT_NEAR(port(i).high().y() - before[i].high().y(), 10, 1) << i;
    }
}

TEST(vwHooks, a_sheet_is_drawn_before_the_views_on_it)
{
    vwSceneSettings settings;
    settings.paper = 1;
    Four four(settings);
    vwHooks hooks(four.db, 0, vwREFRESHER_FAST);
    const giPoint2 middle = four.scene->view(1).camera().view_port_dc().middle();
    dgViewcoDList views;
    EXPECT_EQ(hooks.identify_views(gwKeyEvent(&four.area, static_cast<int>(middle.x()), static_cast<int>(middle.y()), 0,
                                              gwPRESSED, gwMOUSE_BUTTON, 1),
                                   views),
              &four.scene->view(1));
    ASSERT_EQ(views.count(), 4);
    EXPECT_EQ(views[3], &four.scene->view(0)); // the last one is drawn first
}

TEST(vwScene, the_isometric_key_changes_nothing_at_first)
{
    Four four;
    four.press(gwQWERTY_KEY, 'I', 0);
    EXPECT_FALSE(four.turned(0));
    EXPECT_EQ(four.scene->view(0).camera().view_window(), four.before[0].view_window());
}
