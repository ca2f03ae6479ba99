#include "grRefreshRecorder.h"
#include "grRefreshTimeList.h"

#include "apClockOverride.h"
#include "dgRenderer.h"
#include "dgTraceWindow.h"

#include <gtest/gtest.h>

namespace
{
struct Recorder : testing::Test
{
    // Renderers are only compared.
    dgTraceWindow window{1, 1};
    dgRenderer a{&window, nullptr}, b{&window, nullptr}, c{&window, nullptr};
    apClockOverride clock{5, 1000};

    void add(grRefreshRecorder& recorder, dgRenderer& renderer, double seconds)
    {
        clock.advance(1);
        recorder.add_frame_time(&renderer, seconds);
    }
    static int knows(const grRefreshRecorder& recorder, dgRenderer& renderer)
    {
        double time;
        return recorder.latest_time(&renderer, time);
    }
};
}

TEST_F(Recorder, averages_the_last_five_frames_and_stamps_them_with_the_wall_clock)
{
    grRefreshRecorder recorder(2);
    for (int i = 1; i <= 6; ++i)
        add(recorder, a, i);
    double average = -1, latest = -1;
    int count = -1;
    EXPECT_EQ(recorder.average_frame_time(&a, average, count), 1);
    EXPECT_EQ(count, 5);
    EXPECT_DOUBLE_EQ(average, (2 + 3 + 4 + 5 + 6) / 5.0);
    EXPECT_EQ(recorder.latest_time(&a, latest), 1);
    EXPECT_EQ(latest, 1006);
    EXPECT_EQ(recorder.current_time(), 1006);
}

TEST_F(Recorder, knows_nothing_of_a_renderer_that_was_not_measured_or_was_cleared)
{
    grRefreshRecorder recorder(2);
    double average = -1, latest = -1;
    int count = -1;
    for (int cleared = 0; cleared < 2; ++cleared)
    {
        EXPECT_EQ(recorder.average_frame_time(&a, average, count), 0);
        EXPECT_EQ(average, 0);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(recorder.latest_time(&a, latest), 0);
        EXPECT_EQ(latest, 0);
        EXPECT_EQ(recorder.clear_times(&a), 0) << "queries make no lists";
        add(recorder, a, 1);
        EXPECT_EQ(recorder.clear_times(&a), 1);
    }
}

TEST_F(Recorder, forgets_the_renderer_that_was_measured_longest_ago)
{
    grRefreshRecorder recorder(2);
    add(recorder, a, 1);
    add(recorder, b, 1);
    add(recorder, a, 1); // a is older as a list, b as a measurement
    add(recorder, c, 1);
    EXPECT_TRUE(knows(recorder, a));
    EXPECT_FALSE(knows(recorder, b));
    EXPECT_TRUE(knows(recorder, c));
}

TEST_F(Recorder, never_forgets_the_new_renderer_and_takes_the_first_of_equally_old_ones)
{
    grRefreshRecorder none(0);
    add(none, a, 1);
    EXPECT_TRUE(knows(none, a));
    add(none, b, 1);
    EXPECT_FALSE(knows(none, a));
    EXPECT_TRUE(knows(none, b));

    grRefreshRecorder recorder(2);
    recorder.add_frame_time(&a, 1);
    recorder.add_frame_time(&b, 1);
    recorder.add_frame_time(&c, 1);
    EXPECT_FALSE(knows(recorder, a));
    EXPECT_TRUE(knows(recorder, b));
}

TEST(grRefreshTimeList, keeps_the_newest_first)
{
    grRefreshTimeList list(nullptr, 2);
    int count = -1;
    EXPECT_EQ(list.average_frame_time(count), 0);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(list.latest_time(), 0);
    list.add_timing(1, 10);
    list.add_timing(2, 20);
    list.add_timing(4, 15);
    EXPECT_EQ(list.average_frame_time(count), 3);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(list.latest_time(), 15);
}
