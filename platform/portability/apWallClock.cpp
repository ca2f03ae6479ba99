#include "apWallClock.h"

#include "apClockOverride.h"

#include <chrono>
#include <cmath>
#include <cstdio>

double timedp()
{
    if (const apClockOverride* clock = apClockOverride::current())
        return clock->wall_time();
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::string ap_date_text(double seconds_since_1970)
{
    // Calendar arithmetic of the standard library covers every year that four digits can name.
    constexpr double seconds_to_year_10000 = 253402300800.0;
    constexpr double seconds_to_year_0 = -62167219200.0;
    if (!(seconds_since_1970 >= seconds_to_year_0 && seconds_since_1970 < seconds_to_year_10000))
        return "no date";

    using namespace std::chrono;
    const sys_seconds moment{seconds(static_cast<long long>(std::floor(seconds_since_1970)))};
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss clock(moment - day);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}
