#include "grStdTwiddleHooks.h"

#include "dgClientStructure.h"
#include "grIsometricTool.h"
#include "grPanTool.h"
#include "grStdToolFactory.h"
#include "grStdViewTwiddleTool.h"
#include "grStructureTwiddleDetail.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTrackballTool.h"
#include "grTwiddleMan.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "grViewTwiddleDetail.h"
#include "gwMouseEvent.h"
#include "tsScene.h"

#include <gtest/gtest.h>

namespace
{
using Views = std::vector<dgView*>;

Views as_vector(const dgViewcoDList& views)
{
    return Views(views.begin(), views.end());
}

// Hooks that write down in which order they ask themselves.
class Hooks : public grStdTwiddleHooks
{
public:
    grViewRefresher* view_refresher(const grStdTwiddleTool* tool, const dgViewcoDList& views) override
    {
        the_calls += "refresher ";
        the_views = as_vector(views);
        return grStdTwiddleHooks::view_refresher(tool, views);
    }
    grWorkPlane* identify_workplane() override
    {
        the_calls += "workplane ";
        return nullptr;
    }
    dgStructure* identify_structure() override
    {
        the_calls += "structure ";
        return the_structure.get();
    }

    std::string the_calls;
    Views the_views;
    dgRef<dgStructure> the_structure;
};

gwKeyEvent press_at(tsScene& scene, int x, int y)
{
    return gwKeyEvent(&scene.input_window(), x, y, 0, gwPRESSED, gwMOUSE_BUTTON, 1);
}

// A sheet over the whole window with two overlapping paper children: one at (10, 10) to (49, 49), one at (40, 40) to
// (89, 89). The display views lie in that order, so that the second child is on top.
struct PaperScene
{
    tsScene scene;
    dgView* sheet_view = scene.add_view();
    dgView* first_view = scene.add_view(0, giBox2(10, 10, 49, 49));
    dgView* second_view = scene.add_view(0, giBox2(40, 40, 89, 89));
    std::unique_ptr<grViewPaperParent> sheet = std::make_unique<grViewPaperParent>(sheet_view);
    std::unique_ptr<grViewPaperChild> first = std::make_unique<grViewPaperChild>(first_view, sheet.get());
    std::unique_ptr<grViewPaperChild> second = std::make_unique<grViewPaperChild>(second_view, sheet.get());
};
}

TEST(grStdTwiddleHooks, identify_views_finds_the_view_under_the_pointer)
{
    tsScene scene;
    dgView* left = scene.add_view(0, giBox2(0, 0, 49, 99));
    dgView* right = scene.add_view(0, giBox2(50, 0, 99, 99));
    scene.window().capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    grStdTwiddleHooks hooks;
    dgViewcoDList views;
    EXPECT_EQ(hooks.identify_views(press_at(scene, 49, 5), views), left);
    EXPECT_EQ(as_vector(views), Views{left});

    dgViewcoDList none;
    EXPECT_EQ(hooks.identify_views(press_at(scene, 100, 5), none), nullptr);
    EXPECT_EQ(hooks.identify_views(gwKeyEvent(), none), nullptr) << "no window";
    EXPECT_TRUE(none.empty());

    // A swap shows all views of a double-buffered window, so all of them are redrawn.
    scene.window().capability(dgCAPABILITY_DOUBLE_BUFFERING, 1);
    dgViewcoDList both;
    EXPECT_EQ(hooks.identify_views(press_at(scene, 50, 5), both), right);
    EXPECT_EQ(as_vector(both), (Views{right, left}));
    hooks.add_all_views_if_double_buffered(0);
    dgViewcoDList one;
    hooks.identify_views(press_at(scene, 50, 5), one);
    EXPECT_EQ(as_vector(one), Views{right});
}

TEST(grStdTwiddleHooks, identify_views_takes_the_first_paper_child_under_the_pointer)
{
    PaperScene paper;
    // The topmost view at (45, 45) is the second child; with it out of the way the sheet is met and asked.
    const struct
    {
        const char* name;
        int x, y;
        dgView* target;
    } cases[] = {
        {"no child there", 5, 95, paper.sheet_view},
        {"a corner pixel", 49, 10, paper.first_view},
        {"the second alone", 80, 80, paper.second_view},
        {"both: the topmost display view is met first", 45, 45, paper.second_view},
    };
    grStdTwiddleHooks hooks;
    for (const auto& c : cases)
    {
        dgViewcoDList views;
        EXPECT_EQ(hooks.identify_views(press_at(paper.scene, c.x, c.y), views), c.target) << c.name;
        EXPECT_TRUE(views.contains(c.target)) << c.name;
    }
}

