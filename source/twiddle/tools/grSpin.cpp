#include "grSpin.h"

#include "apHighResTime.h"
#include "grToolResources.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr int timer_capacity = 5;
// What a mouse of 1000 Hz reports in a quarter of a second.
constexpr int time_true_capacity = 256;
constexpr double smallest_speed = 0.01;

int is_time_true(const gwResourceDB* db)
{
    int on = 0;
    gr_read_flag(db, "spin_time_true", on);
    return on;
}
}

grSpin::grSpin(const gwResourceDB* db) : grSpin(db, is_time_true(db)) {}

grSpin::grSpin(const gwResourceDB* db, int time_true)
    : the_time_true(time_true), the_timer(time_true ? time_true_capacity : timer_capacity)
{
    the_timer.time_true(time_true);
    gr_read_number(db, "spin_decay", the_half_life);
    the_half_life = std::max(the_half_life, 0.0);
    gr_read_flag(db, "spin_in_frame_time", the_in_frame_time);
}

void grSpin::start()
{
    the_start_time = apHighResTime::time();
    the_last_time = the_start_time - the_timer.gap();
    the_over = false;
}

// Relative to that of the throw.
double grSpin::speed(double time) const
{
    return the_half_life > 0 ? std::exp2(-std::max(time - the_start_time, 0.0) / the_half_life) : 1.0;
}

double grSpin::steps()
{
    const double now = apHighResTime::time();
    const double passed = now - the_last_time;
    double result = 1;
    if (!the_time_true)
        result = speed(now);
    else if (the_half_life > 0 && the_last_time >= the_start_time)
        // The integral of the speed over the time that has passed.
        result =
            (speed(the_last_time) - speed(now)) * the_half_life / std::numbers::ln2 / grTwiddleTimer::time_true_step;
    else
        result = passed / grTwiddleTimer::time_true_step;
    the_last_time = now;
    the_over = speed(now) < smallest_speed;
    return result;
}
