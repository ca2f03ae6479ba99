#include "tsFontFolder.h"

#include "dgGlyphOutline.h"
#include "dgTextFont.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace
{
namespace fs = std::filesystem;

std::string real_file(const char* folder, const std::string& name, const char* package)
{
    const fs::path file = fs::path(folder) / name;
    EXPECT_TRUE(fs::is_regular_file(file)) << file << " is missing: install " << package;
    return file.string();
}
}

std::string tsHtmldocFont(const std::string& name)
{
    return real_file("/usr/share/htmldoc/fonts", name, "htmldoc-common");
}

std::string tsUrwFont(const std::string& name)
{
    return real_file("/usr/share/fonts/X11/Type1", name, "fonts-urw-base35");
}

std::string tsUrwMetrics(const std::string& name)
{
    return real_file("/usr/share/fonts/type1/urw-base35", name, "fonts-urw-base35");
}

std::string tsDejavuFont(const std::string& name)
{
    return real_file("/usr/share/fonts/truetype/dejavu", name, "fonts-dejavu-core");
}

std::string tsFileText(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string tsRenamedFont(const std::string& name)
{
    const std::string old = "DejaVu Sans";
    EXPECT_EQ(name.size(), old.size());
    // Both encodings of its name table hold the name.
    const auto wide = [](const std::string& text)
    {
        std::string units;
        for (const char c : text)
            units += std::string(1, '\0') + c;
        return units;
    };
    std::string font = tsFileText(tsDejavuFont("DejaVuSans.ttf"));
    for (const auto& [from, to] : {std::pair(old, name), std::pair(wide(old), wide(name))})
        for (std::size_t at = font.find(from); at != std::string::npos; at = font.find(from, at + 1))
            font.replace(at, from.size(), to);
    return font;
}

void tsFontFolder::link(const std::string& stem, const std::string& htmldoc_stem)
{
    link_file(stem + ".pfa", tsHtmldocFont(htmldoc_stem + ".pfa"));
    link_file(stem + ".afm", tsHtmldocFont(htmldoc_stem + ".afm"));
}

void tsFontFolder::link_file(const std::string& name, const std::string& target)
{
    // Not everybody may make links on Windows.
    std::error_code failure;
    fs::create_symlink(target, tsFolder::operator/(name), failure);
    if (failure)
        fs::copy_file(target, tsFolder::operator/(name));
}

void tsFontFolder::make_folder(const std::string& name)
{
    fs::create_directory(tsFolder::operator/(name));
}

const grOutlineFontListElement* tsFind(const grOutlineFontFamilyReader& reader, ltFontType type, const char* family)
{
    for (int i = 0; i < reader.num_families(); ++i)
        if (reader.family(i).font_type() == type && reader.family(i).family_name() == family)
            return &reader.family(i);
    return nullptr;
}

giBox2 tsInk(const dgTextFont& font, char32_t character)
{
    dgGlyphOutline outline;
    font.outline(font.glyph(character), outline);
    giBox2 box;
    for (const auto& contour : outline.contours)
        for (const giPoint2& point : contour)
            box.merge(point);
    return box;
}
