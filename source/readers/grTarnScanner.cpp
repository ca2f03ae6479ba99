#include "grTarnScanner.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace
{
// Fits the second-level cache, and is large enough that reading in pieces costs nothing.
const std::size_t first_capacity = 256 * 1024;
const std::size_t room_for_unknown_length = 4096;
const std::size_t longest_word = 24;

std::streamoff length_ahead(std::streambuf& source)
{
    const std::streampos here = source.pubseekoff(0, std::ios::cur, std::ios::in);
    if (here == std::streampos(-1))
        return -1;
    const std::streampos end = source.pubseekoff(0, std::ios::end, std::ios::in);
    source.pubseekpos(here, std::ios::in);
    return end == std::streampos(-1) ? -1 : std::max<std::streamoff>(0, end - here);
}
}

grTarnScanner::grTarnScanner(std::istream& stream)
    : the_stream(stream), the_buffer(new char[first_capacity + 1]), the_capacity(first_capacity),
      the_position(the_buffer.get()), the_end(the_position),
      the_stream_length(stream.good() ? length_ahead(*stream.rdbuf()) : 0), the_stream_ended(!stream.good()),
      the_stream_start(the_stream_length > 0 ? stream.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in)
                                             : std::streampos(-1))
{
    the_buffer[0] = '\0';
}

bool grTarnScanner::refill()
{
    if (the_stream_ended)
        return false;

    const auto unread = static_cast<std::size_t>(the_end - the_position);
    the_bytes_dropped += the_position - the_buffer.get();
    if (unread > the_capacity / 2)
    {
        std::unique_ptr<char[]> larger(new char[2 * the_capacity + 1]);
        std::memcpy(larger.get(), the_position, unread);
        the_buffer = std::move(larger);
        the_capacity *= 2;
    }
    else
    {
        std::memmove(the_buffer.get(), the_position, unread);
    }

    std::streamsize added = 0;
    try
    {
        added =
            the_stream.rdbuf()->sgetn(the_buffer.get() + unread, static_cast<std::streamsize>(the_capacity - unread));
    }
    catch (...)
    {
        // A source that cannot be read, such as a folder, is one that has ended.
        added = 0;
    }
    the_position = the_buffer.get();
    the_end = the_position + unread + added;
    the_buffer[unread + static_cast<std::size_t>(added)] = '\0';
    the_stream_ended = added == 0;
    if (the_stream_length > 0)
        the_stream_length = std::max<std::streamoff>(0, the_stream_length - added);
    return !the_stream_ended;
}

bool grTarnScanner::skip_line(char& first)
{
    if (the_position == the_end && !refill())
        return false;
    first = *the_position;
    skip_rest_of_line();
    return true;
}

bool grTarnScanner::skip_line()
{
    char first = 0;
    return skip_line(first);
}

bool grTarnScanner::skip_lines(int number)
{
    for (int line = 0; line < number; ++line)
        if (!skip_line())
            return false;
    return true;
}

void grTarnScanner::skip_rest_of_line()
{
    do
    {
        const void* found = std::memchr(the_position, '\n', static_cast<std::size_t>(the_end - the_position));
        if (found)
        {
            the_position = static_cast<const char*>(found) + 1;
            return;
        }
        the_position = the_end;
    } while (refill());
}

std::size_t grTarnScanner::room(std::size_t wanted, std::size_t bytes_each) const
{
    if (the_stream_length < 0)
        return std::min(wanted, room_for_unknown_length);
    const std::size_t bytes_left =
        static_cast<std::size_t>(the_stream_length) + static_cast<std::size_t>(the_end - the_position);
    return std::min(wanted, bytes_left / bytes_each + 1);
}

std::string grTarnScanner::place()
{
    // Lines are counted now: counting them while reading would take a third of its time.
    std::streamoff ahead = the_bytes_dropped + (the_position - the_buffer.get());
    std::streambuf& source = *the_stream.rdbuf();
    if (the_stream_start == std::streampos(-1) || source.pubseekpos(the_stream_start, std::ios::in) != the_stream_start)
        return "byte " + std::to_string(ahead + 1);
    long long line = 1;
    std::vector<char> piece(first_capacity);
    while (ahead > 0)
    {
        const std::streamsize read = source.sgetn(piece.data(), std::min<std::streamoff>(ahead, first_capacity));
        if (read <= 0)
            break;
        line += std::count(piece.begin(), piece.begin() + read, '\n');
        ahead -= read;
    }
    return "line " + std::to_string(line);
}

std::string grTarnScanner::word() const
{
    std::string found;
    for (const char* c = the_position; c != the_end && !blank(*c); ++c)
    {
        if (found.size() == longest_word)
            return found + "...";
        found += *c > ' ' && *c <= '~' ? *c : '?';
    }
    return found;
}

void grTarnScanner::give_back()
{
    const auto unread = static_cast<std::streamoff>(the_end - the_position);
    if (unread > 0 && the_stream.rdbuf()->pubseekoff(-unread, std::ios::cur, std::ios::in) != std::streampos(-1))
        return;
    if (unread > 0 || the_stream_ended)
        the_stream.setstate(std::ios::eofbit);
}