TEST(grStdTwiddleHooks, a_sheet_above_its_children_hands_over_to_the_first_attached)
{
    tsScene scene;
    dgView* early = scene.add_view(0, giBox2(10, 10, 49, 49));
    dgView* late = scene.add_view(0, giBox2(40, 40, 89, 89));
    dgView* sheet_view = scene.add_view();
    grViewPaperParent sheet(sheet_view);
    grViewPaperChild second(late, &sheet);
    grViewPaperChild first(early, &sheet);
    grStdTwiddleHooks hooks;
    dgViewcoDList views;
    EXPECT_EQ(hooks.identify_views(press_at(scene, 45, 45), views), late)
        << "attached first, whatever the order on screen";
    EXPECT_EQ(hooks.identify_views(press_at(scene, 20, 20), views), early);
    EXPECT_EQ(hooks.identify_views(press_at(scene, 95, 5), views), sheet_view);
}

TEST(grStdTwiddleHooks, view_detail_falls_back_to_an_unlocked_paper_parent)
{
    PaperScene paper;
    Hooks hooks;
    const grTrackballTool trackball("", nullptr, nullptr);
    const grPanTool pan("", nullptr, nullptr);
    const gwKeyEvent on_child = press_at(paper.scene, 20, 20);

    std::unique_ptr<grViewTwiddleDetail> detail(hooks.view_detail(&pan, on_child));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->target_view(), paper.first_view);
    EXPECT_NE(detail->refresher(), nullptr);
    EXPECT_EQ(hooks.the_calls, "refresher workplane ");

    // Paper cannot be turned.
    EXPECT_EQ(hooks.view_detail(&trackball, on_child), nullptr);
    EXPECT_EQ(hooks.view_detail(&trackball, press_at(paper.scene, 5, 95)), nullptr);
    EXPECT_EQ(hooks.find_child_if_locked(paper.first_view, &trackball), nullptr);

    // The target moves up, the views to be redrawn stay those around the child.
    const Views around_child = hooks.the_views;
    paper.sheet->clear_twiddle_locks();
    detail.reset(hooks.view_detail(&trackball, on_child));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->target_view(), paper.sheet_view);
    EXPECT_EQ(hooks.the_views, around_child);

    EXPECT_EQ(hooks.locked_view(paper.first_view, &trackball), 1);
    EXPECT_EQ(hooks.locked_view(paper.first_view, &pan), 0);
    EXPECT_EQ(hooks.find_child_if_locked(paper.first_view, &pan), paper.first_view);
    paper.sheet.reset();
    EXPECT_EQ(hooks.find_child_if_locked(paper.first_view, &trackball), nullptr) << "no parent left";
    EXPECT_EQ(hooks.view_detail(&pan, gwKeyEvent()), nullptr) << "no view";
}

TEST(grStdTwiddleHooks, structure_detail_needs_a_structure_and_an_unlocked_view)
{
    PaperScene paper;
    Hooks hooks;
    const grTrackballTool trackball("", nullptr, nullptr);
    const grPanTool pan("", nullptr, nullptr);
    const gwKeyEvent on_child = press_at(paper.scene, 20, 20);
    EXPECT_EQ(hooks.structure_detail(&pan, on_child), nullptr);
    EXPECT_EQ(hooks.the_calls, "structure workplane ") << "no refresher without a structure";

    hooks.the_structure = dgRef<dgStructure>(new dgClientStructure);
    paper.sheet->clear_twiddle_locks();
    hooks.the_calls.clear();
    EXPECT_EQ(hooks.structure_detail(&trackball, on_child), nullptr)
        << "the parent does not take a locked child's place";
    EXPECT_EQ(hooks.the_calls, "");

    std::unique_ptr<grStructureTwiddleDetail> detail(hooks.structure_detail(&pan, on_child));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(hooks.the_calls, "structure workplane refresher ");
    EXPECT_EQ(detail->structure(), hooks.the_structure.get());
    EXPECT_EQ(detail->structure_view(), paper.first_view);
    EXPECT_EQ(hooks.the_structure->reference_count(), 2);
    paper.scene.delete_view(1);
    EXPECT_EQ(detail->structure_view(), nullptr);
}

