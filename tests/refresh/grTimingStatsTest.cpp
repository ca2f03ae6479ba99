#include "grTimingStats.h"

#include "apClockOverride.h"
#include "grTimingStat.h"
#include "grTimingStatsIterator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
// Intervals of these lengths, each starting a second after the end of the one before.
void fill(grTimingStats& stats, apClockOverride& clock, const std::vector<double>& lengths)
{
    for (const double length : lengths)
    {
        stats.start();
        clock.advance(length);
        stats.end();
        clock.advance(1);
    }
}

std::vector<double> walk(const grTimingStats& stats)
{
    std::vector<double> found;
    for (grTimingStatsIterator it(stats); ++it;)
        found.push_back(it()->time_diff());
    return found;
}

using Lengths = std::vector<double>;
}

TEST(grTimingStat, measures_on_the_fine_clock_and_dates_by_the_wall_clock)
{
    apClockOverride clock(5, 1000000000);
    grTimingStat stat;
    EXPECT_EQ(stat.invalid(), 1);
    EXPECT_EQ(stat.time_diff(), 0);
    stat.start();
    EXPECT_EQ(stat.time_diff(), -1);
    EXPECT_EQ(stat.invalid(), 0);
    clock.advance(0.25);
    stat.end();
    EXPECT_EQ(stat.time_diff(), 0.25);
    EXPECT_EQ(stat.tstart(), 1000000000);
    EXPECT_EQ(stat.tstart_string(), "2001-09-09T01:46:40Z");
    stat.set_times(3, -2);
    EXPECT_EQ(stat.invalid(), 1);
}

TEST(grTimingStats, walks_from_the_newest_to_the_oldest)
{
    apClockOverride clock(1, 100);
    grTimingStats stats;
    EXPECT_EQ(walk(stats), Lengths());
    stats.init(3);
    EXPECT_EQ(walk(stats), Lengths());
    fill(stats, clock, {1, 2});
    EXPECT_EQ(walk(stats), (Lengths{2, 1}));
    fill(stats, clock, {3});
    EXPECT_EQ(walk(stats), (Lengths{3, 2, 1})) << "a full ring has its oldest where the next will be";
    fill(stats, clock, {4, 5});
    EXPECT_EQ(walk(stats), (Lengths{5, 4, 3}));
    stats.start();
    EXPECT_EQ(walk(stats), (Lengths{5, 4, -1})) << "one that runs comes last";
    stats.init(1);
    fill(stats, clock, {6, 7});
    EXPECT_EQ(walk(stats).front(), 7) << "the place comes back into a smaller ring";
}

TEST(grTimingStats, averages_those_that_started_shortly_before_the_newest)
{
    apClockOverride clock(1, 100);
    grTimingStats stats;
    stats.init(10);
    int count = -1;
    double average = -1;
    stats.last_stats(1000, count, average);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(average, 0);
    fill(stats, clock, {1, 2, 3}); // start at 100, 102, 105
    stats.last_stats(0, count, average);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(average, 3);
    stats.last_stats(3, count, average);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(average, 2.5);

    double shortest = 0, longest = 0;
    grTimingStat oldest, newest;
    stats.last_stats(5, shortest, longest, count, oldest, newest, average);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(shortest, 1);
    EXPECT_EQ(longest, 3);
    EXPECT_EQ(oldest.tstart(), 100);
    EXPECT_EQ(newest.tstart(), 105);
    stats.stats(2, count, oldest, newest, average);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(oldest.tstart(), 102);
    EXPECT_EQ(average, 2.5);
}

TEST(grTimingStats, skips_older_ones_and_walks_on)
{
    grTimingStats stats;
    stats.init(3);
    for (const double start : {50.0, 10.0, 49.0}) // entered out of order
    {
        stats.current_stat()->set_times(1, start);
        stats.forwards();
    }
    int count = 0;
    double average = 0;
    stats.last_stats(5, count, average);
    EXPECT_EQ(count, 2);
}

TEST(grTimingStats, keeps_its_stats_when_initialised_to_the_same_size)
{
    apClockOverride clock(1, 100);
    grTimingStats stats;
    stats.init(2);
    const grTimingStat* first = stats.stat(0);
    fill(stats, clock, {1});
    stats.init(2);
    EXPECT_EQ(stats.stat(0), first);
    EXPECT_EQ(first->invalid(), 1);
    EXPECT_EQ(stats.current(), 1) << "the place stays";
}
