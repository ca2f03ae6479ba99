#include "flSystem.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>

void fl_keep_memory() {}

int fl_create_beside(const std::string& place, std::string& temporary)
{
    std::random_device random;
    for (;;)
    {
        char name[40];
        std::snprintf(name, sizeof name, ".gr-%08x%08x.part", random(), random());
        temporary = place.substr(0, place.find_last_of("/\\") + 1) + name;
        // Shared for deletion, so that it can be given its name while it is open.
        const HANDLE file = CreateFileA(temporary.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                        CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE)
            return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
        if (GetLastError() == ERROR_FILE_EXISTS)
            continue;
        errno = GetLastError() == ERROR_PATH_NOT_FOUND ? ENOENT : EACCES;
        return -1;
    }
}

// What the end of a process by the console leaves behind can be told by its name.
void fl_forget(const std::string&) {}

int fl_open_through(const std::string& path)
{
    return path == "-" ? _dup(1) : _open(path.c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
}

long fl_write_some(int descriptor, const char* bytes, std::size_t count)
{
    return _write(descriptor, bytes, static_cast<unsigned>(count));
}

int fl_sync(int descriptor)
{
    return _commit(descriptor);
}

void fl_cut(int descriptor, long long length)
{
    _chsize_s(descriptor, length);
}

int fl_close(int descriptor)
{
    return _close(descriptor);
}

int fl_replace(const std::string& temporary, const std::string& place)
{
    std::error_code failure;
    std::filesystem::rename(temporary, place, failure);
    if (failure)
        errno = failure.default_error_condition().value();
    return failure ? -1 : 0;
}