TEST(grStdTwiddleHooks, a_view_deleted_in_mid_drag_is_left_alone)
{
    tsScene scene;
    dgView* view = scene.add_view();
    dgView* other = scene.add_view(0, giBox2(50, 0, 99, 99));
    grStdTwiddleHooks hooks;
    grStdToolFactory factory(&hooks, nullptr);
    grTwiddleMan man(nullptr);
    auto* action = new grAction(grActionTrigger(gwMOUSE_BUTTON, 1, 0, ""), "pan");
    action->bind(grToolDetail(&factory, factory.identify_tool("pan")));
    man.actions().add_last(action);

    const giBox2 window = view->camera().view_window();
    man.process_event(press_at(scene, 10, 10));
    man.process_event(gwMouseEvent(&scene.input_window(), 20, 10));
    EXPECT_LT(view->camera().view_window().low().x(), window.low().x()) << "the picture goes with the pointer";
    const auto* tool = grStdViewTwiddleTool::ut_dynamic_cast(man.current_tool());
    ASSERT_NE(tool, nullptr);
    EXPECT_EQ(tool->detail()->target_view(), view);
    scene.delete_view(0);
    EXPECT_EQ(tool->detail()->target_view(), nullptr);

    const giBox2 other_window = other->camera().view_window();
    man.process_event(gwMouseEvent(&scene.input_window(), 60, 10));
    man.process_event(gwKeyEvent(&scene.input_window(), 60, 10, 0, gwRELEASED, gwMOUSE_BUTTON, 1));
    EXPECT_EQ(man.idle(), grIDLE_DONE);
    EXPECT_EQ(man.current_tool_state(), grTWID_ENDED);
    EXPECT_EQ(other->camera().view_window(), other_window);
}

TEST(grStdTwiddleHooks, chooses_how_views_are_redrawn_by_settings_and_tool)
{
    tsScene scene;
    scene.add_view();
    const tsSetting<double> guard(grViewRendererFast::minimum_framerate(),
                                  [](double rate) { grViewRendererFast::minimum_framerate(rate); });
    Hooks hooks;
    const grPanTool pan("", nullptr, &hooks); // may be drawn within the time of a frame
    const grIsometricTool isometric("", nullptr, &hooks);
    const struct
    {
        const char* name;
        int timeout, fast;
        const grStdTwiddleTool* tool;
        const utTypeID& type;
    } cases[] = {
        {"nothing set", 0, 0, &pan, grViewRefresherFull::ut_static_type()},
        {"fast", 0, 1, &pan, grViewRefresherFast::ut_static_type()},
        {"time-out before fast", 1, 1, &pan, grViewRefresherTimeout::ut_static_type()},
        {"time-out alone", 1, 0, &pan, grViewRefresherTimeout::ut_static_type()},
        {"a tool that must not time out, fast", 1, 1, &isometric, grViewRefresherFast::ut_static_type()},
        {"a tool that must not time out", 1, 0, &isometric, grViewRefresherFull::ut_static_type()},
    };
    for (const auto& c : cases)
    {
        if (c.timeout)
            hooks.enable_timeout_twiddling(10);
        else
            hooks.disable_timeout_twiddling();
        hooks.use_refresher_fast(c.fast);
        const std::unique_ptr<grViewRefresher> refresher(hooks.view_refresher(c.tool, {scene.view(0)}));
        EXPECT_TRUE(refresher->ut_dynamic_type() == c.type) << c.name;
    }
}

TEST(grStdTwiddleHooks, hands_its_settings_and_cache_to_the_time_out_refresher)
{
    tsScene scene;
    scene.add_view();
    const tsSetting<double> guard(grViewRendererFast::minimum_framerate(),
                                  [](double rate) { grViewRendererFast::minimum_framerate(rate); });
    Hooks hooks;
    const grPanTool pan("", nullptr, &hooks);
    hooks.enable_timeout_twiddling(10);
    hooks.allow_full_refresh(0);
    const std::unique_ptr<grViewRefresher> refresher(hooks.view_refresher(&pan, {scene.view(0)}));
    EXPECT_EQ(static_cast<grViewRefresherTimeout&>(*refresher).allow_full_refresh(), 0);
    EXPECT_NE(hooks.timeout_renderer_cache().find_timeout_renderer(scene.view(0)), nullptr);
}

TEST(grStdTwiddleHooks, has_frame_times_of_fast_twiddles_recorded_when_asked)
{
    tsScene scene;
    scene.add_view();
    Hooks hooks;
    hooks.use_refresher_fast(1);
    for (const int wanted : {0, 4})
    {
        hooks.record_refresh_stats(wanted);
        const std::unique_ptr<grViewRefresher> refresher(hooks.view_refresher(nullptr, {scene.view(0)}));
        refresher->base_refresh();
        EXPECT_EQ(hooks.timeout_renderer_cache().size(), wanted ? 1 : 0);
    }
}
