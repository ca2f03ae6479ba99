#include "gwResourceDB.h"

#include "apFile.h"

#include <fstream>
#include <iterator>
#include <ostream>

namespace
{
constexpr std::string_view blanks = " \t\r\f\v";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Hands out lines with their continuations joined and counts the lines of the text.
class LineReader
{
public:
    explicit LineReader(std::string_view text) : the_rest(text) {}

    bool next(std::string& joined)
    {
        if (the_rest.empty())
            return false;
        the_first_line = the_lines_read + 1;
        joined.clear();
        while (!the_rest.empty())
        {
            std::string_view line = take_line();
            if (line.empty() || line.back() != '\\')
            {
                joined += line;
                break;
            }
            line.remove_suffix(1);
            joined += line;
        }
        return true;
    }
    // Number of the line at which the last one handed out starts.
    int line_number() const { return the_first_line; }

private:
    std::string_view take_line()
    {
        const std::size_t end = the_rest.find('\n');
        std::string_view line = the_rest.substr(0, end);
        the_rest.remove_prefix(end == std::string_view::npos ? the_rest.size() : end + 1);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        ++the_lines_read;
        return line;
    }

    std::string_view the_rest;
    int the_lines_read = 0;
    int the_first_line = 0;
};
}

int gwResourceDB::get_resource(const utString& key, utString& value) const
{
    const auto found = the_resources.find(key);
    if (found == the_resources.end())
        return 0;
    value = found->second;
    return 1;
}

gwResourceStatus gwResourceDB::load_text(const utString& text, int& line)
{
    std::map<utString, utString> loaded;
    LineReader reader(text.view());
    for (std::string joined; reader.next(joined);)
    {
        const std::string_view content = trimmed(joined);
        if (content.empty() || content.front() == '!' || content.front() == '#')
            continue;
        const std::size_t colon = content.find(':');
        const std::string_view key = trimmed(content.substr(0, colon));
        if (colon == std::string_view::npos || key.empty() || key.find_first_of(blanks) != std::string_view::npos)
        {
            line = reader.line_number();
            return gwRESOURCE_BAD_LINE;
        }
        loaded.insert_or_assign(utString(key), utString(trimmed(content.substr(colon + 1))));
    }
    loaded.merge(the_resources);
    the_resources.swap(loaded);
    return gwRESOURCE_OK;
}

gwResourceStatus gwResourceDB::load_file(const apPathName& path, int& line)
{
    std::ifstream file;
    if (!ap_open_for_reading(path, file))
        return gwRESOURCE_NO_FILE;
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad())
        return gwRESOURCE_NO_FILE;
    return load_text(text, line);
}

void gwResourceDB::write_text(std::ostream& os) const
{
    for (const auto& [key, value] : the_resources)
        os << key << ": " << value << '\n';
}

std::ostream& operator<<(std::ostream& os, gwResourceStatus status)
{
    switch (status)
    {
    case gwRESOURCE_OK: return os << "gwRESOURCE_OK";
    case gwRESOURCE_BAD_LINE: return os << "gwRESOURCE_BAD_LINE";
    case gwRESOURCE_NO_FILE: return os << "gwRESOURCE_NO_FILE";
    }
    return os << "Unknown value for gwResourceStatus";
}
