#include "dgAfmWidths.h"

#include "apNumber.h"

#include <istream>
#include <string_view>

namespace
{
constexpr std::string_view blanks = " \t\r";

std::string_view take_word(std::string_view& text)
{
    const std::size_t start = std::min(text.find_first_not_of(blanks), text.size());
    const std::size_t end = std::min(text.find_first_of(blanks, start), text.size());
    const std::string_view word = text.substr(start, end - start);
    text.remove_prefix(end);
    return word;
}

// Keys and values of one glyph stand between semicolons.
void read_glyph(std::string_view line, std::vector<dgAfmWidth>& widths)
{
    dgAfmWidth read{};
    int width_read = 0;
    while (!line.empty())
    {
        const std::size_t end = std::min(line.find(';'), line.size());
        std::string_view item = line.substr(0, end);
        line.remove_prefix(std::min(end + 1, line.size()));
        const std::string_view key = take_word(item);
        const std::string_view value = take_word(item);
        if (key == "WX" || key == "W0X")
            width_read = ap_scan_number(value.data(), value.data() + value.size(), read.width) != nullptr;
        else if (key == "N")
            read.glyph_name = value;
    }
    if (width_read && !read.glyph_name.empty())
        widths.push_back(std::move(read));
}
}

int dg_read_afm_widths(std::istream& stream, std::vector<dgAfmWidth>& widths)
{
    std::string text;
    int in_metrics = 0;
    for (int line_number = 0; std::getline(stream, text); ++line_number)
    {
        std::string_view line(text);
        std::string_view rest(line);
        const std::string_view key = take_word(rest);
        if (line_number == 0 && key != "StartFontMetrics")
            return 0;
        if (key == "EndCharMetrics")
            return 1;
        if (in_metrics)
            read_glyph(line, widths);
        else
            in_metrics = key == "StartCharMetrics";
    }
    return 1;
}
