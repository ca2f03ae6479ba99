#pragma once

#include <functional>
#include <iosfwd>

/// How work in a process of its own ended.
enum msChildStatus
{
    msCHILD_DONE = 0,
    msCHILD_BROKE_DOWN = 1,
    msCHILD_TOOK_TOO_LONG = 2,
    msCHILD_NOT_STARTED = 3
};

/// Runs work in a process of its own, so that this one outlives its crash; receive gets here what work writes to its
/// stream, as it comes. work has this process's memory as it is now, of which it changes a copy.
///
/// work may take half a gigabyte and half a minute, and more for every file that it names to ms_allow_file.
///
/// Where the system has no such processes, work runs in this one, without limits.
msChildStatus ms_run_in_child(const std::function<void(std::ostream&)>& work,
                              const std::function<void(std::istream&)>& receive);

/// Called by work: allows the memory and the time that a file of so many bytes may take.
void ms_allow_file(double bytes);
