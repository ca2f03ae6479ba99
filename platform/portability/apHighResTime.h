#pragma once

#include "apExport.h"

/// Monotonic high-resolution clock; as a value, one moment of it. Times are seconds as doubles.
class AP_EXPORT apHighResTime
{
public:
    /// Holds the time at construction.
    apHighResTime() : the_seconds(time()) {}
    explicit apHighResTime(double seconds) : the_seconds(seconds) {}

    operator double() const { return the_seconds; }

    /// Starts the clock; further calls do nothing. The clock also starts by itself when it is first read.
    static void initialise();
    /// Seconds since the clock was started; never decreases and is never negative.
    static double time();
    /// end - start in seconds, not rounded.
    static double time_diff(double start, double end) { return end - start; }

private:
    double the_seconds;
};
