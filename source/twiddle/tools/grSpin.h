#pragma once

#include "grTwiddleTimer.h"

class gwResourceDB;

/// How a view that was let go while moving goes on turning: by how many of the throw's steps at each idle call.
///
/// Without resources it is one step at every call, for ever. Resources: "spin_time_true", yes/no (no), counts steps of
/// 1/60 second by the clock instead, so that the view turns as fast as the hand did; "spin_decay", seconds (0, never),
/// is the time in which the speed halves. A spin that has become slower than a hundredth is over. "spin_in_frame_time",
/// yes/no (no), says that pictures of the spin are frames like those of the drag, and not complete ones.
class grSpin
{
public:
    explicit grSpin(const gwResourceDB* db);

    /// Measures the throw.
    grTwiddleTimer& timer() { return the_timer; }

    /// The view is let go now, after the timer has been told of it.
    void start();
    /// The steps to turn by now. Counts from the last call, or from the last movement before the release.
    double steps();
    bool over() const { return the_over; }

    bool in_frame_time() const { return the_in_frame_time; }

private:
    explicit grSpin(const gwResourceDB* db, int time_true);
    double speed(double time) const;

    int the_time_true;
    int the_in_frame_time = 0;
    grTwiddleTimer the_timer;
    double the_half_life = 0; // seconds, 0: never
    double the_start_time = 0;
    double the_last_time = 0;
    bool the_over = false;
};
