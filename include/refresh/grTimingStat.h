#pragma once

#include "grExport.h"
#include "utCopy.h"

#include <iosfwd>
#include <string>

/// One timed interval. Times are seconds.
class GR_EXPORT grTimingStat
{
public:
    /// Holds no measurement.
    grTimingStat() = default;
    grTimingStat(const grTimingStat&) = default;
    grTimingStat& operator=(const grTimingStat&) = default;

    virtual void become(utCopyTag, const grTimingStat& other);
    virtual void set_invalid();
    /// Between start and end, time_diff is -1.
    virtual void start();
    virtual void end();
    virtual ~grTimingStat();

    /// Enters an interval that was measured elsewhere; start is its wall-clock time, below 0 for no measurement.
    void set_times(double diff, double start);

    /// 1 when there is no measurement.
    int invalid() const { return the_hires_start < 0.0; }
    double time_diff() const { return the_time_diff; }

    /// Wall-clock time of the start, since 1970, and its date.
    double tstart() const { return the_tstart; }
    std::string tstart_string() const;
    /// The wall-clock time now.
    static double tnow();

    void print(std::ostream& os) const;

private:
    double the_hires_start = -1.0;
    double the_tstart = -1.0;
    double the_time_diff = 0;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grTimingStat& stat);
