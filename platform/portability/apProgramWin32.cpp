#include "apProgram.h"

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>

apPathName ap_program_folder()
{
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(nullptr, path.data(), DWORD(path.size()));
    while (length == path.size())
    {
        path.resize(2 * path.size());
        length = GetModuleFileNameW(nullptr, path.data(), DWORD(path.size()));
    }
    path.resize(length);
    const std::size_t end = path.find_last_of(L'\\');
    return end == std::wstring::npos ? apPathName() : apPathName(path.substr(0, end).c_str());
}
