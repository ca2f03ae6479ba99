#include "grCanvas.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewRefresherFull.h"
#include "tsBands.h"

#include "grRubberBandGraphicalElement.h"

#include "dgAppElement.h"
#include "gwResourceDB.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
// A canvas of 100 by 80 pixels on the trace driver with two views side by side: 0 with one segment, 1 with two.
struct Canvas : testing::Test
{
    explicit Canvas(int with_overlay = 0) : canvas(&main, with_overlay ? &overlay : nullptr, nullptr, nullptr)
    {
        for (int i = 0; i < 2; ++i)
        {
            dgView& view = canvas.add_view();
            view.camera().view_port_dc(giBox2(50 * i, 0, 50 * i + 49, 79));
            const dgRef<dgClientStructure> root(new dgClientStructure);
            root->add(tsSegments(i + 1).get());
            view.root(root.get());
        }
        main.clear_log();
    }

    // What was recorded since the last call, but for the drivers' brackets and presentations.
    tsLog take_log()
    {
        tsLog lines;
        for (dgTraceWindow* window : {&main, &overlay})
        {
            for (const std::string& line : window->log())
                if (!line.ends_with("begin") && !line.ends_with("end") && line != "present" && line != "finish")
                    lines.push_back((window == &overlay ? "overlay " : "") + line);
            window->clear_log();
        }
        return lines;
    }

    dgTraceWindow main{100, 80}, overlay{100, 80};
    grCanvas canvas;
};

struct LayeredCanvas : Canvas
{
    LayeredCanvas() : Canvas(1) {}
};

const tsLog whole_redraw = {"select_buffer back",
                            "clear 0 0 99 79 colour depth",
                            "clear 0 0 49 79 colour depth",
                            "draw lines 1 of 1",
                            "clear 50 0 99 79 colour depth",
                            "draw lines 2 of 1",
                            "swap_buffers 0",
                            "select_buffer front"};

int always(dgRenderer*, void*)
{
    return 1;
}

// An item of 3 segments in view 0 of a canvas, in the list until it is destroyed.
dgRef<grRubberBandItem> make_item(grCanvas& canvas)
{
    const dgRef<grRubberBandItem> item(
        new grRubberBandGraphicalElement(canvas.renderer(), &canvas.view(0), tsSegments(3).get(), nullptr));
    grRubberBandManager::add(item.get());
    return item;
}
}

TEST_F(Canvas, is_found_by_its_renderer_while_it_lives)
{
    EXPECT_EQ(grCanvas::find_canvas(canvas.renderer()), &canvas);
    EXPECT_EQ(grCanvas::find_canvas(nullptr), nullptr);
    dgRenderer other(&main, nullptr);
    EXPECT_EQ(grCanvas::find_canvas(&other), nullptr);
    auto second = std::make_unique<grCanvas>();
    EXPECT_EQ(grCanvas::find_canvas(nullptr), nullptr) << "a canvas without a renderer";
    second->windows(&overlay, nullptr, nullptr);
    const dgRenderer* renderer = second->renderer();
    EXPECT_EQ(grCanvas::find_canvas(renderer), second.get());
    second.reset();
    EXPECT_EQ(grCanvas::find_canvas(renderer), nullptr);
}

TEST_F(Canvas, destroys_what_it_owns_in_an_order_that_each_part_survives)
{
    auto owned = std::make_unique<dgTraceWindow>(10, 10);
    auto second = std::make_unique<grCanvas>(owned.get(), nullptr, nullptr, nullptr);
    second->take_window(std::move(owned));
    const dgView* view = &second->add_view();
    EXPECT_EQ(grView::contains(view), second->companion(0));
    EXPECT_TRUE(dgS::views().contains(const_cast<dgView*>(view)));
    const int canvases_views = dgS::views().count();
    second.reset();
    EXPECT_EQ(dgS::views().count(), canvases_views - 1);
    EXPECT_EQ(grView::contains(view), nullptr);
}

