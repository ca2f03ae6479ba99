#include "grOutlineFontListFile.h"

#include "apFile.h"
#include "apNumber.h"

#include <algorithm>
#include <limits>

namespace
{
constexpr int longest_line = 4096;

enum LineStatus
{
    LINE_READ,
    LINE_TOO_LONG,
    LINE_NONE
};

// One line without its end, whatever its length, holding no more than the longest allowed in memory.
LineStatus read_line(std::istream& stream, std::string& line)
{
    line.resize(longest_line + 2); // room for a carriage return and the final zero
    stream.getline(line.data(), static_cast<std::streamsize>(line.size()));
    auto length = static_cast<std::size_t>(stream.gcount());
    if (length == 0 && !stream)
        return LINE_NONE;
    const int cut = stream.fail() && !stream.bad();
    if (cut)
    {
        stream.clear(stream.rdstate() & ~std::ios::failbit);
        stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    else if (!stream.eof())
    {
        --length; // the line feed counts as read
    }
    line.resize(length);
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return cut || line.size() > longest_line ? LINE_TOO_LONG : LINE_READ;
}

bool read_type(const utString& keyword, ltFontType& type)
{
    const struct
    {
        const char* keyword;
        ltFontType type;
    } keywords[] = {{"truetype", ltTRUETYPE_FONT}, {"adobe_pfa", ltADOBE_PFA_FONT}, {"adobe_pfb", ltADOBE_PFB_FONT}};
    for (const auto& known : keywords)
        if (keyword == known.keyword)
        {
            type = known.type;
            return true;
        }
    return false;
}

// What one line says; false when it is bad.
bool read_family(std::string_view line, grOutlineFontListFile::Family& family)
{
    utString keyword, language;
    if (!grOutlineFontListFile::read_to_comma(line, keyword) || !read_type(keyword, family.type))
        return false;
    family.language = 0;
    if (family.type == ltTRUETYPE_FONT)
    {
        if (!grOutlineFontListFile::read_to_comma(line, language))
            return false;
        const char* const end = language.c_str() + language.length();
        if (ap_scan_number(language.c_str(), end, family.language) != end)
            return false;
    }
    if (!grOutlineFontListFile::read_to_comma(line, family.name) || family.name.empty())
        return false;
    for (std::size_t i = 0; i + 1 < family.stems.size(); ++i)
        if (!grOutlineFontListFile::read_to_comma(line, family.stems[i]))
            return false;
    family.stems.back() = grOutlineFontListFile::trimmed(line);
    return !std::all_of(family.stems.begin(), family.stems.end(), [](const utString& stem) { return stem.empty(); });
}
}

grOutlineFontListFile::grOutlineFontListFile(const utString& file)
    : the_is_open(ap_open_for_reading(file.str(), the_stream))
{}

bool grOutlineFontListFile::next(Family& family)
{
    while (the_is_open && the_bad_line < 0)
    {
        const LineStatus status = read_line(the_stream, the_text);
        if (status == LINE_NONE)
            return false;
        ++the_line;
        if (the_text.empty() || the_text.front() == '#')
            continue;
        if (status == LINE_READ && read_family(the_text, family))
            return true;
        the_bad_line = the_line;
    }
    return false;
}

bool grOutlineFontListFile::read_to_comma(std::string_view& rest, utString& text)
{
    const std::size_t comma = rest.find(',');
    if (comma == std::string_view::npos)
        return false;
    text = trimmed(rest.substr(0, comma));
    rest.remove_prefix(comma + 1);
    return true;
}

utString grOutlineFontListFile::trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return utString(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}
