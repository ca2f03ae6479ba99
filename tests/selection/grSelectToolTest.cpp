#include "grSelectTool.h"

#include "../opengl/renderScene.h"
#include "apClockOverride.h"
#include "dgTriangleBlock.h"
#include "grSelection.h"
#include "grSelectionHover.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grView.h"
#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"

#include <gtest/gtest.h>

namespace
{
class Hooks : public grStdTwiddleHooks
{
public:
    void picked(grStdTwiddleTool*, const std::vector<dgPickHit>& hits) override
    {
        told += 'p' + std::to_string(hits.size());
    }
    void selection_changed(grStdTwiddleTool*, grSelection& selection) override
    {
        told += 's' + std::to_string(selection.selected().size());
    }
    std::string told;
};

// Two parts side by side, left and right of x = 32, and what is bound to them.
struct Desk : Scene
{
    explicit Desk(int with_overlay = 0)
        : Scene(64, 48, with_overlay), area(64, 48),
          input_renderer(&window, with_overlay ? window.overlay() : &window, &area), companion(&view)
    {
        view.renderer(&input_renderer);
        add(rectangle(5, 10, 25, 30));
        add(rectangle(40, 10, 60, 30));
        db.set_resource("translations",
                        "mouse_button 1 : trackball mouse_click 1 : select <control> mouse_click 1 : reset "
                        "mouse_double_click 1 : select (toggle) mouse_button 2 : select_box (add)");
        hooks.selection(&selection);
        selection.add_view(&view);
        twiddling = std::make_unique<grStdTwiddling>(&area.input(), &db, &hooks, nullptr);
    }
    ~Desk() { twiddling.reset(); }
    void press(int button, int x, int y, int transition)
    {
        area.input().post(gwKeyEvent(&area, x, y, 0, transition, gwMOUSE_BUTTON, button));
    }
    void drag(int button, int x, int y, int to_x, int to_y)
    {
        press(button, x, y, gwPRESSED);
        area.input().post(gwMouseEvent(&area, to_x, to_y));
        press(button, to_x, to_y, gwRELEASED);
    }
    std::string selected() const
    {
        std::string text;
        for (const dgElementPath& part : selection.selected())
            text += part.back().get() == root->element(0) ? 'l' : 'r';
        return text;
    }

    apClockOverride clock;
    gwHeadlessWindow area;
    dgRenderer input_renderer;
    grView companion;
    gwResourceDB db;
    Hooks hooks;
    grSelection selection;
    std::unique_ptr<grStdTwiddling> twiddling;
};
}

TEST(grSelectTool, is_started_by_clicks_and_not_by_drags)
{
    Desk desk;
    desk.drag(1, 10, 20, 10, 20);
    EXPECT_EQ(desk.selected(), "l");
    EXPECT_EQ(desk.hooks.told, "p1s1");
    desk.clock.advance(1);
    const dgCamera camera = desk.view.camera();
    desk.drag(1, 50, 20, 56, 20);
    EXPECT_EQ(desk.selected(), "l") << "a drag";
    desk.view.camera() = camera;
    desk.press(1, 50, 20, gwPRESSED);
    desk.clock.advance(0.6);
    desk.press(1, 50, 20, gwRELEASED);
    EXPECT_EQ(desk.selected(), "l") << "held too long";
    desk.drag(1, 50, 20, 50, 20);
    EXPECT_EQ(desk.selected(), "r");
    desk.drag(1, 50, 20, 50, 20);
    EXPECT_EQ(desk.selected(), "") << "the second click is a double click, which toggles";
    desk.drag(1, 50, 20, 50, 20);
    EXPECT_EQ(desk.selected(), "r") << "the third is the first of others";
    desk.clock.advance(1);
    desk.drag(1, 32, 40, 32, 40);
    EXPECT_EQ(desk.selected(), "") << "beside";
}