TEST_F(Canvas, redraws_views_that_meet_a_box_and_nothing_outside_it)
{
    canvas.erase_and_render_views(giBox2(10, 10, 49, 20), 1, 1);
    EXPECT_EQ(take_log(), (tsLog{"select_buffer front", "clip 10 10 49 20", "clear 0 0 49 79 colour depth",
                                 "draw lines 1 of 1", "clip off"}));
    canvas.erase_and_render_views(giBox2(49, 10, 50, 20), 0, 1);
    EXPECT_EQ(take_log(),
              (tsLog{"select_buffer front", "clip 49 10 50 20", "draw lines 1 of 1", "draw lines 2 of 1", "clip off"}));
    canvas.erase_and_render_views(giBox2(50, 0, 60, 79), 1, 0);
    EXPECT_EQ(take_log(),
              (tsLog{"select_buffer front", "clip 50 0 60 79", "clear 50 0 99 79 colour depth", "clip off"}));
}

TEST_F(Canvas, redraws_the_whole_window_through_the_back_buffer_with_what_lies_between_the_views)
{
    canvas.erase_and_render_views(giBox2(0, 0, 99, 79), 1, 1);
    EXPECT_EQ(take_log(), whole_redraw);
    EXPECT_TRUE(canvas.remove_view(&canvas.view(0)));
    canvas.view(0).camera().view_port_dc(giBox2(0, 0, 99, 79));
    canvas.erase_and_render_views(giBox2(-1, 0, 100, 79), 1, 1);
    EXPECT_EQ(take_log(), (tsLog{"select_buffer back", "clear 0 0 99 79 colour depth", "draw lines 2 of 1",
                                 "swap_buffers 0", "select_buffer front"}));
}

TEST_F(Canvas, leaves_the_background_of_transparent_views_and_the_contents_of_hidden_ones)
{
    static int overlay_calls;
    overlay_calls = 0;
    grTwiddleOverlayCallback::register_callback([](dgView&) { ++overlay_calls; });
    canvas.companion(0)->background(grVIEW_BACKGROUND_TRANSPARENT);
    canvas.companion(1)->hidden(1);
    canvas.erase_and_render_views(giBox2(40, 10, 60, 20), 1, 1);
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(take_log(), (tsLog{"select_buffer front", "clip 40 10 60 20", "draw lines 1 of 1",
                                 "clear 50 0 99 79 colour depth", "clip off"}));
    EXPECT_EQ(overlay_calls, 1);
}

TEST_F(Canvas, draws_the_views_that_the_overlay_callback_leaves)
{
    grTwiddleOverlayCallback::register_callback([](dgView& view)
                                                { grCanvas::find_canvas(view.renderer())->remove_view(&view); });
    canvas.erase_and_render_views(giBox2(40, 10, 60, 20), 0, 1);
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(take_log(),
              (tsLog{"select_buffer front", "clip 40 10 60 20", "draw lines 1 of 1", "draw lines 2 of 1", "clip off"}));
    EXPECT_EQ(canvas.n_views(), 0);
}

