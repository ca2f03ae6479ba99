#pragma once

#include "grExport.h"

class grTimingStat;
class grTimingStats;

/// Walks the intervals of a ring from the newest finished one to older ones:
///
///     for (grTimingStatsIterator it(stats); ++it;)
///         sum += it()->time_diff();
class GR_EXPORT grTimingStatsIterator
{
public:
    /// The ring must outlive the walk and not change meanwhile.
    explicit grTimingStatsIterator(const grTimingStats& stats) : the_stats(stats) {}

    /// 1 while a measured interval is reached.
    int operator++();
    /// The interval reached; null before the first step.
    const grTimingStat* operator()() const;

private:
    const grTimingStats& the_stats;
    int the_index = -1;
    int the_stop = -1;
};
