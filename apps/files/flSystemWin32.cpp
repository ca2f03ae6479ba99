#include "flSystem.h"

#include "flPath.h"

#include "apNativePath.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <random>
#include <set>
#include <system_error>

namespace
{
// Files to be removed when the process ends by the console. Windows calls the handler on a thread of its own.
class Doomed
{
public:
    static Doomed& get()
    {
        static Doomed* const doomed = new Doomed;
        return *doomed;
    }
    void add(const std::wstring& name)
    {
        const std::lock_guard lock(the_mutex);
        the_names.insert(name);
    }
    void remove(const std::wstring& name)
    {
        const std::lock_guard lock(the_mutex);
        the_names.erase(name);
    }

private:
    Doomed() { SetConsoleCtrlHandler(ended, TRUE); }
    static BOOL WINAPI ended(DWORD)
    {
        const std::lock_guard lock(get().the_mutex);
        for (const std::wstring& name : get().the_names)
            DeleteFileW(name.c_str());
        return FALSE; // the process ends
    }

    std::mutex the_mutex;
    std::set<std::wstring> the_names;
};

std::wstring wide(const std::string& path)
{
    return fl_path(path).wstring();
}

int failed()
{
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    errno = error.default_error_condition().value();
    return -1;
}
}

void fl_keep_memory() {}

std::filesystem::path fl_path(const std::string& name)
{
    return ap_opened_path(apPathName(name));
}

int fl_create_beside(const std::string& place, std::string& temporary)
{
    const DWORD there = GetFileAttributesW(wide(place).c_str());
    if (there != INVALID_FILE_ATTRIBUTES && (there & FILE_ATTRIBUTE_READONLY))
    {
        errno = EACCES;
        return -1;
    }
    std::random_device random;
    for (;;)
    {
        char name[40];
        std::snprintf(name, sizeof name, ".gr-%08x%08x.part", random(), random());
        // A drive's letter may stand right before the name.
        temporary = place.substr(0, place.find_last_of("/\\:") + 1) + name;
        // Shared for deletion, so that it can be given its name while it is open.
        const HANDLE file = CreateFileW(wide(temporary).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                        nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS)
            continue;
        if (file == INVALID_HANDLE_VALUE)
            return failed();
        Doomed::get().add(wide(temporary));
        return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
    }
}

void fl_forget(const std::string& temporary)
{
    Doomed::get().remove(wide(temporary));
}

int fl_open_through(const std::string& path)
{
    if (path != "-")
        return _wopen(wide(path).c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
    const int descriptor = _dup(1);
    if (descriptor >= 0)
        _setmode(descriptor, _O_BINARY);
    return descriptor;
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
    return MoveFileExW(wide(temporary).c_str(), wide(place).c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : failed();
}
