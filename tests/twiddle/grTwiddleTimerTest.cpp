#include "grTwiddleTimer.h"

#include "apClockOverride.h"
#include "giVector2.h"
#include "tsTable.h"

#include <gtest/gtest.h>

TEST(grTwiddleTimer, spins_when_let_go_in_motion_by_the_mean_of_the_last_steps)
{
    for (const auto& row : ts_table(TS_TABLES "throws.table", "throws"))
    {
        const std::vector<double> at = ts_numbers(row[1]), times = ts_numbers(row[2]);
        apClockOverride clock(100);
        grTwiddleTimer timer(5);
        const std::size_t release = at.size() - 2;
        for (std::size_t i = 0; i < release; i += 2)
        {
            clock.advance(i > 0 ? times[0] / 64 : 0);
            timer.add_mouse_event(giPoint2(at[i], at[i + 1]));
        }
        clock.advance(times[1] / 64);
        timer.end_twiddle_event(giPoint2(at[release], at[release + 1]));
        EXPECT_EQ(timer.can_spin(), row[3].starts_with("spins")) << row[0];
        const std::vector<double> expected = ts_numbers(row[3].substr(5));
        if (expected.empty())
            continue;
        giPoint2 start, end;
        giVector2 step;
        timer.start_end_pt(start, end);
        timer.diff_vector(step);
        EXPECT_EQ(start, giPoint2(expected[0], expected[1])) << row[0];
        EXPECT_EQ(end, giPoint2(expected[2], expected[3])) << row[0];
        EXPECT_EQ(end - start, step) << row[0];
    }
}

TEST(grTwiddleTimer, decides_at_the_first_question_after_the_release_and_keeps_the_answer)
{
    apClockOverride clock(100);
    grTwiddleTimer timer(5);
    timer.add_mouse_event(giPoint2(0, 0));
    clock.advance(1.0 / 64);
    timer.add_mouse_event(giPoint2(9, 0));
    EXPECT_EQ(timer.can_spin(), 0) << "not released yet";
    for (const double seconds : {1.0 / 64, 10.0})
    {
        clock.advance(seconds);
        timer.end_twiddle_event(giPoint2(9, 0));
        EXPECT_EQ(timer.can_spin(), 1) << "the first question after the release is the one that counts";
    }
}

TEST(grTwiddleTimer, a_time_true_throw_that_has_come_to_rest_stays)
{
    apClockOverride clock(0);
    grTwiddleTimer timer(256);
    timer.time_true(1);
    for (int i = 0; i < 20; ++i)
    {
        timer.add_mouse_event(giPoint2(4 * i, 0));
        clock.advance(0.008);
    }
    clock.advance(0.05);
    timer.end_twiddle_event(giPoint2(76, 0));
    EXPECT_EQ(timer.can_spin(), 0);
}
