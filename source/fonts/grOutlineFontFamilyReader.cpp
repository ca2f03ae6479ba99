#include "grOutlineFontFamilyReader.h"

#include "grBuiltinFontFamilies.h"
#include "grOutlineFontListElement.h"
#include "gr_find_file.h"

#include "apFile.h"
#include "apNumber.h"
#include "apString.h"
#include "apSystemFonts.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

UT_DEFINE_TYPE(grOutlineFontFamilyReader);

grMorvexFontFinder grOutlineFontFamilyReader::the_morvex_font_finder = nullptr;

namespace
{
constexpr int longest_line = 4096;
constexpr int bold_above = 500; // a weight of 500 is not bold

// Western, symbols, Japanese, Korean, simplified and traditional Chinese, Cyrillic.
constexpr int offered_character_sets[] = {0, 2, 128, 129, 134, 136, 204};

int is_offered(const apSystemFace& face)
{
    return (face.font_type & apFONT_TYPE_TRUETYPE) &&
           std::find(std::begin(offered_character_sets), std::end(offered_character_sets), face.character_set) !=
               std::end(offered_character_sets);
}

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

int read_type(const utString& keyword, ltFontType& type)
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
            return 1;
        }
    return 0;
}
}

grOutlineFontFamilyReader::grOutlineFontFamilyReader(const utString& font_path, const utString& metrics_path)
    : the_metrics_path(metrics_path), the_font_path(font_path)
{
    add_builtin_families();
    add_system_families();
}

grOutlineFontFamilyReader::~grOutlineFontFamilyReader()
{
    for (grOutlineFontListElement* element : the_families)
        delete element;
}

void grOutlineFontFamilyReader::add_builtin_families()
{
    for (const grBuiltinFontFamily& row : gr_builtin_font_families())
        append(create_list_element(row.type, 0, row.family, row.normal, row.bold, row.italic, row.bold_italic));
}

void grOutlineFontFamilyReader::add_system_families()
{
    const apSystemFonts system;
    system.enumerate(nullptr,
                     [this](const apSystemFace& face)
                     {
                         if (is_offered(face))
                             add_truetype_family(face.family.c_str());
                     });
    for (const utString& family : the_truetype_families)
    {
        the_normal_style = the_bold_style = the_italic_style = the_bold_italic_style = utString();
        the_style_language = -1;
        // Deliberate: what was asked of the family is not asked of its faces.
        system.enumerate(family.c_str(),
                         [this](const apSystemFace& face)
                         {
                             add_truetype_styles(face.full_name.c_str(), face.weight, face.italic);
                             add_truetype_language(face.character_set);
                         });
        // Deliberate: a family that exists already is added once more.
        append(std::make_unique<grOutlineFontListElement>(ltTRUETYPE_FONT, the_style_language, family, the_normal_style,
                                                          the_bold_style, the_italic_style, the_bold_italic_style,
                                                          utString(), utString(), utString(), utString()));
    }
    the_truetype_families.clear();
}

void grOutlineFontFamilyReader::add_truetype_family(const char* name)
{
    const utString family(name);
    // Courier of the system is passed over: it is known as a bitmap font, and the table has the outline one.
    if (!apString::from_narrow(family.view()).valid() || family.empty() || family == "Courier")
        return;
    if (!the_truetype_families.contains(family))
        the_truetype_families.add_last(family);
}

void grOutlineFontFamilyReader::add_truetype_styles(const char* full_name, int weight, int italic)
{
    const int bold = weight > bold_above;
    utString& style = bold && italic ? the_bold_italic_style
                      : bold         ? the_bold_style
                      : italic       ? the_italic_style
                                     : the_normal_style;
    style = utString(full_name);
}

void grOutlineFontFamilyReader::add_truetype_language(int character_set)
{
    if (the_style_language == -1)
        the_style_language = character_set;
}

grOutlineFontFileStatus grOutlineFontFamilyReader::append_font_list(const utString& file, int& line)
{
    line = -1;
    std::ifstream stream;
    if (!ap_open_for_reading(file.str(), stream))
        return grOUTLINE_FONT_FILE_BAD;
    std::string text;
    for (int number = 1;; ++number)
    {
        const LineStatus status = read_line(stream, text);
        if (status == LINE_NONE)
            return stream.bad() ? grOUTLINE_FONT_FILE_BAD : grOUTLINE_FONT_FILE_READ;
        if (text.empty() || text.front() == '#')
            continue;
        if (status == LINE_READ && add_line(text))
            continue;
        line = number;
        return grOUTLINE_FONT_FILE_BAD;
    }
}

int grOutlineFontFamilyReader::add_line(std::string_view line)
{
    utString keyword;
    ltFontType type{};
    if (!read_to_comma(line, keyword) || !read_type(keyword, type))
        return 0;
    int language = 0;
    if (type == ltTRUETYPE_FONT)
    {
        utString number;
        if (!read_to_comma(line, number))
            return 0;
        const char* const end = number.c_str() + number.length();
        if (ap_scan_number(number.c_str(), end, language) != end)
            return 0;
    }
    utString family, normal, bold, italic;
    if (!read_to_comma(line, family) || family.empty() || !read_to_comma(line, normal) || !read_to_comma(line, bold) ||
        !read_to_comma(line, italic))
        return 0;
    const utString bold_italic = trim_string(line);
    if (normal.empty() && bold.empty() && italic.empty() && bold_italic.empty())
        return 0;
    append(create_list_element(type, language, family, normal, bold, italic, bold_italic));
    return 1;
}

