#include "grTwiddleTimer.h"

#include "apHighResTime.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace
{
constexpr double longest_gap_in_intervals = 2.0;
constexpr double shortest_mean_step_pixels = 0.5;
constexpr double rest_step_pixels = 1.1;
constexpr double rest_change_pixels = 0.56;

// Of throws measured by time.
constexpr double measured_seconds = 0.06;
constexpr double longest_gap_seconds = 0.04;
constexpr double slowest_pixels_per_second = 30;
}

grTwiddleTimer::grTwiddleTimer(int capacity)
    : the_capacity(capacity), the_points(static_cast<std::size_t>(capacity)),
      the_times(static_cast<std::size_t>(capacity))
{}

grTwiddleTimer::~grTwiddleTimer() = default;

int grTwiddleTimer::can_spin() const
{
    if (!the_got_end_twiddle_event_flag)
        return 0;
    if (!the_calced_can_spin_flag)
    {
        the_calced_can_spin_flag = 1;
        the_can_spin_flag = the_time_true ? calculate_time_true() : calculate_can_spin();
    }
    return the_can_spin_flag;
}

void grTwiddleTimer::add_mouse_event(const giPoint2& position)
{
    const auto next = static_cast<std::size_t>(the_next);
    the_points[next] = position;
    the_times[next] = get_time();
    ++the_count;
    if (++the_next == the_capacity)
        the_next = 0;
}

void grTwiddleTimer::end_twiddle_event(const giPoint2& position)
{
    the_got_end_twiddle_event_flag = 1;
    the_end_twiddle_point = position;
    the_end_twiddle_time = get_time();
}

bool grTwiddleTimer::calculate_can_spin() const
{
    if (the_count < 2)
        return false;

    const int kept = std::min(the_count, the_capacity);
    const giPoint2& oldest = point(0);
    const giPoint2& last = point(kept - 1);
    const double last_time = time(kept - 1);

    const double mean_interval = (last_time - time(0)) / (kept - 1);
    const double gap = the_end_twiddle_time - last_time;
    // Events at one and the same time give no ratio; comparing this way round refuses them.
    if (!(gap / mean_interval <= longest_gap_in_intervals))
        return false;

    const giVector2 mean_step = (last - oldest) / (kept - 1);
    if (mean_step.length() < shortest_mean_step_pixels)
        return false;

    the_start_point = the_end_twiddle_point;
    the_end_point = the_end_twiddle_point + (the_end_twiddle_point - oldest) / kept;

    const giVector2 last_step = last - point(kept - 2);
    const bool slow = std::abs(last_step.x()) <= rest_step_pixels && std::abs(last_step.y()) <= rest_step_pixels;
    if (slow && (mean_step - last_step).length() >= rest_change_pixels)
        return false;

    the_gap = gap;
    the_mean_interval = mean_interval;
    return true;
}

bool grTwiddleTimer::calculate_time_true() const
{
    if (the_count < 2)
        return false;
    // At least the last two positions are measured, however slowly they come.
    const int last = std::min(the_count, the_capacity) - 1;
    int first = last - 1;
    while (first > 0 && time(last) - time(first - 1) <= measured_seconds)
        --first;
    const double span = time(last) - time(first);
    const double mean_interval = span / (last - first);
    const double gap = the_end_twiddle_time - time(last);
    if (!(span > 0) || gap > std::max(longest_gap_seconds, longest_gap_in_intervals * mean_interval))
        return false;

    const giVector2 velocity = (point(last) - point(first)) / span;
    if (velocity.length() < slowest_pixels_per_second)
        return false;

    the_start_point = the_end_twiddle_point;
    the_end_point = the_end_twiddle_point + velocity * time_true_step;
    the_gap = gap;
    the_mean_interval = mean_interval;
    return true;
}

std::size_t grTwiddleTimer::slot(int i) const
{
    // Once the ring has wrapped, the oldest position is the one to be overwritten next.
    const int oldest = the_count > the_capacity ? the_next : 0;
    return static_cast<std::size_t>((oldest + i) % the_capacity);
}

void grTwiddleTimer::start_end_pt(giPoint2& start, giPoint2& end) const
{
    start = the_start_point;
    end = the_end_point;
}

void grTwiddleTimer::diff_vector(giVector2& step) const
{
    step = the_end_point - the_start_point;
}

double grTwiddleTimer::get_time() const
{
    return apHighResTime::time();
}

void grTwiddleTimer::print(std::ostream& os) const
{
    os << "grTwiddleTimer {\n"
       << "  the_got_end_twiddle_event_flag is " << the_got_end_twiddle_event_flag << '\n'
       << "  the_end_twiddle_point is " << the_end_twiddle_point << '\n'
       << "  the_end_twiddle_time is " << the_end_twiddle_time << '\n'
       << "  the_calced_can_spin_flag is " << the_calced_can_spin_flag << '\n'
       << "  the_can_spin_flag is " << the_can_spin_flag << '\n'
       << "  the_gap is " << the_gap << '\n'
       << "  the_mean_interval is " << the_mean_interval << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grTwiddleTimer& timer)
{
    timer.print(os);
    return os;
}
