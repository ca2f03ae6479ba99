#include "apClockOverride.h"
#include "apHighResTime.h"
#include "apWallClock.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <string>

TEST(apHighResTime, never_goes_back_nor_below_zero)
{
    apHighResTime::initialise();
    double last = apHighResTime::time();
    EXPECT_GE(last, 0.0);
    for (int i = 0; i < 1000; ++i)
    {
        const double now = apHighResTime::time();
        ASSERT_GE(now, last);
        last = now;
    }
    apHighResTime::initialise();
    EXPECT_GE(apHighResTime::time(), last) << "initialising again must not restart the clock";
}

TEST(apClockOverride, drives_both_clocks_and_gives_them_back)
{
    const double real_before = apHighResTime::time();
    {
        apClockOverride clock(10.0, 1e9);
        const apHighResTime start;
        clock.advance(0.25);
        EXPECT_EQ(apHighResTime::time_diff(start, apHighResTime::time()), 0.25);
        EXPECT_EQ(timedp(), 1e9 + 0.25);

        clock.set_time(50.0);
        EXPECT_EQ(timedp(), 1e9 + 0.25) << "the wall clock stays when the other is set";
        clock.wall_time(7.0);
        EXPECT_EQ(apHighResTime::time(), 50.0);
        EXPECT_EQ(timedp(), 7.0);
    }
    EXPECT_GE(apHighResTime::time(), real_before);
    EXPECT_GT(timedp(), 1.6e9) << "the real wall clock is past 2020";
}

TEST(apClockOverride, nests)
{
    apClockOverride outer(1.0);
    {
        apClockOverride inner(100.0);
        inner.advance(1.0);
        EXPECT_EQ(apHighResTime::time(), 101.0);
    }
    EXPECT_EQ(apHighResTime::time(), 1.0);
    EXPECT_EQ(apClockOverride::current(), &outer);
}

TEST(apWallClock, writes_the_whole_second)
{
    for (const auto& row : ts_table(TS_TABLES "dates.table", "dates"))
        EXPECT_EQ(ap_date_text(std::stod(row[0])), row[1]);
}
