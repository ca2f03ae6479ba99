#include "msPipe.h"

#include <algorithm>

msPipe::msPipe(std::intptr_t end) : the_end(end), the_bytes(64 * 1024)
{
    setp(the_bytes.data(), the_bytes.data() + the_bytes.size());
}

int msPipe::underflow()
{
    const std::streamsize count = read(the_bytes.data(), static_cast<std::streamsize>(the_bytes.size()));
    if (count == 0)
        return traits_type::eof();
    setg(the_bytes.data(), the_bytes.data(), the_bytes.data() + count);
    return traits_type::to_int_type(*gptr());
}

int msPipe::overflow(int byte)
{
    if (sync() != 0)
        return traits_type::eof();
    if (byte != traits_type::eof())
        sputc(traits_type::to_char_type(byte));
    return traits_type::not_eof(byte);
}

int msPipe::sync()
{
    const std::streamsize waiting = pptr() - pbase();
    setp(the_bytes.data(), the_bytes.data() + the_bytes.size());
    return write(the_bytes.data(), waiting) == waiting ? 0 : -1;
}

// What is large goes straight through.
std::streamsize msPipe::xsputn(const char* from, std::streamsize count)
{
    if (count <= epptr() - pptr())
        return std::streambuf::xsputn(from, count);
    return sync() == 0 ? write(from, count) : 0;
}

std::streamsize msPipe::xsgetn(char* to, std::streamsize count)
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
