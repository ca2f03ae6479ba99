#include "vwSessionClock.h"

#include <algorithm>
#include <cmath>

namespace
{
// A power of two, so that adding it takes as few bits as can be from the times of a session.
constexpr double gap_seconds = 4096;

double the_next_start = 0;
}

vwSessionClock::vwSessionClock() : the_start(the_next_start), the_override(the_start, the_start)
{
    the_next_start += gap_seconds;
}

void vwSessionClock::session_time(double seconds)
{
    const double now = the_start + seconds;
    the_override.set_time(now);
    the_override.wall_time(now);
    the_next_start = std::max(the_next_start, (std::floor(now / gap_seconds) + 1) * gap_seconds);
}
