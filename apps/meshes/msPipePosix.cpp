#include "msPipe.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

std::streamsize msPipe::read(char* to, std::streamsize count)
{
    ssize_t some;
    do
        some = ::read(static_cast<int>(the_end), to, static_cast<std::size_t>(count));
    while (some < 0 && errno == EINTR);
    return std::max<std::streamsize>(some, 0);
}

std::streamsize msPipe::write(const char* from, std::streamsize count)
{
    std::streamsize done = 0;
    while (done < count)
    {
        const ssize_t some = ::write(static_cast<int>(the_end), from + done, static_cast<std::size_t>(count - done));
        if (some < 0 && errno != EINTR)
            break;
        done += std::max<ssize_t>(some, 0);
    }
    return done;
}
