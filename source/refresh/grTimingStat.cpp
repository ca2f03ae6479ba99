#include "grTimingStat.h"

#include "apHighResTime.h"
#include "apWallClock.h"

#include <cmath>
#include <ostream>

grTimingStat::~grTimingStat() = default;

void grTimingStat::become(utCopyTag, const grTimingStat& other)
{
    the_hires_start = other.the_hires_start;
    the_tstart = other.the_tstart;
    the_time_diff = other.the_time_diff;
}

void grTimingStat::set_invalid()
{
    the_hires_start = the_tstart = -1.0;
    the_time_diff = 0;
}

void grTimingStat::start()
{
    apHighResTime::initialise();
    the_hires_start = apHighResTime::time();
    the_tstart = tnow();
    the_time_diff = -1.0;
}

void grTimingStat::end()
{
    the_time_diff = apHighResTime::time_diff(the_hires_start, apHighResTime::time());
}

void grTimingStat::set_times(double diff, double start)
{
    the_hires_start = the_tstart = start;
    the_time_diff = diff;
}

std::string grTimingStat::tstart_string() const
{
    return ap_date_text(std::floor(the_tstart));
}

double grTimingStat::tnow()
{
    return timedp();
}

void grTimingStat::print(std::ostream& os) const
{
    os << "grTimingStat {\n";
    if (invalid())
    {
        os << "  invalid\n}\n";
        return;
    }
    const double whole = std::floor(the_tstart);
    os << "  time_diff() " << the_time_diff << "\n";
    os << "  tstart() " << static_cast<long long>(whole) << " + " << the_tstart - whole << "\n";
    os << "  tstart_string() " << tstart_string() << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grTimingStat& stat)
{
    stat.print(os);
    return os;
}
