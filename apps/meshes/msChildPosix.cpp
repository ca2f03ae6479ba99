#include "msChild.h"

#include "msLimits.h"
#include "msPipe.h"
#include "msSending.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <istream>
#include <mutex>
#include <optional>
#include <ostream>
#include <utility>

namespace
{
constexpr int pipe_bytes = 1 << 20;

// Lets a pipe hold more, where the system can.
#if defined(F_SETPIPE_SZ)
void widen(int pipe)
{
    ::fcntl(pipe, F_SETPIPE_SZ, pipe_bytes);
}
#else
void widen(int) {}
#endif

[[noreturn]] void be_child(const std::vector<std::string>& files, int descriptor)
{
    // Its end is its own: nothing of the parent's is tidied up here.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
        std::signal(signal, SIG_DFL);
    ms_limit_process();
    msPipe pipe(descriptor);
    std::ostream stream(&pipe);
    ms_send_files(files, stream);
    stream.flush();
    ::_exit(stream.good() ? 0 : 1);
}
}

struct msChild::Process
{
    std::mutex mutex; // of the number, which is the child's own until it is waited for
    pid_t id = -1;    // 0: waited for
    int descriptor = -1;
    std::optional<msPipe> pipe;
    std::istream stream{nullptr};
};

msChild::msChild(const std::vector<std::string>& files) : the_process(std::make_unique<Process>())
{
    int ends[2];
    if (::pipe(ends) != 0)
        return;
    widen(ends[1]);
    const pid_t child = ::fork();
    if (child == 0)
    {
        ::close(ends[0]);
        be_child(files, ends[1]);
    }
    ::close(ends[1]);
    the_process->id = child;
    the_process->descriptor = ends[0];
    the_process->pipe.emplace(ends[0]);
    the_process->stream.rdbuf(&*the_process->pipe);
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
        return ms_not_started;
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
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU ? ms_too_long : ms_broken_down;
}
