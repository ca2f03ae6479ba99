#include "grCanvas.h"
#include "tsBands.h"

#include "apClockOverride.h"

#include <gtest/gtest.h>

namespace
{
// A canvas whose redraw takes as long as is said, and one item over it.
struct TimedDecision : testing::Test
{
    TimedDecision() : canvas(&main, nullptr, nullptr, nullptr)
    {
        dgView& view = canvas.add_view();
        const dgRef<dgClientStructure> root(new dgClientStructure);
        root->add(tsSegments(1).get());
        view.root(root.get());
        grRubberBandManager::rubber_band_via_redraw(1);
        item = std::make_unique<tsCountedItem>(*canvas.renderer());
    }

    // Draws and undraws the item; answers 1 when that was done by redrawing, which took so many seconds.
    int move(double redraw_seconds)
    {
        main.cost_per_feature(redraw_seconds);
        main.reset_features_drawn();
        item->draw();
        const int via_redraw = item->driver == 0;
        item->undraw();
        EXPECT_EQ(main.features_drawn(), via_redraw) << "the scene is of one segment";
        return via_redraw;
    }
    // Moves n times, all of them by redrawing.
    void redraw(int n, double redraw_seconds)
    {
        for (int i = 0; i < n; ++i)
            EXPECT_TRUE(move(redraw_seconds)) << i;
    }

    apClockOverride clock{0, 1000};
    dgTraceWindow main{10, 10};
    grCanvas canvas;
    std::unique_ptr<tsCountedItem> item;
};
}

TEST_F(TimedDecision, a_renderer_stays_fast_below_the_limit)
{
    redraw(10, 0.03125);
}

TEST_F(TimedDecision, a_renderer_is_slow_from_three_frames_that_average_the_limit_exactly)
{
    grRubberBandManager::minimum_framerate(16); // 1/16 s has no rounding
    redraw(3, 0.0625);
    EXPECT_FALSE(move(0.0625));
    EXPECT_EQ(grRubberBandManager::mode(canvas.renderer()), grRUBBER_BAND_VIA_XOR);
}

TEST_F(TimedDecision, two_slow_frames_do_not_make_a_renderer_slow)
{
    redraw(2, 10);
    EXPECT_EQ(grRubberBandManager::mode(canvas.renderer()), grRUBBER_BAND_IN_MAIN_PLANES);
    redraw(1, 0.001);
    EXPECT_FALSE(move(0.001)) << "the average of three is far above the limit";
}

TEST_F(TimedDecision, a_slow_renderer_is_tried_again_once_the_retry_time_has_passed)
{
    redraw(3, 1);
    EXPECT_FALSE(move(1));
    clock.advance(30);
    EXPECT_FALSE(move(1)) << "30 s are not yet more than 30 s";
    clock.advance(0.001);
    redraw(3, 1);
    EXPECT_FALSE(move(1)) << "its old times are forgotten, so three new frames are needed";
}

TEST_F(TimedDecision, is_taken_anew_only_while_a_single_item_is_being_drawn)
{
    redraw(3, 1);
    {
        tsCountedItem other(*canvas.renderer());
        EXPECT_TRUE(move(1)) << "two items: the old verdict holds";
        grRubberBandManager::remove(other.item.get());
    }
    EXPECT_TRUE(grRubberBandManager::rubber_band_via_redraw(canvas.renderer())) << "no drawing is in progress";
    EXPECT_FALSE(move(1));
    EXPECT_FALSE(grRubberBandManager::rubber_band_via_redraw(canvas.renderer()));
}

TEST_F(TimedDecision, nothing_is_known_of_a_new_renderer_at_the_address_of_an_old_one)
{
    redraw(3, 1);
    EXPECT_FALSE(move(1));
    grRubberBandManager::to_be_deleted(canvas.renderer());
    item = std::make_unique<tsCountedItem>(*canvas.renderer());
    redraw(3, 1);
}
