#include "msPipe.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>

namespace
{
// In one call.
constexpr std::streamsize most = 1 << 20;
}

std::streamsize msPipe::read(char* to, std::streamsize count)
{
    DWORD some = 0;
    const auto wanted = static_cast<DWORD>(std::min(count, most));
    return ReadFile(reinterpret_cast<HANDLE>(the_end), to, wanted, &some, nullptr) ? static_cast<std::streamsize>(some)
                                                                                   : 0;
}

std::streamsize msPipe::write(const char* from, std::streamsize count)
{
    std::streamsize done = 0;
    for (DWORD some = 0; done < count; done += some)
        if (!WriteFile(reinterpret_cast<HANDLE>(the_end), from + done, static_cast<DWORD>(std::min(count - done, most)),
                       &some, nullptr))
            break;
    return done;
}
