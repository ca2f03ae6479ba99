#include "apHighResTime.h"

#include "apClockOverride.h"

#include <chrono>

namespace
{
using monotonic = std::chrono::steady_clock;

monotonic::time_point clock_start()
{
    static const monotonic::time_point start = monotonic::now();
    return start;
}
}

void apHighResTime::initialise()
{
    clock_start();
}

double apHighResTime::time()
{
    if (const apClockOverride* clock = apClockOverride::current())
        return clock->time();
    const monotonic::time_point start = clock_start();
    return std::chrono::duration<double>(monotonic::now() - start).count();
}
