#pragma once

#include "apExport.h"

/// Replaces apHighResTime and timedp by hand-driven clocks for the life of the object.
///
/// Overrides nest: the youngest one drives the clocks, and the one before it takes over, with the times it had,
/// when the youngest ends. They must be destroyed in the reverse order of their construction.
class AP_EXPORT apClockOverride
{
public:
    /// time is what apHighResTime::time answers, wall_time what timedp answers; both in seconds.
    explicit apClockOverride(double time = 0.0, double wall_time = 0.0);
    ~apClockOverride();
    apClockOverride(const apClockOverride&) = delete;
    apClockOverride& operator=(const apClockOverride&) = delete;

    /// Moves both clocks on.
    void advance(double seconds);
    /// Sets the high-resolution clock alone.
    void set_time(double seconds) { the_time = seconds; }
    /// Sets the wall clock alone.
    void wall_time(double seconds) { the_wall_time = seconds; }

    double time() const { return the_time; }
    double wall_time() const { return the_wall_time; }

    /// The override that drives the clocks, or null while the real clocks run.
    static apClockOverride* current();

private:
    double the_time;
    double the_wall_time;
    apClockOverride* the_previous; // null for the outermost
};
