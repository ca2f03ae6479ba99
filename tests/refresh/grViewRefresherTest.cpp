#include "grViewRefresher.h"

#include "grViewRendererFast.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{
using Log = std::vector<std::string>;

// Records which of its virtual operations were called, and looks around in each.
class RecordingRefresher : public grViewRefresher
{
public:
    explicit RecordingRefresher(const dgViewcoDList& views) : grViewRefresher(views) {}

    using grViewRefresher::check_views;
    using grViewRefresher::double_buffered;
    using grViewRefresher::refresh_at_end_of_twiddle;
    using grViewRefresher::renderers;
    using grViewRefresher::twiddle_icons;

    Log calls;
    std::function<void()> look;

protected:
    void start_twiddle() override { record("start"); }
    void refresh() override { record("refresh"); }
    grIdleAction idle() override
    {
        record("idle");
        return grIDLE_DONE;
    }
    void end_twiddle() override { record("end"); }
    void view_removed(dgView*) override { record("removed"); }

private:
    void record(const char* name)
    {
        calls.push_back(std::string(name) + " in " + std::to_string(state()));
        if (look)
            look();
    }
};
}

TEST(grViewRefresher, changes_state_after_the_start_and_after_the_end)
{
    tsScene scene;
    scene.add_view();
    RecordingRefresher refresher({scene.view(0)});
    refresher.base_start_twiddle();
    refresher.base_refresh();
    EXPECT_EQ(refresher.base_idle(), grIDLE_DONE);
    refresher.base_end_twiddle();
    refresher.base_idle_refresh();
    EXPECT_EQ(refresher.calls, (Log{"start in 0", "refresh in 1", "idle in 1", "end in 1", "refresh in 2"}));
}

TEST(grViewRefresher, references_its_views_and_lists_their_renderers_once)
{
    tsScene scene;
    scene.add_window();
    for (int window : {1, 0, 1})
        scene.add_view(window);
    scene.window(0).capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    {
        RecordingRefresher refresher({scene.view(0), scene.view(1), scene.view(2)});
        EXPECT_EQ(refresher.renderers(), (dgRenderercoDList{&scene.renderer(1), &scene.renderer(0)}));
        EXPECT_EQ(refresher.double_buffered(), 1);
        EXPECT_EQ(refresher.check_views(), 1);
        EXPECT_EQ(scene.view(2)->reference_count(), 1);

        scene.view(2)->renderer(nullptr);
        EXPECT_EQ(refresher.check_views(), 0);
    }
    EXPECT_EQ(scene.view(2)->reference_count(), 0);
    EXPECT_EQ(RecordingRefresher({scene.view(1)}).double_buffered(), 0);
}

TEST(grViewRefresher, holds_icons_until_the_end_of_the_twiddle)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    const dgRef<dgStructure> first = tsLine(3), second = tsLine(4);
    RecordingRefresher refresher({scene.view(0)});
    refresher.set_twiddle_icon(first.get(), scene.view(1));
    EXPECT_EQ(first->reference_count(), 1);

    refresher.set_twiddle_icon(first.get(), scene.view(0));
    EXPECT_EQ(first->reference_count(), 2);
    refresher.set_twiddle_icon(second.get(), scene.view(0));
    EXPECT_EQ(first->reference_count(), 1);

    int held_at_end = 0;
    refresher.look = [&] { held_at_end = refresher.twiddle_icons()[0] == second.get(); };
    refresher.base_end_twiddle();
    EXPECT_EQ(held_at_end, 1);
    EXPECT_EQ(second->reference_count(), 1);
    EXPECT_EQ(refresher.twiddle_icons()[0], nullptr);
}

TEST(grViewRefresher, an_icon_that_nobody_else_holds_may_be_set_again)
{
    tsScene scene;
    scene.add_view();
    RecordingRefresher refresher({scene.view(0)});
    dgRef<dgStructure> line = tsLine(3);
    dgStructure* icon = line.get();
    refresher.set_twiddle_icon(icon, scene.view(0));
    line.reset();
    refresher.set_twiddle_icon(icon, scene.view(0));
    EXPECT_EQ(icon->reference_count(), 1);
    EXPECT_EQ(icon->nelements(), 1);
}

TEST(grViewRefresher, releases_icons_that_were_set_after_the_end)
{
    tsScene scene;
    scene.add_view();
    const dgRef<dgStructure> icon = tsLine(3);
    {
        RecordingRefresher refresher({scene.view(0)});
        refresher.base_end_twiddle();
        refresher.set_twiddle_icon(icon.get(), scene.view(0));
    }
    EXPECT_EQ(icon->reference_count(), 1);
}

