#pragma once

#include "giPoint2.h"
#include "grExport.h"

#include <cstddef>
#include <iosfwd>
#include <vector>

/// Records the last positions of the pointer during a twiddle with their times, and decides from them whether what was
/// turned keeps spinning after the release.
///
/// Positions are device pixels, times seconds of the high-resolution clock. It spins when the release came within two
/// mean intervals of the last movement and the pointer was moving by half a pixel or more an event, unless it was
/// already coming to rest.
class GR_EXPORT grTwiddleTimer
{
public:
    /// capacity is the number of positions kept, at least 2.
    explicit grTwiddleTimer(int capacity);

    /// 1 when the view shall spin. The answer is worked out by the first call after the end event and then kept; before
    /// the end event it is 0 and not kept.
    virtual int can_spin() const;

    virtual ~grTwiddleTimer();
    grTwiddleTimer(const grTwiddleTimer&) = delete;
    grTwiddleTimer& operator=(const grTwiddleTimer&) = delete;

    /// Seconds that a step of the spin stands for when it is measured by time.
    static constexpr double time_true_step = 1.0 / 60;

    /// Measures the throw by time instead of events, so that mice of all rates are alike: the speed is that of the last
    /// 0.06 seconds of movement, there is no spin below 30 pixels a second or when the release came more than 0.04
    /// seconds (and more than two mean intervals) after the last movement, and the spin step is the way of
    /// time_true_step. To be set before the release.
    void time_true(int on) { the_time_true = on; }

    /// Seconds from the last recorded position to the release.
    double gap() const { return the_gap; }

    /// Records a position now; the oldest one is dropped when all are in use.
    void add_mouse_event(const giPoint2& position);

    /// Records the release now.
    void end_twiddle_event(const giPoint2& position);

    /// The step that one turn of the spin stands for: from the release point on, the mean of the recorded steps that
    /// end there. Meaningful once can_spin() has answered 1.
    void start_end_pt(giPoint2& start, giPoint2& end) const;

    /// The same as a vector, end minus start.
    void diff_vector(giVector2& step) const;

    /// Now, in seconds.
    double get_time() const;

    void print(std::ostream& os) const;

private:
    bool calculate_can_spin() const;
    bool calculate_time_true() const;
    /// Kept positions from the oldest on, counted from 0.
    std::size_t slot(int i) const;
    const giPoint2& point(int i) const { return the_points[slot(i)]; }
    double time(int i) const { return the_times[slot(i)]; }
    int the_capacity;
    int the_time_true = 0;
    std::vector<giPoint2> the_points; // ring of the_capacity
    std::vector<double> the_times;    // ring of the_capacity
    int the_count = 0;                // positions ever added
    int the_next = 0;                 // where the next one is written
    int the_got_end_twiddle_event_flag = 0;
    giPoint2 the_end_twiddle_point;
    double the_end_twiddle_time = -1.0;

    // Worked out by can_spin.
    mutable int the_calced_can_spin_flag = 0;
    mutable int the_can_spin_flag = 0;
    mutable giPoint2 the_start_point;
    mutable giPoint2 the_end_point;
    mutable double the_gap = 0;           // seconds from the last position to the release
    mutable double the_mean_interval = 0; // seconds between positions
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grTwiddleTimer& timer);
