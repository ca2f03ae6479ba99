#include "flSystem.h"

#include "flPath.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

namespace
{
// Names to be removed when a signal ends the process. A handler may not wait for a lock, nor free memory.
std::atomic<char*> doomed_names[64];

void remove_and_end(int signal)
{
    for (std::atomic<char*>& name : doomed_names)
        if (const char* doomed = name.load())
            ::unlink(doomed);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void watch_signals()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
    {
        struct sigaction action = {};
        // What the caller of the process told it to ignore stays ignored.
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL)
        {
            action.sa_handler = remove_and_end;
            ::sigaction(signal, &action, nullptr);
        }
    }
    // A file that grows too long is a failure to be told like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
}

void remember(const std::string& name)
{
    static const int watching = (watch_signals(), 1);
    char* kept = watching ? ::strdup(name.c_str()) : nullptr;
    for (std::atomic<char*>& place : doomed_names)
    {
        char* free_place = nullptr;
        if (place.compare_exchange_strong(free_place, kept))
            return;
    }
    std::free(kept); // too many at a time: this one would be left behind
}

// Above the standard streams, of which one may be closed.
int moved_up(int descriptor)
{
    if (descriptor < 0 || descriptor > 2)
        return descriptor;
    const int moved = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 3);
    ::close(descriptor);
    return moved;
}
}

#if defined(__GLIBC__)
void fl_keep_memory()
{
    constexpr int largest_kept = 32 << 20; // the most that the library takes
    ::mallopt(M_MMAP_THRESHOLD, largest_kept);
    ::mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    // What one thread has freed serves the others.
    ::mallopt(M_ARENA_MAX, 1);
}
#else
void fl_keep_memory() {}
#endif

std::filesystem::path fl_path(const std::string& name)
{
    return name;
}

int fl_create_beside(const std::string& place, std::string& temporary)
{
    struct stat there = {};
    const bool replaces = ::stat(place.c_str(), &there) == 0;
    if (replaces && ::access(place.c_str(), W_OK) != 0)
        return -1;
    std::random_device random;
    for (;;)
    {
        char name[40];
        std::snprintf(name, sizeof name, ".gr-%08x%08x.part", random(), random());
        temporary = place.substr(0, place.find_last_of('/') + 1) + name;
        const int descriptor = moved_up(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (descriptor < 0 && errno == EEXIST)
            continue;
        if (descriptor < 0)
            return -1;
        remember(temporary);
        // The owner is kept where that is permitted.
        if (replaces && (::fchown(descriptor, there.st_uid, there.st_gid) == 0 || there.st_uid == ::geteuid()))
            ::fchmod(descriptor, there.st_mode & 07777);
        return descriptor;
    }
}

void fl_forget(const std::string& temporary)
{
    for (std::atomic<char*>& place : doomed_names)
        if (char* name = place.load(); name && temporary == name)
        {
            place.store(nullptr);
            std::free(name);
        }
}

int fl_open_through(const std::string& path)
{
    if (path == "-" || path == "/dev/stdout")
        return ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    return moved_up(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
}

long fl_write_some(int descriptor, const char* bytes, std::size_t count)
{
    long written;
    do
        written = ::write(descriptor, bytes, count);
    while (written < 0 && errno == EINTR);
    return written;
}

int fl_sync(int descriptor)
{
    // Some file systems have no such thing.
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOSYS ? 0 : -1;
}

void fl_cut(int descriptor, long long length)
{
    if (::ftruncate(descriptor, length) == 0)
        ::lseek(descriptor, length, SEEK_SET);
}

int fl_close(int descriptor)
{
    return ::close(descriptor) == 0 || errno == EINTR ? 0 : -1;
}

int fl_replace(const std::string& temporary, const std::string& place)
{
    return std::rename(temporary.c_str(), place.c_str());
}
