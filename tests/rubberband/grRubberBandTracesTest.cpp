// What rubber bands leave behind, or are drawn with, that is not theirs.

#include "grCanvas.h"
#include "grRubberBandGraphicalElement.h"
#include "grTwiddleOverlayCallback.h"
#include "grViewListUtils.h"
#include "gr_rubber_band.h"
#include "tsBands.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(grRubberBandManager, items_of_a_closed_view_leave_the_overlay_and_others_stay)
{
    tsBands bands(1);
    dgView other(&bands.renderer);
    const dgRef<grRubberBandItem> doomed(
        new grRubberBandGraphicalElement(&bands.renderer, &bands.view, tsSegments(2).get(), nullptr));
    const dgRef<grRubberBandItem> stays(
        new grRubberBandGraphicalElement(&bands.renderer, &other, tsSegments(3).get(), nullptr));
    for (grRubberBandItem* item : {doomed.get(), stays.get()})
    {
        grRubberBandManager::add(item);
        grRubberBandManager::draw(item, grDRAW_RUBBER_BAND_ITEM);
    }
    bands.take_log();
    grRubberBandManager::to_be_deleted(&bands.view);
    EXPECT_EQ(bands.take_log(), (tsLog{"overlay clear 0 0 99 79 colour depth", "overlay draw lines 3 of 1"}));
    grRubberBandManager::to_be_deleted(&bands.view);
    EXPECT_EQ(bands.take_log(), tsLog()) << "once is enough";
}

TEST(gr_draw_device_lines, do_not_fade_with_depth)
{
    tsBands bands;
    bands.renderer.depth_cueing(1);
    bands.main.record_state(1);
    gr_rubber_band_line(0, 0, 10, 10);
    gr_draw_rubber_banding(&bands.renderer);
    const tsLog log = bands.take_log();
    gr_undraw_rubber_banding();
    const auto camera =
        std::find_if(log.begin(), log.end(), [](const auto& line) { return line.find("camera") != std::string::npos; });
    ASSERT_NE(camera, log.end());
    EXPECT_EQ(camera->back(), '0') << *camera;
    EXPECT_EQ(bands.renderer.depth_cueing(), 1);
}

TEST(grTwiddleOverlayCallback, draws_on_the_main_window_though_a_band_has_left_the_overlay_selected)
{
    tsBands bands(1);
    tsCountedItem item(bands.renderer);
    item.draw();
    ASSERT_EQ(bands.renderer.current_driver_index(), 1);
    static int driver;
    driver = -1;
    grTwiddleOverlayCallback::register_callback([](dgView& view) { driver = view.renderer()->current_driver_index(); });
    grViewListUtils::refresh_views({&bands.view}, nullptr, nullptr);
    grTwiddleOverlayCallback::register_callback(nullptr);
    EXPECT_EQ(driver, 0);
    EXPECT_EQ(bands.renderer.current_driver_index(), 1) << "and selected again";
}

TEST(grCanvas, bands_that_were_redrawn_leave_nothing_between_views_in_either_buffer)
{
    dgTraceWindow window(100, 80);
    grCanvas canvas(&window, nullptr, nullptr, nullptr);
    canvas.add_view().camera().view_port_dc(giBox2(0, 0, 46, 79));
    canvas.add_view().camera().view_port_dc(giBox2(53, 0, 99, 79));
    grRubberBandManager::rubber_band_via_redraw(1);
    gr_rubber_band_line(0, 40, 99, 40);
    gr_draw_rubber_banding(canvas.renderer());
    window.clear_log();
    gr_undraw_rubber_banding();
    const tsLog& log = window.log();
    const auto swap = std::find(log.begin(), log.end(), "swap_buffers 0");
    ASSERT_NE(swap, log.end());
    EXPECT_NE(std::find(log.begin(), swap, "clear 0 0 99 79 colour depth"), swap);
    const auto clip = std::find(swap, log.end(), "clip 47 0 52 79");
    ASSERT_NE(clip, log.end());
    EXPECT_NE(std::find(clip, log.end(), "clear 0 0 99 79 colour depth"), log.end());
    EXPECT_NE(std::find(clip, log.end(), "select_buffer front"), log.end());
}
