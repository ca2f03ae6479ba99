#include "dgTextLayout.h"

#include "dgText.h"
#include "dgTextFont.h"
#include "dgTextStyle.h"

#include "apString.h"
#include "dgGlyphOutline.h"
#include "dgRef.h"
#include "giBox3.h"

#include <algorithm>
#include <string>

namespace
{
constexpr double line_distance = 1.2, descent = 0.25, ascent = 0.75; // in heights

// Text that is no UTF-8 is shown byte by byte rather than not at all.
std::u32string characters_of(const utString& text)
{
    std::u32string characters;
    const apString decoded = apString::from_utf8(text.view());
    if (!decoded.valid())
    {
        for (const char byte : text.view())
            characters.push_back(static_cast<unsigned char>(byte));
        return characters;
    }
    char32_t high = 0;
    for (const wchar_t unit : decoded.wide())
    {
        const auto code = static_cast<char32_t>(unit);
        if (code >= 0xD800 && code < 0xDC00)
            high = code;
        else if (code >= 0xDC00 && code < 0xE000)
            characters.push_back(0x10000 + ((high - 0xD800) << 10) + (code - 0xDC00));
        else
            characters.push_back(code);
    }
    return characters;
}

bool is_blank(char32_t character)
{
    return character == U' ' || character == U'\t' || character == 0xA0;
}

const dgTextFont& font_of(const dgTextStyle& style)
{
    // Never destroyed: texts may be drawn from static objects.
    static const auto* const none = new dgTextFont(utString(), utString());
    return style.font ? *style.font : *none;
}

struct Line
{
    std::size_t end; // position behind its last glyph
    double width;
};

struct Layout
{
    std::vector<dgPlacedGlyph> glyphs; // x from the start of the line, y from the first baseline
    std::vector<Line> lines;
};

Layout lines_of(const utString& text, const dgTextStyle& style)
{
    const dgTextFont& font = font_of(style);
    const double scale_x = style.height * style.width_factor;
    Layout layout;
    double x = 0, y = 0;
    unsigned last = dgTextFont::missing_glyph;
    const auto end_line = [&] { layout.lines.push_back({layout.glyphs.size(), x}); };
    for (const char32_t character : characters_of(text))
    {
        if (character == U'\n')
        {
            end_line();
            x = 0;
            y -= line_distance * style.height;
            last = dgTextFont::missing_glyph;
            continue;
        }
        if (character == U'\r')
            continue;
        const unsigned glyph = font.glyph(character == U'\t' ? U' ' : character);
        x += font.kerning(last, glyph) * scale_x;
        if (!is_blank(character))
            layout.glyphs.push_back({glyph, {x, y}});
        x += font.advance(glyph) * scale_x + style.spacing * style.height;
        last = glyph;
    }
    end_line();
    return layout;
}

double horizontal_share(dgTextHorizontal horizontal)
{
    switch (horizontal)
    {
    case dgTEXT_LEFT: break;
    case dgTEXT_CENTRE: return 0.5;
    case dgTEXT_RIGHT: return 1;
    }
    return 0;
}

// What the first baseline is moved up by.
double rise(const Layout& layout, const dgTextStyle& style)
{
    const double below = (static_cast<double>(layout.lines.size()) - 1) * line_distance + descent;
    switch (style.vertical)
    {
    case dgTEXT_BASELINE: break;
    case dgTEXT_BOTTOM: return below * style.height;
    case dgTEXT_MIDDLE: return (below - ascent) / 2 * style.height;
    case dgTEXT_TOP: return -ascent * style.height;
    }
    return 0;
}
}

std::vector<dgPlacedGlyph> dg_lay_out_text(const utString& text, const dgTextStyle& style)
{
    Layout layout = lines_of(text, style);
    const double up = rise(layout, style);
    std::size_t i = 0;
    for (const Line& line : layout.lines)
        for (; i < line.end; ++i)
        {
            giPoint2& origin = layout.glyphs[i].origin;
            origin = {origin.x() - horizontal_share(style.horizontal) * line.width, origin.y() + up};
        }
    return std::move(layout.glyphs);
}

giBox3 dg_text_box(const dgText& text, const dgTextStyle& style)
{
    giBox3 box;
    box.merge(text.position());
    if (text.text().empty())
        return box;
    const Layout layout = lines_of(text.text(), style);
    const double up = rise(layout, style);
    const auto merge = [&](double x, double y) { box.merge(text.position() + style.baseline * x + style.up * y); };
    double y = up;
    for (const Line& line : layout.lines)
    {
        const double low = -horizontal_share(style.horizontal) * line.width;
        for (const double x : {low, low + line.width})
        {
            merge(x, y - descent * style.height);
            merge(x, y + ascent * style.height);
        }
        y -= line_distance * style.height;
    }
    return box;
}

void dg_glyph_outline(const dgTextStyle& style, unsigned glyph, dgGlyphOutline& outline)
{
    font_of(style).outline(glyph, outline);
}