TEST(grViewRefresher, drops_a_view_that_is_removed_or_destroyed_with_its_icon)
{
    tsScene scene;
    scene.add_window();
    scene.add_view(0);
    scene.add_view(1);
    scene.add_view(0);
    const dgRef<dgStructure> a = tsLine(3), b = tsLine(4), c = tsLine(5);
    RecordingRefresher refresher({scene.view(0), scene.view(1), scene.view(2)});
    refresher.set_twiddle_icon(a.get(), scene.view(0));
    refresher.set_twiddle_icon(b.get(), scene.view(1));
    refresher.set_twiddle_icon(c.get(), scene.view(2));

    scene.delete_view(1);
    EXPECT_EQ(refresher.views(), (dgViewcoDList{scene.view(0), scene.view(2)}));
    EXPECT_EQ(refresher.twiddle_icons(), (dgStructurecoDList{a.get(), c.get()}));
    EXPECT_EQ(b->reference_count(), 1);
    EXPECT_EQ(refresher.renderers(), (dgRenderercoDList{&scene.renderer(0)}));

    refresher.remove(scene.view(0));
    EXPECT_EQ(refresher.nviews(), 1);
    EXPECT_EQ(scene.view(0)->reference_count(), 0);
    EXPECT_EQ(a->reference_count(), 1);
    refresher.remove(scene.view(0));
    EXPECT_EQ(refresher.calls, (Log{"removed in 0", "removed in 0"}));
}

// A view may outlive its renderer when it has been taken from it.
TEST(grViewRefresher, forgets_a_renderer_that_its_views_have_left)
{
    tsScene scene;
    scene.add_window();
    scene.add_view(0);
    scene.add_view(1);
    RecordingRefresher refresher({scene.view(0), scene.view(1)});
    dgRenderercoDList seen;
    refresher.look = [&] { seen = refresher.renderers(); };
    scene.view(0)->renderer(nullptr);
    refresher.base_refresh();
    EXPECT_EQ(seen, dgRenderercoDList{&scene.renderer(1)});
    scene.view(1)->renderer(nullptr);
    refresher.base_idle();
    EXPECT_EQ(seen, dgRenderercoDList());
    scene.view(1)->renderer(&scene.renderer(0));
    refresher.base_end_twiddle();
    EXPECT_EQ(seen, dgRenderercoDList{&scene.renderer(0)});
}

TEST(grViewRefresher, overrides_the_drawing_quality_around_each_refresh_only)
{
    tsScene scene;
    scene.add_view();
    dgDrawQuality normal;
    normal.facet_tolerance_set = 1;
    normal.facet_tolerance = 0.5;
    normal.text_quality = 3;
    scene.renderer().set_in_pipeline_context(&normal);

    RecordingRefresher refresher({scene.view(0)});
    dgDrawQuality seen;
    refresher.look = [&] { seen = scene.renderer().get_pipeline_draw_quality(); };
    refresher.base_refresh();
    EXPECT_EQ(seen.facet_tolerance, 0.5);
    EXPECT_EQ(refresher.forced_redraw(), 0);

    refresher.draw_quality_overrides().polygons = {1, 7};
    refresher.base_idle_refresh();
    EXPECT_EQ(seen.facet_tolerance, 0.5);
    EXPECT_EQ(seen.polygon_regeneration_set, 1);
    EXPECT_EQ(seen.polygon_regeneration, 7);
    EXPECT_EQ(seen.text_quality_set, 0);
    EXPECT_EQ(refresher.forced_redraw(), 1);

    const dgDrawQuality& after = scene.renderer().get_pipeline_draw_quality();
    EXPECT_EQ(after.facet_tolerance, 0.5);
    EXPECT_EQ(after.polygon_regeneration_set, 0);
    EXPECT_EQ(after.text_quality, 3);
}

// Two renderers, and on the first one a view that is not in the refresher.
TEST(grViewRefresher, redraws_missing_views_at_the_end_where_buffers_are_swapped)
{
    tsScene scene;
    scene.add_window();
    for (int window : {0, 1, 0})
        scene.add_view(window);
    RecordingRefresher refresher({scene.view(2), scene.view(1)});
    refresher.refresh_at_end_of_twiddle();
    EXPECT_EQ(scene.take_log(0),
              (Log{"select_buffer back", "clear 0 0 99 99 colour depth", "draw lines 3 of 1", "select_buffer back",
                   "clear 0 0 99 99 colour depth", "draw lines 1 of 1", "swap_buffers 0", "select_buffer front"}));
    EXPECT_EQ(scene.take_log(1).size(), 5u);

    scene.window(0).capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    scene.window(1).capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    RecordingRefresher single_buffered({scene.view(2), scene.view(1)});
    single_buffered.refresh_at_end_of_twiddle();
    EXPECT_EQ(scene.take_log(0), (Log{"clear 0 0 99 99 colour depth", "draw lines 3 of 1"}));
}

TEST(grViewRendererFast, starts_with_one_frame_a_second_and_ignores_the_preferred_rate)
{
    EXPECT_EQ(grViewRendererFast::minimum_framerate(), 1.0);
    grViewRendererFast::preferred_framerate(30);
    EXPECT_EQ(grViewRendererFast::preferred_framerate(), 0.0);
    grViewRendererFast::allow_simplified_lights(1);
    EXPECT_EQ(grViewRendererFast::allow_simplified_lights(), 0);
}
