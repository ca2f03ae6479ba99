#include "gwResourceText.h"

#include <algorithm>

namespace
{
constexpr std::string_view blanks = " \t\r\f\v";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

std::string_view without_mark(std::string_view text)
{
    return text.substr(text.starts_with(byte_order_mark) ? byte_order_mark.size() : 0);
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// A key with control characters comes from a file that is no text in bytes, such as one in UTF-16.
bool is_key(std::string_view key)
{
    return !key.empty() &&
           std::none_of(key.begin(), key.end(), [](unsigned char c) { return c <= ' ' || c == '\x7f'; });
}
}

gwResourceText::gwResourceText(std::string_view text) : the_joined(without_mark(text))
{
    const std::string_view joined = the_joined.text();
    for (std::size_t start = 0; start < joined.size();)
    {
        const std::size_t end = std::min(joined.find('\n', start), joined.size());
        if (!read_line(joined.substr(start, end - start), start))
        {
            the_bad_line = the_joined.place(start).line;
            return;
        }
        start = end + 1;
    }
}

// position is that of the line in the joined text.
bool gwResourceText::read_line(std::string_view line, std::size_t position)
{
    const std::string_view content = trimmed(line);
    if (content.empty() || content.front() == '!' || content.front() == '#')
        return true;
    const std::size_t colon = content.find(':');
    const std::string_view key = trimmed(content.substr(0, colon));
    if (colon == std::string_view::npos || !is_key(key))
        return false;
    const std::string_view value = trimmed(content.substr(colon + 1));
    const auto position_of = [&](std::string_view part)
    { return position + static_cast<std::size_t>(part.data() - line.data()); };
    the_settings.push_back({utString(key), utString(value), position_of(key), position_of(value)});
    return true;
}