TEST_F(Canvas, undraws_by_redrawing_where_that_is_decided)
{
    grRubberBandManager::set_redraw_callback(always, nullptr);
    const dgRef<grRubberBandItem> item = make_item(canvas), other = make_item(canvas);
    grRubberBandManager::draw(other.get(), grDRAW_RUBBER_BAND_ITEM);
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    EXPECT_EQ(take_log(), (tsLog{"draw lines 3 of 1", "draw lines 3 of 1"}));
    grRubberBandManager::draw(item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    tsLog expected = whole_redraw;
    expected.push_back("draw lines 3 of 1"); // the other one
    EXPECT_EQ(take_log(), expected);
    EXPECT_EQ(item->state(), grUNDRAWN_RUBBER_BAND_ITEM);
    EXPECT_EQ(other->state(), grDRAWN_RUBBER_BAND_ITEM);
}

TEST_F(LayeredCanvas, puts_the_other_items_back_on_an_erased_overlay_alone)
{
    const dgRef<grRubberBandItem> item = make_item(canvas), other = make_item(canvas);
    grRubberBandManager::draw(other.get(), grDRAW_RUBBER_BAND_ITEM);
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    take_log();
    grRubberBandManager::draw(item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    EXPECT_EQ(take_log(), (tsLog{"overlay clear 0 0 99 79 colour depth", "overlay draw lines 3 of 1"}))
        << "the scene under it is not drawn again";
    EXPECT_EQ(item->state(), grUNDRAWN_RUBBER_BAND_ITEM);
    EXPECT_EQ(other->state(), grDRAWN_RUBBER_BAND_ITEM);
}

TEST_F(LayeredCanvas, leaves_no_item_on_the_overlay_when_it_redraws_the_whole_window)
{
    canvas.erase_and_render_views(giBox2(0, 0, 99, 79), 1, 1);
    EXPECT_EQ(take_log(), whole_redraw) << "no items, nothing to erase";
    const dgRef<grRubberBandItem> item = make_item(canvas);
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    take_log();
    canvas.erase_and_render_views(giBox2(0, 0, 99, 79), 1, 1);
    tsLog expected = whole_redraw;
    expected.push_back("overlay clear 0 0 99 79 colour depth");
    EXPECT_EQ(take_log(), expected);
    EXPECT_EQ(item->state(), grTEMP_UNDRAWN_RUBBER_BAND_ITEM);
}

TEST_F(Canvas, may_be_destroyed_by_what_an_item_draws)
{
    // Destroys the canvas that it is drawn on.
    class Destroyer : public dgAppElement
    {
    public:
        explicit Destroyer(std::unique_ptr<grCanvas>& doomed) : the_doomed(doomed) {}
        void draw(dgRenderer*) const override { the_doomed.reset(); }
        dgAppElement* copy() const override { return new Destroyer(the_doomed); }

    private:
        std::unique_ptr<grCanvas>& the_doomed;
    };
    dgTraceWindow window(10, 10);
    auto doomed = std::make_unique<grCanvas>(&window, nullptr, nullptr, nullptr);
    dgView& view = doomed->add_view();
    const dgRef<grRubberBandItem> item(
        new grRubberBandGraphicalElement(doomed->renderer(), &view, new Destroyer(doomed), nullptr));
    grRubberBandManager::add(item.get());
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    EXPECT_EQ(doomed, nullptr);
    EXPECT_TRUE(item->cancelled());
}

TEST_F(Canvas, takes_xor_items_off_before_it_redraws_a_part_of_what_they_lie_on)
{
    const dgRef<grRubberBandItem> item = make_item(canvas);
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    take_log();
    canvas.erase_and_render_views(giBox2(60, 10, 70, 20), 1, 1);
    EXPECT_EQ(take_log(), (tsLog{"xor draw lines 3 of 1", "select_buffer front", "clip 60 10 70 20",
                                 "clear 50 0 99 79 colour depth", "draw lines 2 of 1", "clip off"}));
    EXPECT_EQ(item->state(), grTEMP_UNDRAWN_RUBBER_BAND_ITEM);
}

TEST_F(Canvas, brackets_its_own_redraw_and_counts_on_nothing_after_a_resize)
{
    const dgRef<grRubberBandItem> item = make_item(canvas);
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    take_log();
    const tsLog views = {"select_buffer back",
                         "clear 0 0 49 79 colour depth",
                         "draw lines 1 of 1",
                         "select_buffer back",
                         "clear 50 0 99 79 colour depth",
                         "draw lines 2 of 1",
                         "swap_buffers 0",
                         "select_buffer front"};
    const auto with_item = [&](tsLog before)
    {
        before.insert(before.end(), views.begin(), views.end());
        before.push_back("xor draw lines 3 of 1");
        return before;
    };
    canvas.redraw();
    EXPECT_EQ(take_log(), with_item({"xor draw lines 3 of 1"}));
    EXPECT_EQ(item->state(), grDRAWN_RUBBER_BAND_ITEM);
    canvas.resized();
    const tsLog cleared = {"select_buffer back", "clear 0 0 99 79 colour depth", "swap_buffers 0"};
    tsLog twice = cleared;
    twice.insert(twice.end(), cleared.begin(), cleared.end());
    EXPECT_EQ(take_log(), with_item(twice)) << "nothing is undrawn: the window is new";
}

TEST_F(Canvas, refreshers_take_items_off_and_put_them_back_around_all_that_they_draw)
{
    const dgRef<grRubberBandItem> item = make_item(canvas);
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    grViewRefresherFull refresher(dgViewcoDList{&canvas.view(0), &canvas.view(1)});
    refresher.force_redraw_on_end_twiddle();
    refresher.base_start_twiddle();
    take_log();
    for (void (grViewRefresher::*draw)() :
         {&grViewRefresher::base_refresh, &grViewRefresher::base_idle_refresh, &grViewRefresher::base_end_twiddle})
    {
        (refresher.*draw)();
        const tsLog log = take_log();
        ASSERT_GE(log.size(), 2u);
        EXPECT_EQ(log.front(), "xor draw lines 3 of 1");
        EXPECT_EQ(log.back(), "xor draw lines 3 of 1");
        EXPECT_EQ(std::count(log.begin(), log.end(), "xor draw lines 3 of 1"), 2);
        EXPECT_EQ(std::count(log.begin(), log.end(), "swap_buffers 0"), 1);
        EXPECT_EQ(log[log.size() - 2], "select_buffer front");
    }
    grRubberBandManager::do_redraw(0);
    refresher.base_refresh();
    const tsLog log = take_log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "xor draw lines 3 of 1"), 0);
}

