#include "grCanvas.h"
#include "dgS.h"
#include "dgView.h"
#include "grView.h"
#include "tsScene.h"

#include "grRubberBandGraphicalElement.h"

#include "dgAppElement.h"
#include "gwResourceDB.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
struct Canvas : testing::Test
{
    dgTraceWindow main{100, 80}, overlay{100, 80};
    grCanvas canvas{&main, nullptr, nullptr, nullptr};
};
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

TEST_F(Canvas, resizes_its_views_by_their_shares)
{
    dgCamera& left = canvas.add_view().camera();
    dgCamera& right = canvas.add_view().camera();
    left.view_port_dc(giBox2(0, 0, 49, 79));
    right.view_port_dc(giBox2(50, 0, 99, 79));
    canvas.resize(3, 2);
    EXPECT_EQ(left.view_port_dc(), giBox2(0, 0, 1, 1));
    EXPECT_EQ(right.view_port_dc(), giBox2(2, 0, 2, 1));
    canvas.resize(200, 80);
    EXPECT_EQ(left.view_port_dc(), giBox2(0, 0, 99, 79));
    EXPECT_EQ(right.view_port_dc(), giBox2(100, 0, 199, 79));
    right.view_port_dc(giBox2(50, 0, 99, 79));
    canvas.resize(100, 80);
    EXPECT_EQ(right.view_port_dc(), giBox2(25, 0, 49, 79)) << "moved by the application in between";
}