TEST(grSelectBoxTool, selects_what_is_seen_in_the_box)
{
    for (const int with_overlay : {0, 1})
    {
        Desk desk(with_overlay);
        desk.drag(2, 2, 2, 30, 40);
        EXPECT_EQ(desk.selected(), "l");
        desk.drag(2, 62, 40, 34, 2);
        EXPECT_EQ(desk.selected(), "lr");
        desk.drag(2, 30, 40, 33, 45);
        EXPECT_EQ(desk.selected(), "lr");
    }
}

TEST(grSelectionHover, follows_the_pointer_while_no_tool_is_active)
{
    Desk desk;
    const grSelectionHover hover(*desk.twiddling->twiddle_man(), desk.hooks);
    const auto over = [&](int x)
    {
        desk.area.input().post(gwMouseEvent(&desk.area, x, 20));
        return desk.selection.hovered().empty() ? nullptr : desk.selection.hovered().back().get();
    };
    EXPECT_EQ(over(10), desk.root->element(0));
    EXPECT_EQ(over(50), desk.root->element(1));
    EXPECT_EQ(over(32), nullptr);
    desk.press(2, 32, 20, gwPRESSED);
    EXPECT_EQ(over(10), nullptr);
}

TEST(grStdTwiddling, runs_a_tool_on_a_view_by_its_name)
{
    Desk desk;
    EXPECT_EQ(desk.twiddling->run_tool(desk.view, "no such tool"), 0);
    const giXform3 before = desk.view.camera().orientation();
    EXPECT_EQ(desk.twiddling->run_tool(desk.view, "isometric"), 1);
    EXPECT_FALSE(desk.view.camera().orientation() == before);
    EXPECT_EQ(desk.twiddling->twiddle_man()->current_tool(), nullptr);
    const dgView over(&desk.input_renderer);
    EXPECT_EQ(desk.twiddling->run_tool(desk.view, "isometric"), 0) << "no pixel of it is seen";
}

TEST(grShowTool, hides_isolates_and_makes_see_through_what_is_selected)
{
    Desk desk;
    const dgElementPath left{dgRef<dgGraphicalElement>(desk.root->element(0))};
    const dgElementPath right{dgRef<dgGraphicalElement>(desk.root->element(1))};
    desk.selection.select({left});
    const auto show = [&](const char* what)
    {
        EXPECT_EQ(desk.twiddling->run_tool(desk.view, "show", what), 1);
        return std::to_string(desk.selection.is_shown(left)) + std::to_string(desk.selection.is_shown(right)) +
               (desk.selection.opacity(left) < 1 ? " through" : "");
    };
    EXPECT_EQ(show("isolate"), "10");
    EXPECT_EQ(show("isolate"), "11");
    EXPECT_EQ(show("see_through"), "11 through");
    EXPECT_EQ(show("see_through"), "11");
    EXPECT_EQ(show("hide"), "01");
    EXPECT_EQ(desk.selected(), "");
    EXPECT_EQ(show("hide"), "01") << "nothing is selected, nor under the middle";
    EXPECT_EQ(show("all"), "11");
}

TEST(dgView, tells_once_when_another_camera_is_shown)
{
    struct Watcher : coReceiver
    {
        void shown(void*, void*) { ++times; }
        int times = 0;
    } watcher;
    Desk desk;
    desk.draw();
    desk.view.call_list().add(DG_CAMERA_SHOWN, coCallFunc::member<&Watcher::shown>(&watcher));
    desk.draw();
    EXPECT_EQ(watcher.times, 0);
    desk.view.camera().pan_view(giVector2(0.1, 0));
    desk.view.camera().zoom(0.5);
    EXPECT_EQ(watcher.times, 0);
    desk.draw();
    desk.draw();
    EXPECT_EQ(watcher.times, 1);
    desk.drag(1, 10, 20, 30, 20);
    EXPECT_EQ(watcher.times, 2) << "the trackball";
}
