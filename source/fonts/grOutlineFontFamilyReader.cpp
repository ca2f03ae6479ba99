#include "grOutlineFontFamilyReader.h"

#include "grBuiltinFontFamilies.h"
#include "grOutlineFontInstaller.h"
#include "grOutlineFontListElement.h"
#include "grOutlineFontListFile.h"
#include "gr_find_file.h"

#include "apString.h"
#include "apSystemFonts.h"

#include <algorithm>
#include <ostream>
#include <vector>

UT_DEFINE_TYPE(grOutlineFontFamilyReader);

grMorvexFontFinder grOutlineFontFamilyReader::the_morvex_font_finder = nullptr;

namespace
{
// In place of the finder without data.
void (*the_data_finder)(const utString&, utStringutStringcoTable&, void*) = nullptr;
void* the_finder_data = nullptr;

constexpr int bold_above = 500; // a weight of 500 is not bold

// Western, symbols, Japanese, Korean, simplified and traditional Chinese, Cyrillic.
constexpr int offered_character_sets[] = {0, 2, 128, 129, 134, 136, 204};

bool is_offered(const apSystemFace& face)
{
    return (face.font_type & apFONT_TYPE_TRUETYPE) &&
           std::find(std::begin(offered_character_sets), std::end(offered_character_sets), face.character_set) !=
               std::end(offered_character_sets);
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
        append(create_list_element(row.type, 0, row.family, {row.stems[0], row.stems[1], row.stems[2], row.stems[3]}));
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
        the_styles = {};
        the_style_language = -1;
        // Deliberate: what was asked of the family is not asked of its faces.
        system.enumerate(family.c_str(),
                         [this](const apSystemFace& face)
                         {
                             add_truetype_styles(face.full_name.c_str(), face.weight, face.italic);
                             add_truetype_language(face.character_set);
                         });
        // Deliberate: a family that exists already is added once more.
        append(std::make_unique<grOutlineFontListElement>(ltTRUETYPE_FONT, the_style_language, family, the_styles,
                                                          grOutlineFontStyles()));
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
    // The order of the styles: bold adds 1, italic adds 2.
    const std::size_t style = (weight > bold_above ? 1u : 0u) + (italic ? 2u : 0u);
    the_styles[style] = utString(full_name);
}

void grOutlineFontFamilyReader::add_truetype_language(int character_set)
{
    if (the_style_language == -1)
        the_style_language = character_set;
}

grOutlineFontFileStatus grOutlineFontFamilyReader::append_font_list(const utString& file, int& line)
{
    grOutlineFontListFile list(file);
    for (grOutlineFontListFile::Family family; list.next(family);)
        append(create_list_element(family.type, family.language, family.name, family.stems));
    line = list.bad_line();
    return list.read_well() ? grOUTLINE_FONT_FILE_READ : grOUTLINE_FONT_FILE_BAD;
}

grOutlineFontFileStatus grOutlineFontFamilyReader::add_morvex_fonts(const utString& directory)
{
    for (const utString& known : the_morvex_directories)
        if (known.equal_case_blind(directory))
            return grOUTLINE_FONT_FILE_READ;
    if (!the_morvex_font_finder && !the_data_finder)
        return grOUTLINE_FONT_FILE_READ;
    the_morvex_directories.add_last(directory);
    utStringutStringcoTable fonts(4, 50);
    if (the_morvex_font_finder)
        the_morvex_font_finder(directory, fonts);
    else
        the_data_finder(directory, fonts, the_finder_data);
    // A table has no order of its own.
    std::vector<std::pair<utString, utString>> sorted(fonts.begin(), fonts.end());
    std::sort(sorted.begin(), sorted.end());
    for (const auto& [family, file] : sorted)
    {
        if (family_exists(ltMORVEX_FONT, family))
            continue;
        // Deliberate: the family name is the font, and the file stands where the metrics file does.
        append(std::make_unique<grOutlineFontListElement>(ltMORVEX_FONT, 0, family, grOutlineFontStyles{family},
                                                          grOutlineFontStyles{file}));
    }
    return grOUTLINE_FONT_FILE_READ;
}

void grOutlineFontFamilyReader::set_morvex_font_finder(grMorvexFontFinder finder)
{
    the_morvex_font_finder = finder;
    the_data_finder = nullptr;
}

void grOutlineFontFamilyReader::set_morvex_font_finder(void (*finder)(const utString&, utStringutStringcoTable&, void*),
                                                       void* data)
{
    the_morvex_font_finder = nullptr;
    the_data_finder = finder;
    the_finder_data = data;
}

grOutlineFontInstallStatus grOutlineFontFamilyReader::install_family(ltFontType type, const utString& family,
                                                                     dgRenderer* renderer)
{
    grOutlineFontListElement* element = find_family(type, family);
    if (!element)
        return grOUTLINE_FONT_NO_FAMILY;
    return element->family_installed() ? grOUTLINE_FONT_INSTALLED : grOutlineFontInstaller(*renderer).install(*element);
}

void grOutlineFontFamilyReader::remove_family(ltFontType type, const utString& family, dgRenderer* renderer)
{
    grOutlineFontListElement* element = find_family(type, family);
    if (element && element->family_installed())
        grOutlineFontInstaller(*renderer).remove(*element);
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
                                               const grOutlineFontStyles& stems)
{
    grOutlineFontStyles fonts, metrics;
    for (std::size_t i = 0; i < stems.size(); ++i)
        find_font(stems[i], type, fonts[i], metrics[i]);
    const auto is_missing = [](const utString& font) { return font.empty(); };
    if (std::all_of(fonts.begin(), fonts.end(), is_missing) || family_exists(type, family))
        return nullptr;
    return std::make_unique<grOutlineFontListElement>(type, language, family, fonts, metrics);
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

grOutlineFontInstallStatus grOutlineFontFamilyReader::add_font(dgRenderer* renderer,
                                                               const grOutlineFontListElement& element,
                                                               grOutlineFontStyle style, int slot)
{
    return grOutlineFontInstaller(*renderer).add(element, style, slot);
}

void grOutlineFontFamilyReader::copy_font(dgRenderer* renderer, int from, int to)
{
    grOutlineFontInstaller(*renderer).copy(from, to);
}

int grOutlineFontFamilyReader::read_to_comma(std::string_view& rest, utString& text)
{
    return grOutlineFontListFile::read_to_comma(rest, text);
}

utString grOutlineFontFamilyReader::trim_string(std::string_view text)
{
    return grOutlineFontListFile::trimmed(text);
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

std::ostream& operator<<(std::ostream& os, grOutlineFontInstallStatus status)
{
    switch (status)
    {
    case grOUTLINE_FONT_INSTALLED: return os << "grOUTLINE_FONT_INSTALLED";
    case grOUTLINE_FONT_NO_FAMILY: return os << "grOUTLINE_FONT_NO_FAMILY";
    case grOUTLINE_FONT_FILE_NOT_LOADED: return os << "grOUTLINE_FONT_FILE_NOT_LOADED";
    case grOUTLINE_FONT_CONTENTS_NOT_LOADED: return os << "grOUTLINE_FONT_CONTENTS_NOT_LOADED";
    }
    return os << "Unknown value for grOutlineFontInstallStatus";
}
