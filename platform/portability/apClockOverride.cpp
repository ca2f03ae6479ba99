#include "apClockOverride.h"

namespace
{
apClockOverride* the_current_override = nullptr;
}

apClockOverride::apClockOverride(double time, double wall_time)
    : the_time(time), the_wall_time(wall_time), the_previous(the_current_override)
{
    the_current_override = this;
}

apClockOverride::~apClockOverride()
{
    the_current_override = the_previous;
}

void apClockOverride::advance(double seconds)
{
    the_time += seconds;
    the_wall_time += seconds;
}

apClockOverride* apClockOverride::current()
{
    return the_current_override;
}
