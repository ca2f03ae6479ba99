#include "grTimingStats.h"

#include "grTimingStat.h"
#include "grTimingStatsIterator.h"

#include <algorithm>
#include <ostream>

grTimingStats::grTimingStats() = default;
grTimingStats::~grTimingStats() = default;

void grTimingStats::init(int n)
{
    the_size = std::max(n, 0);
    the_active = nullptr;
    if (static_cast<int>(the_stats.size()) != the_size)
    {
        the_stats.clear();
        for (int i = 0; i < the_size; ++i)
            the_stats.emplace_back(new_stat());
    }
    for (const auto& stat : the_stats)
        stat->set_invalid();
}

grTimingStat* grTimingStats::new_stat()
{
    return new grTimingStat;
}

void grTimingStats::start()
{
    // After a change to a smaller size the place may lie behind the last stat.
    while (static_cast<int>(the_stats.size()) <= the_current)
        the_stats.emplace_back(new_stat());
    the_active = the_stats[static_cast<std::size_t>(the_current)].get();
    the_active->start();
}

void grTimingStats::end()
{
    if (!the_active)
        return;
    the_active->end();
    if (the_debug && the_debug_stream)
        *the_debug_stream << "grTimingStats::end() {\n  current stat at " << the_current << " and is " << *the_active
                          << "}\n";
    the_active = nullptr;
    forwards();
}

grTimingStat* grTimingStats::current_stat()
{
    return const_cast<grTimingStat*>(stat(the_current));
}

void grTimingStats::forwards()
{
    if (++the_current >= the_size)
        the_current = 0;
    the_active = nullptr;
}

const grTimingStat* grTimingStats::stat(int i) const
{
    return i >= 0 && i < static_cast<int>(the_stats.size()) ? the_stats[static_cast<std::size_t>(i)].get() : nullptr;
}

void grTimingStats::debug_print(int on, std::ostream* stream)
{
    the_debug = on;
    the_debug_stream = stream;
}

void grTimingStats::last_stats(double window, int& count, double& average) const
{
    double shortest = 0, longest = 0;
    grTimingStat oldest, newest;
    last_stats(window, shortest, longest, count, oldest, newest, average);
}

void grTimingStats::last_stats(double window, double& shortest, double& longest, int& count, grTimingStat& oldest,
                               grTimingStat& newest, double& average) const
{
    count = 0;
    shortest = longest = average = 0;
    double reference = 0, sum = 0;
    int first = 1;
    for (grTimingStatsIterator it(*this); ++it;)
    {
        const grTimingStat& stat = *it();
        if (first)
            reference = stat.tstart();
        first = 0;
        if (reference - stat.tstart() > window)
            continue;
        if (count == 0)
        {
            newest.become(utCopy, stat);
            shortest = longest = stat.time_diff();
        }
        oldest.become(utCopy, stat);
        shortest = std::min(shortest, stat.time_diff());
        longest = std::max(longest, stat.time_diff());
        sum += stat.time_diff();
        ++count;
    }
    if (count > 0)
        average = sum / count;
}

void grTimingStats::stats(int n, int& count, grTimingStat& oldest, grTimingStat& newest, double& average) const
{
    count = 0;
    double sum = 0;
    for (grTimingStatsIterator it(*this); count < n && ++it;)
    {
        const grTimingStat& stat = *it();
        if (count == 0)
            newest.become(utCopy, stat);
        oldest.become(utCopy, stat);
        sum += stat.time_diff();
        ++count;
    }
    average = count > 0 ? sum / count : 0;
}

void grTimingStats::print(std::ostream& os) const
{
    int count = 0;
    double average = 0;
    grTimingStat oldest, newest;
    stats(the_size, count, oldest, newest, average);
    os << "grTimingStats::print() {\n";
    os << "  nstats_found " << count << "\n";
    os << "  time_diff_ave " << average << "\n";
    if (average > 0)
        os << "  ave frames per sec " << 1 / average << "\n";
    os << "  oldest stat is " << oldest;
    os << "  newest stat is " << newest << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grTimingStats& stats)
{
    stats.print(os);
    return os;
}
