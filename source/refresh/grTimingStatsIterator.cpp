#include "grTimingStatsIterator.h"

#include "grTimingStat.h"
#include "grTimingStats.h"

int grTimingStatsIterator::operator++()
{
    if (the_stats.size() < 1)
        return 0;
    the_index = the_stats.previous(the_index < 0 ? the_stats.current() : the_index);
    if (the_stop < 0)
        the_stop = the_index;
    else if (the_index == the_stop)
        return 0;
    const grTimingStat* stat = the_stats.stat(the_index);
    return stat && !stat->invalid();
}

const grTimingStat* grTimingStatsIterator::operator()() const
{
    return the_stats.stat(the_index);
}
