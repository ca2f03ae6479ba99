#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

/// What is wrong when a reader takes its process along, takes too long, or has no process.
inline const char* const ms_broken_down = "its reader broke down, the file must be damaged";
inline const char* const ms_too_long = "reading it takes longer than a file of its size should";
inline const char* const ms_not_started = "no process can be started to read it";

/// Mesh files that are imported one after the other in a process of their own, so that this one outlives its crash, and
/// the machine a file that would take all its memory. It may take what msLimits.h says.
///
/// On Windows the process is the program gr-import, which lies beside the running one; elsewhere it is a copy of this
/// process.
class msChild
{
public:
    /// Starts.
    explicit msChild(const std::vector<std::string>& files);
    /// Ends the process wherever it is.
    ~msChild();
    msChild(const msChild&) = delete;
    msChild& operator=(const msChild&) = delete;

    /// What ms_send_files sends, as it comes.
    std::istream& stream();
    /// Lets the stream end soon, wherever the process is; to be called by any thread.
    void stop();
    /// Ends the process, and answers what was wrong with how it ended by itself; empty: nothing.
    std::string finish();

private:
    struct Process;
    std::unique_ptr<Process> the_process;
};
