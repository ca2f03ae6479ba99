#include "grRefreshTimeList.h"

void grRefreshTimeList::add_timing(double refresh_time, double time_of_refresh)
{
    the_times.add_first(grRefreshTime(the_renderer, refresh_time, time_of_refresh));
    the_times.truncate(the_maximum);
}

double grRefreshTimeList::average_frame_time(int& count) const
{
    count = the_times.count();
    double sum = 0;
    for (const grRefreshTime& time : the_times)
        sum += time.refresh_time();
    return count ? sum / count : 0;
}

double grRefreshTimeList::latest_time() const
{
    return the_times.empty() ? 0 : the_times.first().time_of_refresh();
}
