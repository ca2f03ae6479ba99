#include "grTwiddleTimer.h"

#include "apClockOverride.h"
#include "giVector2.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr double interval = 1.0 / 64; // seconds, exact in binary

struct Drag
{
    std::vector<giPoint2> positions;
    giPoint2 release;
    double gap = interval;
    double between = interval;
};

void play(const Drag& drag, apClockOverride& clock, grTwiddleTimer& timer)
{
    for (std::size_t i = 0; i < drag.positions.size(); ++i)
    {
        if (i > 0)
            clock.advance(drag.between);
        timer.add_mouse_event(drag.positions[i]);
    }
    clock.advance(drag.gap);
    timer.end_twiddle_event(drag.release);
}

int spins_after(const Drag& drag)
{
    apClockOverride clock(100);
    grTwiddleTimer timer(5);
    play(drag, clock, timer);
    return timer.can_spin();
}

class grTwiddleTimerTest : public testing::Test
{
protected:
    void release(const Drag& drag) { play(drag, the_clock, the_timer); }

    apClockOverride the_clock{100};
    grTwiddleTimer the_timer{5};
};
}

TEST(grTwiddleTimer, spins_only_when_let_go_in_motion)
{
    const double late = 2 * interval + 1.0 / 1024;
    const struct
    {
        const char* name;
        Drag drag;
        int spins;
    } cases[] = {
        {"no position", {{}, {0, 0}}, 0},
        {"one position", {{{5, 5}}, {5, 5}}, 0},
        {"two positions", {{{0, 0}, {4, 0}}, {4, 0}}, 1},
        {"released two intervals after the last", {{{0, 0}, {4, 0}, {8, 0}}, {8, 0}, 2 * interval}, 1},
        {"released later than that", {{{0, 0}, {4, 0}, {8, 0}}, {8, 0}, late}, 0},
        {"all at one time, release too: no ratio", {{{0, 0}, {4, 0}, {8, 0}}, {8, 0}, 0, 0}, 0},
        {"all at one time, release later", {{{0, 0}, {4, 0}, {8, 0}}, {8, 0}, interval, 0}, 0},
        {"mean step of half a pixel", {{{0, 0}, {0, 1}, {0, 1}}, {0, 1}}, 1},
        {"mean step of a third of a pixel", {{{0, 0}, {0, 1}, {0, 1}, {0, 1}}, {0, 1}}, 0},
        {"there and back again", {{{0, 0}, {9, 0}, {0, 0}}, {0, 0}}, 0},
        // Rest: the last step is at most 1.1 in both components and 0.56 or more off the mean.
        {"fast, then a last step of 1.1", {{{-10, 0}, {0, 0}, {1.1, 0}}, {1, 0}}, 0},
        {"fast, then a last step of 1.2", {{{-10, 0}, {0, 0}, {1.2, 0}}, {1, 0}}, 1},
        {"fast, then 1.1 one way but 1.2 the other", {{{-10, 0}, {0, 0}, {-1.1, -1.2}}, {0, 0}}, 1},
        {"last step -1.1 and 1.1", {{{-10, 0}, {0, 0}, {-1.1, 1.1}}, {0, 0}}, 0},
        // Steps a and 1: the mean is (a - 1) / 2 off the last.
        {"0.5625 off the mean", {{{0, 0}, {2.125, 0}, {3.125, 0}}, {3, 0}}, 0},
        {"0.5547 off the mean", {{{0, 0}, {2.109375, 0}, {3.109375, 0}}, {3, 0}}, 1},
        // The mean of the three steps is 1.67; with the step to the release it would be 1.25, only 0.25 off.
        {"the step to the release does not enter the mean", {{{0, 0}, {2, 0}, {4, 0}, {5, 0}}, {5, 0}}, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(spins_after(c.drag), c.spins) << c.name;
}

TEST(grTwiddleTimer, looks_at_the_last_positions_alone)
{
    // Nine fast positions have left the ring of five: what stays in it is at rest.
    Drag drag;
    for (int i = 0; i < 9; ++i)
        drag.positions.emplace_back(10.0 * i, 0);
    for (int i = 0; i < 5; ++i)
        drag.positions.emplace_back(80, 0);
    drag.release = giPoint2(80, 0);
    EXPECT_EQ(spins_after(drag), 0);

    // And the other way round.
    drag.positions.assign(9, giPoint2(0, 0));
    for (int i = 0; i < 5; ++i)
        drag.positions.emplace_back(10.0 * i, 0);
    drag.release = giPoint2(50, 0);
    EXPECT_EQ(spins_after(drag), 1);
}

TEST_F(grTwiddleTimerTest, lays_the_mean_of_the_steps_up_to_the_release_from_the_release_point_on)
{
    // The ring keeps 30 to 210: five steps of 48 on average end at 270.
    release({{{0, 7}, {10, 7}, {30, 7}, {60, 7}, {100, 7}, {150, 7}, {210, 7}}, {270, 7}});
    ASSERT_EQ(the_timer.can_spin(), 1);
    giPoint2 start, end;
    giVector2 step;
    the_timer.start_end_pt(start, end);
    the_timer.diff_vector(step);
    EXPECT_EQ(start, giPoint2(270, 7));
    EXPECT_EQ(end, giPoint2(318, 7));
    EXPECT_EQ(step, giVector2(48, 0));
}

TEST_F(grTwiddleTimerTest, takes_the_first_position_as_oldest_while_the_ring_has_not_wrapped)
{
    // Exactly as many as the ring holds: the next write is at its start, yet nothing is rotated.
    release({{{0, 0}, {0, 10}, {0, 20}, {0, 30}, {0, 40}}, {0, 50}});
    ASSERT_EQ(the_timer.can_spin(), 1);
    giVector2 step;
    the_timer.diff_vector(step);
    EXPECT_EQ(step, giVector2(0, 10));
}

TEST_F(grTwiddleTimerTest, decides_at_the_first_question_after_the_release_and_keeps_the_answer)
{
    the_timer.add_mouse_event(giPoint2(0, 0));
    the_clock.advance(interval);
    the_timer.add_mouse_event(giPoint2(9, 0));
    EXPECT_EQ(the_timer.can_spin(), 0) << "not released yet";
    the_clock.advance(interval);
    the_timer.end_twiddle_event(giPoint2(9, 0));
    EXPECT_EQ(the_timer.can_spin(), 1) << "the question before the release was not the one that counts";

    the_clock.advance(10);
    the_timer.end_twiddle_event(giPoint2(9, 0));
    EXPECT_EQ(the_timer.can_spin(), 1);
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
