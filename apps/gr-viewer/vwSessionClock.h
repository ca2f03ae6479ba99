#pragma once

#include "apClockOverride.h"

/// Replaces the library's clocks by one that stands at the time of a session, for the life of the object.
///
/// Each clock of a process starts well after the one before it ended: tools remember the end of the last twiddle, and a
/// clock that jumped back would look like a twiddle that ends in the future.
class vwSessionClock
{
public:
    vwSessionClock();
    vwSessionClock(const vwSessionClock&) = delete;
    vwSessionClock& operator=(const vwSessionClock&) = delete;

    /// Seconds since the start of the session.
    void session_time(double seconds);

private:
    double the_start;
    apClockOverride the_override;
};
