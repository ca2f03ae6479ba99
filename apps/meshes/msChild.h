#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

/// What is wrong when a reader takes its process along.
inline const char* const ms_broken_down = "its reader broke down, the file must be damaged";

/// Work in a process of its own, so that this one outlives its crash. It has this process's memory as it was at the
/// start, of which it changes a copy, and may take half a gigabyte and half a minute, and more for every file that it
/// names to ms_allow_file.
///
/// Where the system has no such processes, the work runs in this one, at the start and without limits.
class msChild
{
public:
    /// Starts the work, which writes to the stream that it is given.
    explicit msChild(const std::function<void(std::ostream&)>& work);
    /// Ends the work wherever it is.
    ~msChild();
    msChild(const msChild&) = delete;
    msChild& operator=(const msChild&) = delete;

    /// What the work writes, as it comes.
    std::istream& stream();
    /// Lets the stream end soon, wherever the work is; to be called by any thread.
    void stop();
    /// Ends the work, and answers what was wrong with how it ended by itself; empty: nothing.
    std::string finish();

private:
    struct Process;
    std::unique_ptr<Process> the_process;
};

/// Called by work: allows the memory and the time that a file of so many bytes may take.
void ms_allow_file(double bytes);
