// Which throws spin, and how fast: what a view turns by in the second after the release, in pixels of travel, beside
// the speed of the hand, for mice of several rates and an idle loop of 60 calls a second. The clock is a simulated one.
#include "apClockOverride.h"
#include "grTwiddleTimer.h"

#include <cmath>
#include <cstdio>

namespace
{
constexpr double idle_rate = 60;

// The speed of the spin in pixels a second, 0 for none. The hand moves for a quarter of a second, comes to rest for a
// while, and lets go; the mouse reports whole pixels, and nothing when it has not moved by one.
double spin_speed(double mouse_rate, double hand_speed, double rest_seconds, int time_true)
{
    apClockOverride clock(100);
    grTwiddleTimer timer(time_true ? 256 : 5);
    timer.time_true(time_true);
    const int events = static_cast<int>(0.25 * mouse_rate);
    int x = 0;
    for (int i = 1; i <= events; ++i)
    {
        clock.set_time(100 + i / mouse_rate);
        const int now = static_cast<int>(std::floor(hand_speed * i / mouse_rate));
        if (now != x)
            timer.add_mouse_event(giPoint2(now, 0));
        x = now;
    }
    clock.advance(rest_seconds);
    timer.end_twiddle_event(giPoint2(x, 0));
    if (!timer.can_spin())
        return 0;
    giVector2 step;
    timer.diff_vector(step);
    return step.length() * (time_true ? 1 / grTwiddleTimer::time_true_step : idle_rate);
}

void print_table(const char* title, int time_true)
{
    constexpr double rates[] = {60, 125, 500, 1000};
    std::printf("%s\n%-30s", title, "hand, pixels/s; rest, ms");
    for (const double rate : rates)
        std::printf("%9.0f Hz", rate);
    std::printf("\n");
    for (const double rest : {0.0, 0.01, 0.03, 0.1})
        for (const double speed : {20.0, 100.0, 400.0, 1500.0})
        {
            std::printf("%12.0f %17.0f", speed, rest * 1000);
            for (const double rate : rates)
            {
                const double spin = spin_speed(rate, speed, rest, time_true);
                if (spin > 0)
                    std::printf("%12.0f", spin);
                else
                    std::printf("%12s", "-");
            }
            std::printf("\n");
        }
}
}

int main()
{
    print_table("By events, the default:", 0);
    print_table("By time, with spin_time_true:", 1);
}
