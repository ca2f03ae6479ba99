#include "msLimits.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <thread>

namespace
{
// Until the process has limits it has none.
std::atomic<double> bytes_allowed = std::numeric_limits<double>::infinity(), seconds_allowed = ms_base_seconds;
HANDLE job = nullptr;

// Whenever this much has been asked for, the memory in use is looked at.
constexpr std::size_t bytes_between_looks = 4 << 20;
std::atomic<std::size_t> bytes_since_look = 0;

constexpr std::chrono::milliseconds between_looks(100);

double bytes_in_use()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage);
}

double seconds_of(const FILETIME& time)
{
    constexpr double tick = 1e-7;
    return tick * static_cast<double>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

double seconds_taken()
{
    FILETIME start, end, kernel, user;
    return GetProcessTimes(GetCurrentProcess(), &start, &end, &kernel, &user) ? seconds_of(kernel) + seconds_of(user)
                                                                              : 0;
}

// A job tells that it ended a process for its time in this way.
void end_when_too_long()
{
    while (seconds_taken() < seconds_allowed)
        std::this_thread::sleep_for(between_looks);
    TerminateProcess(GetCurrentProcess(), ERROR_NOT_ENOUGH_QUOTA);
}

void set_job_limit()
{
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_PROCESS_MEMORY;
    limits.ProcessMemoryLimit = static_cast<SIZE_T>(bytes_allowed);
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

bool has_room(std::size_t size)
{
    if (size < bytes_between_looks && (bytes_since_look += size) < bytes_between_looks)
        return true;
    bytes_since_look = 0;
    return bytes_in_use() + static_cast<double>(size) <= bytes_allowed;
}

void* allocate(std::size_t size)
{
    // The job sees to memory of every kind, but not under Wine, which knows no such limits.
    void* const memory = has_room(size) ? std::malloc(std::max<std::size_t>(size, 1)) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}
}

void* operator new(std::size_t size)
{
    return allocate(size);
}

void* operator new[](std::size_t size)
{
    return allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void ms_limit_process()
{
    // A crash is told by the exit status, and to nobody else.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    bytes_allowed = bytes_in_use() + ms_base_bytes;
    job = CreateJobObjectW(nullptr, nullptr);
    set_job_limit();
    AssignProcessToJobObject(job, GetCurrentProcess());
    std::thread(end_when_too_long).detach();
}

void ms_allow_file(double bytes)
{
    bytes_allowed = bytes_allowed + ms_memory_per_byte * bytes;
    seconds_allowed = seconds_allowed + ms_seconds_per_byte * bytes;
    set_job_limit();
}
