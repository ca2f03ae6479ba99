#include "dgTextFont.h"

#include "dgFontFace.h"
#include "dgStamp.h"

#include "apFile.h"
#include "apSystemFonts.h"

#include <utility>

UT_DEFINE_TYPE(dgTextFont, dgBase);

namespace
{
constexpr double missing_glyph_advance = 0.6;

std::vector<giPoint2> rectangle(double low_x, double low_y, double high_x, double high_y)
{
    return {{low_x, low_y}, {high_x, low_y}, {high_x, high_y}, {low_x, high_y}};
}

dgGlyphOutline frame()
{
    dgGlyphOutline outline;
    outline.contours = {rectangle(0.08, 0, 0.52, 0.7), rectangle(0.13, 0.05, 0.47, 0.65)};
    std::swap(outline.contours[1][1], outline.contours[1][3]); // the other way round, so that it is a hole
    return outline;
}
}

dgTextFont::dgTextFont(const utString& font_file, const utString& metrics_file) : the_serial(dg_next_stamp())
{
    load(font_file, metrics_file);
}

dgTextFont::dgTextFont(const utString& full_face_name, int language, int italic, int own_font)
    : the_language(language), the_own_font(own_font), the_serial(dg_next_stamp())
{
    apFaceData data;
    if (!apSystemFonts::find_face(full_face_name.str(), data))
        return;
    the_face = data.bytes.empty() ? dgFontFace::open_file(data.file, data.face_index, the_status)
                                  : dgFontFace::open(std::move(data.bytes), data.face_index, the_status);
    if (the_face && italic && !the_face->italic())
        the_face->slant(1);
}

dgTextFont::dgTextFont(const utString& font_file, const utString& metrics_file, int language)
    : the_language(language), the_own_font(1), the_serial(dg_next_stamp())
{
    if (ap_file_exists(font_file.str()))
        load(font_file, metrics_file);
    else
        load(metrics_file, utString());
}

dgTextFont::~dgTextFont() = default;

void dgTextFont::load(const utString& font_file, const utString& metrics_file)
{
    std::unique_ptr<dgFontFace> face = dgFontFace::open_file(font_file.str(), 0, the_status);
    if (face && !metrics_file.empty())
        the_status = face->attach_metrics(metrics_file.str());
    if (the_status == dgTEXT_FONT_LOADED)
        the_face = std::move(face);
}

unsigned dgTextFont::glyph(char32_t character) const
{
    if (!the_face)
        return missing_glyph;
    const auto [found, is_new] = the_glyphs.try_emplace(character, missing_glyph);
    if (is_new)
    {
        const unsigned glyph = the_face->glyph(character);
        dgGlyphOutline outline;
        if (glyph && the_face->outline(glyph, outline))
            found->second = glyph;
    }
    return found->second;
}

double dgTextFont::advance(unsigned glyph) const
{
    if (!the_face || glyph == missing_glyph)
        return missing_glyph_advance;
    const auto [found, is_new] = the_advances.try_emplace(glyph, 0.0);
    if (is_new)
        found->second = the_face->advance(glyph);
    return found->second;
}

double dgTextFont::kerning(unsigned left, unsigned right) const
{
    return !the_face || left == missing_glyph || right == missing_glyph ? 0 : the_face->kerning(left, right);
}

void dgTextFont::outline(unsigned glyph, dgGlyphOutline& outline) const
{
    if (!the_face || glyph == missing_glyph)
        outline = frame();
    else
        the_face->outline(glyph, outline);
}
