#pragma once

#include "grExport.h"

#include <iosfwd>
#include <memory>
#include <vector>

class grTimingStat;

/// A ring of the most recent timed intervals:
///
///     grTimingStats stats;
///     stats.init(100);
///     stats.start();
///     draw();
///     stats.end();
///     stats.last_stats(2.0, count, average); // over the last two seconds
///
/// An interval that was measured elsewhere is entered by current_stat()->set_times(...) and forwards(). Queries walk
/// from the newest interval to older ones. They are meant between intervals: one that is running counts as the oldest
/// and lasts -1 seconds.
class GR_EXPORT grTimingStats
{
public:
    /// Holds nothing before init.
    grTimingStats();
    grTimingStats(const grTimingStats&) = delete;
    grTimingStats& operator=(const grTimingStats&) = delete;

    /// Makes room for n intervals and forgets all. The place of the next one stays where it was.
    virtual void init(int n);
    /// A new stat for the ring, which owns it. To be overridden for stats that hold more.
    virtual grTimingStat* new_stat();
    /// Starts an interval at the place of the next one, over the oldest of a full ring. One that was started and not
    /// ended stays there until then as running, and is overwritten.
    virtual void start();
    /// Ends the interval that was started and moves on to the next place; nothing happens when none was started.
    virtual void end();
    /// The stat at the place of the next interval, null before init. Owned by the ring.
    virtual grTimingStat* current_stat();
    /// Moves on to the next place, after the last one to the first; an interval that was started is not ended by it.
    virtual void forwards();
    virtual ~grTimingStats();

    int size() const { return the_size; }
    int current() const { return the_current; }
    /// The place before i, going round.
    int previous(int i) const { return i == 0 ? the_size - 1 : i - 1; }

    /// The stat at a place, null where there is none.
    const grTimingStat* stat(int i) const;

    /// While on, each end is written to the stream, which is not owned.
    void debug_print(int on, std::ostream* stream);

    /// Number and average length in seconds of the intervals that started no more than window seconds before the newest
    /// one; 0 and 0 when there are none.
    void last_stats(double window, int& count, double& average) const;
    /// The same, with the shortest and the longest of them and with the oldest and the newest, which are left alone
    /// when there are none.
    void last_stats(double window, double& shortest, double& longest, int& count, grTimingStat& oldest,
                    grTimingStat& newest, double& average) const;
    /// The same over the newest n at most.
    void stats(int n, int& count, grTimingStat& oldest, grTimingStat& newest, double& average) const;
    void stats(double window, int& count, double& average) const { last_stats(window, count, average); }

    void print(std::ostream& os) const;

private:
    std::vector<std::unique_ptr<grTimingStat>> the_stats;
    int the_size = 0;
    int the_current = 0;
    grTimingStat* the_active = nullptr;
    int the_debug = 0;
    std::ostream* the_debug_stream = nullptr;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grTimingStats& stats);
