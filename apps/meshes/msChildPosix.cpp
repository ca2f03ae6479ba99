#include "msChild.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <istream>
#include <ostream>
#include <streambuf>
#include <vector>

namespace
{
constexpr double base_bytes = 512e6, base_seconds = 30;

// What the importers take for each byte of a file is measured in the tens; the seconds are for slow machines.
constexpr double memory_per_byte = 32, seconds_per_byte = 4e-6;

// The sanitizers' own memory lies anywhere.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool memory_can_be_limited = false;
#else
constexpr bool memory_can_be_limited = true;
#endif

// The two ends of a pipe as streams.
class PipeBuffer : public std::streambuf
{
public:
    explicit PipeBuffer(int descriptor) : the_descriptor(descriptor), the_bytes(64 * 1024)
    {
        setp(the_bytes.data(), the_bytes.data() + the_bytes.size());
    }

protected:
    int underflow() override
    {
        ssize_t count;
        do
            count = ::read(the_descriptor, the_bytes.data(), the_bytes.size());
        while (count < 0 && errno == EINTR);
        if (count <= 0)
            return traits_type::eof();
        setg(the_bytes.data(), the_bytes.data(), the_bytes.data() + count);
        return traits_type::to_int_type(*gptr());
    }
    int overflow(int byte) override
    {
        if (sync() != 0)
            return traits_type::eof();
        if (byte != traits_type::eof())
            sputc(traits_type::to_char_type(byte));
        return traits_type::not_eof(byte);
    }
    int sync() override
    {
        for (const char* from = pbase(); from < pptr();)
        {
            const ssize_t count = ::write(the_descriptor, from, static_cast<std::size_t>(pptr() - from));
            if (count < 0 && errno != EINTR)
                return -1;
            from += count > 0 ? count : 0;
        }
        setp(the_bytes.data(), the_bytes.data() + the_bytes.size());
        return 0;
    }

private:
    int the_descriptor;
    std::vector<char> the_bytes;
};

template <class Resource>
void raise_limit(Resource resource, double by)
{
    rlimit limit = {};
    ::getrlimit(resource, &limit);
    const double raised = static_cast<double>(limit.rlim_cur) + by;
    limit.rlim_cur = raised < static_cast<double>(limit.rlim_max) ? static_cast<rlim_t>(raised) : limit.rlim_max;
    ::setrlimit(resource, &limit);
}

void start_limits()
{
    const rlimit no_core = {0, 0};
    ::setrlimit(RLIMIT_CORE, &no_core);
    double pages = 0;
    rlimit limit = {};
    // What the process has by now, where the system tells.
    if (memory_can_be_limited && std::ifstream("/proc/self/statm") >> pages)
    {
        ::getrlimit(RLIMIT_AS, &limit);
        limit.rlim_cur = 0;
        ::setrlimit(RLIMIT_AS, &limit);
        raise_limit(RLIMIT_AS, pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) + base_bytes);
    }
    ::getrlimit(RLIMIT_CPU, &limit);
    limit.rlim_cur = 0;
    ::setrlimit(RLIMIT_CPU, &limit);
    raise_limit(RLIMIT_CPU, base_seconds);
}

[[noreturn]] void be_child(const std::function<void(std::ostream&)>& work, int descriptor)
{
    // Its end is its own: nothing of the parent's is tidied up here.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
        std::signal(signal, SIG_DFL);
    start_limits();
    PipeBuffer buffer(descriptor);
    std::ostream stream(&buffer);
    work(stream);
    stream.flush();
    ::_exit(stream.good() ? 0 : 1);
}
}

msChildStatus ms_run_in_child(const std::function<void(std::ostream&)>& work,
                              const std::function<void(std::istream&)>& receive)
{
    int ends[2];
    if (::pipe(ends) != 0)
        return msCHILD_NOT_STARTED;
    const pid_t child = ::fork();
    if (child == 0)
    {
        ::close(ends[0]);
        be_child(work, ends[1]);
    }
    ::close(ends[1]);
    if (child > 0)
    {
        PipeBuffer buffer(ends[0]);
        std::istream stream(&buffer);
        receive(stream);
    }
    // A child that has more to say than was received ends by this.
    ::close(ends[0]);
    if (child < 0)
        return msCHILD_NOT_STARTED;
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR)
        ;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU)
        return msCHILD_TOOK_TOO_LONG;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? msCHILD_DONE : msCHILD_BROKE_DOWN;
}

void ms_allow_file(double bytes)
{
    if (memory_can_be_limited)
        raise_limit(RLIMIT_AS, memory_per_byte * bytes);
    raise_limit(RLIMIT_CPU, seconds_per_byte * bytes);
}
