#pragma once

#include <fast_float/fast_float.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <istream>
#include <memory>
#include <string>

/// Reads the lines and numbers of a text stream through a buffer of its own.
///
/// Answers false when what is asked for is not there, and then stands at what is there instead. May throw
/// std::bad_alloc.
class grTarnScanner
{
public:
    explicit grTarnScanner(std::istream& stream);

    /// Skips a line of any length with its end and sets its first character, '\n' for an empty one. The last line
    /// needs no line end, but at least one character.
    bool skip_line(char& first);
    bool skip_line();
    bool skip_lines(int number);
    /// Skips to behind the next line end or the end of the stream.
    void skip_rest_of_line();

    /// Reads a finite number or an int, over any blanks and line ends before it.
    bool read(double& value);
    bool read(int& value);

    /// How many items to make room for at once: those wanted, but not more than can still follow when each takes at
    /// least bytes_each, and a moderate number when the length of the stream is not known.
    std::size_t room(std::size_t wanted, std::size_t bytes_each) const;

    /// The place where it stands: "line 7", or "byte 7" in a stream that cannot be positioned. Ends the reading.
    std::string place();
    /// What it stands at, up to the next blank: printable and short. Empty at the end of the stream.
    std::string word() const;

    /// Positions the stream behind what was read, or at its end where it cannot be positioned.
    void give_back();

private:
    static bool blank(char c) { return c == ' ' || static_cast<unsigned char>(c - '\t') < 5; }
    static bool digit(char c) { return static_cast<unsigned char>(c - '0') < 10; }
    /// Moves the unread characters to the front of the buffer and reads on behind them; false when nothing was added.
    bool refill();
    /// Skips blanks; false at the end of the stream.
    bool skip_blanks();
    template <class T>
    bool read_number(T& value);

    static fast_float::from_chars_result convert(const char* first, const char* last, double& value)
    {
        return fast_float::from_chars(first, last, value);
    }
    static std::from_chars_result convert(const char* first, const char* last, int& value)
    {
        return std::from_chars(first, last, value);
    }
    static bool representable(double value, std::errc) { return std::isfinite(value); }
    static bool representable(int, std::errc error) { return error == std::errc(); }

    std::istream& the_stream;
    std::unique_ptr<char[]> the_buffer;
    std::size_t the_capacity;
    const char* the_position;         // the next character
    const char* the_end;              // holds a '\0', so that loops over blanks stop without looking for the end
    std::streamoff the_stream_length; // of what is not in the buffer yet, -1 when not known
    bool the_stream_ended;
    std::streampos the_stream_start;      // -1 when it cannot be positioned
    std::streamoff the_bytes_dropped = 0; // from the front of the buffer
};

inline bool grTarnScanner::skip_blanks()
{
    for (;;)
    {
        while (blank(*the_position))
            ++the_position;
        if (the_position != the_end)
            return true;
        if (!refill())
            return false;
    }
}

template <class T>
inline bool grTarnScanner::read_number(T& value)
{
    while (skip_blanks())
    {
        const char* start = the_position;
        const bool plus = *start == '+';
        if (plus)
            ++start;
        const auto result = convert(start, the_end, value);
        // Up to two characters behind a number may be the start of its exponent, or of the whole number.
        if (the_end - result.ptr <= 2 && !the_stream_ended)
        {
            refill();
            continue;
        }
        if (result.ec == std::errc::invalid_argument || !representable(value, result.ec))
            return false;
        if (plus && *start == '-')
            return false;
        the_position = result.ptr;
        return true;
    }
    return false;
}

inline bool grTarnScanner::read(double& value)
{
    return read_number(value);
}

inline bool grTarnScanner::read(int& value)
{
    return read_number(value);
}
