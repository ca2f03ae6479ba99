#include "msChild.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <istream>
#include <mutex>
#include <optional>
#include <ostream>
#include <streambuf>
#include <utility>
#include <vector>

namespace
{
constexpr double base_bytes = 512e6, base_seconds = 30;

// What the importers take for each byte of a file is measured in the tens; the seconds are for slow machines.
constexpr double memory_per_byte = 32, seconds_per_byte = 4e-6;

constexpr int pipe_bytes = 1 << 20;

// The sanitizers' own memory lies anywhere.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool memory_can_be_limited = false;
#else
constexpr bool memory_can_be_limited = true;
#endif

// Lets a pipe hold more, where the system can.
#if defined(F_SETPIPE_SZ)
void widen(int pipe)
{
    ::fcntl(pipe, F_SETPIPE_SZ, pipe_bytes);
}
#else
void widen(int) {}
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
        const std::streamsize count = read(the_bytes.data(), static_cast<std::streamsize>(the_bytes.size()));
        if (count == 0)
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
        const std::streamsize waiting = pptr() - pbase();
        setp(the_bytes.data(), the_bytes.data() + the_bytes.size());
        return write(the_bytes.data(), waiting) == waiting ? 0 : -1;
    }
    // What is large goes straight through.
    std::streamsize xsputn(const char* from, std::streamsize count) override
    {
        if (count <= epptr() - pptr())
            return std::streambuf::xsputn(from, count);
        return sync() == 0 ? write(from, count) : 0;
    }
    std::streamsize xsgetn(char* to, std::streamsize count) override
    {
        const std::streamsize at_hand = std::min<std::streamsize>(count, egptr() - gptr());
        std::copy_n(gptr(), at_hand, to);
        gbump(static_cast<int>(at_hand));
        if (count - at_hand < static_cast<std::streamsize>(the_bytes.size()))
            return at_hand + std::streambuf::xsgetn(to + at_hand, count - at_hand);
        std::streamsize done = at_hand;
        for (std::streamsize some = 1; some > 0 && done < count; done += some)
            some = read(to + done, count - done);
        return done;
    }

private:
    // Answers 0 at the end, and when nothing can be read.
    std::streamsize read(char* to, std::streamsize count)
    {
        ssize_t some;
        do
            some = ::read(the_descriptor, to, static_cast<std::size_t>(count));
        while (some < 0 && errno == EINTR);
        return std::max<std::streamsize>(some, 0);
    }
    std::streamsize write(const char* from, std::streamsize count)
    {
        std::streamsize done = 0;
        while (done < count)
        {
            const ssize_t some = ::write(the_descriptor, from + done, static_cast<std::size_t>(count - done));
            if (some < 0 && errno != EINTR)
                break;
            done += std::max<ssize_t>(some, 0);
        }
        return done;
    }

    int the_descriptor;
    std::vector<char> the_bytes;
};

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

void start_limits()
{
    const rlimit no_core = {0, 0};
    ::setrlimit(RLIMIT_CORE, &no_core);
    double pages = 0;
    // What the process has by now, where the system tells.
    if (memory_can_be_limited && std::ifstream("/proc/self/statm") >> pages)
        set_limit(RLIMIT_AS, pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) + base_bytes);
    set_limit(RLIMIT_CPU, base_seconds);
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

struct msChild::Process
{
    std::mutex mutex; // of the number, which is the child's own until it is waited for
    pid_t id = -1;    // 0: waited for
    int descriptor = -1;
    std::optional<PipeBuffer> buffer;
    std::istream stream{nullptr};
};

msChild::msChild(const std::function<void(std::ostream&)>& work) : the_process(std::make_unique<Process>())
{
    int ends[2];
    if (::pipe(ends) != 0)
        return;
    widen(ends[1]);
    const pid_t child = ::fork();
    if (child == 0)
    {
        ::close(ends[0]);
        be_child(work, ends[1]);
    }
    ::close(ends[1]);
    the_process->id = child;
    the_process->descriptor = ends[0];
    the_process->buffer.emplace(ends[0]);
    the_process->stream.rdbuf(&*the_process->buffer);
}

msChild::~msChild()
{
    finish();
}

std::istream& msChild::stream()
{
    return the_process->stream;
}

void msChild::stop()
{
    const std::lock_guard<std::mutex> lock(the_process->mutex);
    if (the_process->id > 0)
        ::kill(the_process->id, SIGKILL);
}

std::string msChild::finish()
{
    const std::lock_guard<std::mutex> lock(the_process->mutex);
    const pid_t child = std::exchange(the_process->id, 0);
    if (child < 0)
        return "no process can be started to read it";
    if (child == 0)
        return {};
    // One whose last words are not heard has more to say than anybody asks for.
    const bool ended = the_process->stream.eof();
    if (!ended)
        ::kill(child, SIGKILL);
    ::close(the_process->descriptor);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR)
        ;
    if (!ended || (WIFEXITED(status) && WEXITSTATUS(status) == 0))
        return {};
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU ? "reading it takes longer than a file of its size should"
                                                              : ms_broken_down;
}

void ms_allow_file(double bytes)
{
    if (memory_can_be_limited)
        raise_limit(RLIMIT_AS, memory_per_byte * bytes);
    raise_limit(RLIMIT_CPU, seconds_per_byte * bytes);
}
