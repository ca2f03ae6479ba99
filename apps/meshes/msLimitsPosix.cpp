#include "msLimits.h"

#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

namespace
{
// The sanitizers' own memory lies anywhere.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool memory_can_be_limited = false;
#else
constexpr bool memory_can_be_limited = true;
#endif

// In one step: a limit of no processor time, be it for a moment, is passed by the next tick of the clock.
template <class Resource>
void set_limit(Resource resource, double value)
{
    rlimit limit = {};
    ::getrlimit(resource, &limit);
    limit.rlim_cur = value < static_cast<double>(limit.rlim_max) ? static_cast<rlim_t>(value) : limit.rlim_max;
    ::setrlimit(resource, &limit);
}

template <class Resource>
void raise_limit(Resource resource, double by)
{
    rlimit limit = {};
    ::getrlimit(resource, &limit);
    set_limit(resource, static_cast<double>(limit.rlim_cur) + by);
}
}

void ms_limit_process()
{
    const rlimit no_core = {0, 0};
    ::setrlimit(RLIMIT_CORE, &no_core);
    double pages = 0;
    // What the process has by now, where the system tells.
    if (memory_can_be_limited && std::ifstream("/proc/self/statm") >> pages)
        set_limit(RLIMIT_AS, pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) + ms_base_bytes);
    set_limit(RLIMIT_CPU, ms_base_seconds);
}

void ms_allow_file(double bytes)
{
    if (memory_can_be_limited)
        raise_limit(RLIMIT_AS, ms_memory_per_byte * bytes);
    raise_limit(RLIMIT_CPU, ms_seconds_per_byte * bytes);
}
