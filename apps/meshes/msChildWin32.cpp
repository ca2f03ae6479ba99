#include "msChild.h"

#include "msPipe.h"

#include "apNativePath.h"
#include "apProgram.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdlib>
#include <istream>
#include <optional>
#include <ostream>
#include <utility>

namespace
{
constexpr DWORD pipe_bytes = 1 << 20;

struct Closer
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, Closer>;

std::intptr_t number(const Handle& handle)
{
    return reinterpret_cast<std::intptr_t>(handle.get());
}

bool make_pipe(DWORD bytes, Handle& read, Handle& write)
{
    HANDLE ends[2];
    if (!CreatePipe(&ends[0], &ends[1], nullptr, bytes))
        return false;
    read.reset(ends[0]);
    write.reset(ends[1]);
    return true;
}

// Starts a program that inherits the two handles and is told their numbers. Answers null when it cannot.
Handle start(const wchar_t* program, HANDLE input, HANDLE output)
{
    HANDLE inherited[] = {input, output};
    std::wstring command = L"gr-import";
    for (const HANDLE handle : inherited)
    {
        SetHandleInformation(handle, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
        command += L' ' + std::to_wstring(reinterpret_cast<std::intptr_t>(handle));
    }
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    std::vector<char> room(size);
    STARTUPINFOEXW start = {};
    start.StartupInfo.cb = sizeof start;
    start.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(room.data());
    PROCESS_INFORMATION process = {};
    if (!InitializeProcThreadAttributeList(start.lpAttributeList, 1, 0, &size))
        return nullptr;
    // None but these two, whatever else may be inherited.
    const bool started =
        UpdateProcThreadAttribute(start.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, inherited,
                                  sizeof inherited, nullptr, nullptr) &&
        CreateProcessW(program, command.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS | EXTENDED_STARTUPINFO_PRESENT,
                       nullptr, nullptr, &start.StartupInfo, &process);
    DeleteProcThreadAttributeList(start.lpAttributeList);
    const Handle thread(process.hThread);
    return Handle(started ? process.hProcess : nullptr);
}
}

struct msChild::Process
{
    Handle process, end;
    bool finished = false;
    std::optional<msPipe> pipe;
    std::istream stream{nullptr};
};

msChild::msChild(const std::vector<std::string>& files) : the_process(std::make_unique<Process>())
{
    std::string names;
    for (const std::string& file : files)
        names += file + '\0';
    Handle names_read, names_write, result_write;
    // Room for all names: nobody waits for the process to read them.
    if (!make_pipe(static_cast<DWORD>(names.size()), names_read, names_write) ||
        !make_pipe(pipe_bytes, the_process->end, result_write))
        return;
    const std::wstring program = (ap_native_path(ap_program_folder()) / L"gr-import.exe").wstring();
    the_process->process = start(program.c_str(), names_read.get(), result_write.get());
    if (!the_process->process)
        return;
    msPipe pipe(number(names_write));
    std::ostream(&pipe).write(names.data(), static_cast<std::streamsize>(names.size())).flush();
    the_process->pipe.emplace(number(the_process->end));
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
    if (the_process->process)
        TerminateProcess(the_process->process.get(), EXIT_FAILURE);
}

std::string msChild::finish()
{
    if (!the_process->process)
        return ms_not_started;
    if (std::exchange(the_process->finished, true))
        return {};
    // One whose last words are not heard has more to say than anybody asks for.
    const bool ended = the_process->stream.eof();
    if (!ended)
        stop();
    the_process->end.reset();
    WaitForSingleObject(the_process->process.get(), INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(the_process->process.get(), &status);
    if (!ended || status == 0)
        return {};
    return status == ERROR_NOT_ENOUGH_QUOTA ? ms_too_long : ms_broken_down;
}