int grOutlineFontFamilyReader::read_to_comma(std::string_view& rest, utString& text)
{
    const std::size_t comma = rest.find(',');
    if (comma == std::string_view::npos)
        return 0;
    text = trim_string(rest.substr(0, comma));
    rest.remove_prefix(comma + 1);
    return 1;
}

utString grOutlineFontFamilyReader::trim_string(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return utString(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

grOutlineFontFileStatus grOutlineFontFamilyReader::add_morvex_fonts(const utString& directory)
{
    for (const utString& known : the_morvex_directories)
        if (known.equal_case_blind(directory))
            return grOUTLINE_FONT_FILE_READ;
    if (!the_morvex_font_finder)
        return grOUTLINE_FONT_FILE_READ;
    the_morvex_directories.add_last(directory);
    utStringutStringcoTable fonts(4, 50);
    the_morvex_font_finder(directory, fonts);
    // A table has no order of its own.
    std::vector<std::pair<utString, utString>> sorted(fonts.begin(), fonts.end());
    std::sort(sorted.begin(), sorted.end());
    for (const auto& [family, file] : sorted)
    {
        if (family_exists(ltMORVEX_FONT, family))
            continue;
        // Deliberate: the family name is the font, and the file stands where the metrics file does.
        append(std::make_unique<grOutlineFontListElement>(ltMORVEX_FONT, 0, family, family, utString(), utString(),
                                                          utString(), file, utString(), utString(), utString()));
    }
    return grOUTLINE_FONT_FILE_READ;
}

void grOutlineFontFamilyReader::set_morvex_font_finder(grMorvexFontFinder finder)
{
    the_morvex_font_finder = finder;
}

int grOutlineFontFamilyReader::num_families() const
{
    return the_families.count();
}

utString grOutlineFontFamilyReader::family_name(int i, ltFontType& type) const
{
    type = the_families[i]->font_type();
    return the_families[i]->family_name();
}

int grOutlineFontFamilyReader::family_exists(ltFontType type, const utString& family) const
{
    return find_family(type, family) != nullptr;
}

int grOutlineFontFamilyReader::family_installed(ltFontType type, const utString& family) const
{
    const grOutlineFontListElement* element = find_family(type, family);
    return element && element->family_installed();
}

int grOutlineFontFamilyReader::family_renderer_index(ltFontType type, const utString& family) const
{
    const grOutlineFontListElement* element = find_family(type, family);
    return element ? element->renderer_index() : -1;
}

int grOutlineFontFamilyReader::char_set(ltFontType type, const utString& family) const
{
    const grOutlineFontListElement* element = find_family(type, family);
    return element ? element->language_name() : -1;
}

std::unique_ptr<grOutlineFontListElement>
grOutlineFontFamilyReader::create_list_element(ltFontType type, int language, const utString& family,
                                               const utString& normal, const utString& bold, const utString& italic,
                                               const utString& bold_italic)
{
    const utString* const stems[] = {&normal, &bold, &italic, &bold_italic};
    utString fonts[4], metrics[4];
    int n_found = 0;
    for (int i = 0; i < 4; ++i)
    {
        find_font(*stems[i], type, fonts[i], metrics[i]);
        n_found += !fonts[i].empty();
    }
    if (n_found == 0 || family_exists(type, family))
        return nullptr;
    return std::make_unique<grOutlineFontListElement>(type, language, family, fonts[0], fonts[1], fonts[2], fonts[3],
                                                      metrics[0], metrics[1], metrics[2], metrics[3]);
}

void grOutlineFontFamilyReader::find_font(const utString& stem, ltFontType type, utString& font,
                                          utString& metrics) const
{
    font = metrics = utString();
    if (stem.empty())
        return;
    // Deliberate: a name is looked up as a binary Type 1 file also when it is called a TrueType font.
    const utString file = stem + (type == ltADOBE_PFA_FONT ? ".pfa" : ".pfb");
    utString found_font, found_metrics;
    if (!gr_find_file(file, the_font_path, found_font))
        return;
    if (!gr_find_file(stem, the_metrics_path, found_metrics) &&
        !gr_find_file(stem + ".afm", the_metrics_path, found_metrics))
        return;
    font = found_font;
    metrics = found_metrics;
}

grOutlineFontListElement* grOutlineFontFamilyReader::find_family(ltFontType type, const utString& family) const
{
    for (grOutlineFontListElement* element : the_families)
        if (element->font_type() == type && element->family_name() == family)
            return element;
    return nullptr;
}

void grOutlineFontFamilyReader::append(std::unique_ptr<grOutlineFontListElement> element)
{
    if (element)
        the_families.add_last(element.release());
}

void grOutlineFontFamilyReader::print(std::ostream& os) const
{
    os << "grOutlineFontFamilyReader {\n"
       << "  the_metrics_path is " << the_metrics_path << '\n'
       << "  the_font_path is " << the_font_path << '\n'
       << "  num_families is " << num_families() << '\n';
    for (const grOutlineFontListElement* element : the_families)
        element->print(os);
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grOutlineFontFamilyReader& reader)
{
    reader.print(os);
    return os;
}

std::ostream& operator<<(std::ostream& os, grOutlineFontFileStatus status)
{
    switch (status)
    {
    case grOUTLINE_FONT_FILE_READ: return os << "grOUTLINE_FONT_FILE_READ";
    case grOUTLINE_FONT_FILE_BAD: return os << "grOUTLINE_FONT_FILE_BAD";
    }
    return os << "Unknown value for grOutlineFontFileStatus";
}