TEST_F(Canvas, cancels_items_of_views_and_renderers_that_go)
{
    const dgRef<grRubberBandItem> item = make_item(canvas);
    const dgRef<grRubberBandItem> of_renderer(new grRubberBandCallback(canvas.renderer(), nullptr, nullptr));
    grRubberBandManager::add(of_renderer.get());
    EXPECT_FALSE(canvas.remove_view(nullptr));
    EXPECT_TRUE(canvas.remove_view(&canvas.view(0)));
    EXPECT_EQ(canvas.n_views(), 1);
    EXPECT_TRUE(item->cancelled());
    EXPECT_FALSE(of_renderer->cancelled());
    canvas.windows(&overlay, nullptr, nullptr);
    EXPECT_EQ(canvas.n_views(), 0);
    EXPECT_TRUE(of_renderer->cancelled());
    EXPECT_TRUE(grRubberBandManager::item_in_list(of_renderer.get()));
}

TEST_F(Canvas, passes_resources_on_to_the_manager)
{
    gwResourceDB db;
    db.set_resource("slow_retry_time_rubberbanding", "10");
    db.set_resource("xor_colour", "8bit 255 0 0");
    db.set_resource("set_default_colour_in_xor_mode", "yes");
    db.set_resource("calculate_colour_in_xor_mode", "yes");
    db.set_resource("xor_mode_with_stencil_planes", "no");
    db.set_resource("overlay_rubberbanding", "yes");
    canvas.read_resources(db);
    EXPECT_EQ(grRubberBandManager::slow_retry_time(), 10);
    // Deliberate: the same key.
    EXPECT_EQ(grRubberBandManager::minimum_framerate(), 10);
    EXPECT_EQ(grRubberBandManager::rubber_band_colour(), gsColour(1, 0, 0));
    EXPECT_EQ(grRubberBandManager::set_default_colour_in_xor_mode(), 1);
    EXPECT_EQ(grRubberBandManager::calculate_colour_in_xor_mode(), 1);
    EXPECT_EQ(grRubberBandManager::xor_mode_with_stencil_planes(), 0);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 0);
    EXPECT_EQ(grRubberBandManager::mode(canvas.renderer()), grRUBBER_BAND_VIA_XOR) << "no overlay by the key";

    // Absent keys and values that cannot be understood change nothing.
    gwResourceDB bad;
    for (const char* key : {"slow_retry_time_rubberbanding", "xor_colour", "xor_mode_with_stencil_planes"})
        bad.set_resource(key, "?");
    canvas.read_resources(bad);
    bad.set_resource("slow_retry_time_rubberbanding", "0");
    canvas.read_resources(bad);
    EXPECT_EQ(grRubberBandManager::slow_retry_time(), 10);
    EXPECT_EQ(grRubberBandManager::minimum_framerate(), 10);
    EXPECT_EQ(grRubberBandManager::rubber_band_colour(), gsColour(1, 0, 0));
    EXPECT_EQ(grRubberBandManager::xor_mode_with_stencil_planes(), 0);
}

TEST(grCanvas, xor_rubberbanding_turns_redrawing_on_unless_there_is_an_overlay_and_never_off)
{
    dgTraceWindow main(10, 10), overlay(10, 10);
    gwResourceDB no, yes;
    no.set_resource("xor_rubberbanding", "no");
    yes.set_resource("xor_rubberbanding", "yes");
    {
        const grCanvas layered(&main, &overlay, nullptr, &no);
        EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 0);
    }
    {
        const grCanvas plain(&main, nullptr, nullptr, &no);
        EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 1);
    }
    const grCanvas without_renderer(&no);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 1);
    const grCanvas other(&yes);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 1) << "yes changes nothing";
}
