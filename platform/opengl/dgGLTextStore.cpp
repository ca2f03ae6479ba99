#include "dgGLTextStore.h"

#include "dgGLTessellator.h"
#include "dgGlyphOutline.h"
#include "dgText.h"
#include "dgTextFont.h"
#include "dgTextLayout.h"
#include "giBox2.h"
#include "giBox3.h"
#include "giTriBlock.h"

#include <algorithm>
#include <memory>

namespace
{
// One text is drawn under few styles at a time: in several views, or as a rubber band over itself.
constexpr std::size_t most_variants = 4;

struct Glyph
{
    dgGlyphOutline outline;
    dgGLTriangles triangles;
    giBox2 box; // in ems
};

class Glyphs : public dgTextFontCache
{
public:
    const Glyph& find(const dgTextStyle& style, unsigned number)
    {
        const auto [found, is_new] = the_glyphs.try_emplace(number);
        Glyph& glyph = found->second;
        if (!is_new)
            return glyph;
        dg_glyph_outline(style, number, glyph.outline);
        // What cannot be triangulated is seen as what cannot be found.
        if (!dg_gl_tessellate(glyph.outline.contours, glyph.triangles))
        {
            glyph = Glyph();
            dg_glyph_outline(style, dgTextFont::missing_glyph, glyph.outline);
            dg_gl_tessellate(glyph.outline.contours, glyph.triangles);
        }
        for (const giPoint2& point : glyph.triangles.points)
            glyph.box.merge(point);
        return glyph;
    }

private:
    std::unordered_map<unsigned, Glyph> the_glyphs;
};

Glyphs& glyphs_of(const dgTextStyle& style)
{
    static auto* const no_font = new Glyphs;
    if (!style.font)
        return *no_font;
    if (!style.font->cache())
        style.font->cache() = std::make_unique<Glyphs>();
    return static_cast<Glyphs&>(*style.font->cache());
}

// A place in the plane of a text, in model units along its baseline and up.
giPoint3 place(const dgText& text, const dgTextStyle& style, double x, double y)
{
    return text.position() + style.baseline * x + style.up * y;
}

// Puts triangles of glyphs into the plane of the text.
class Plane
{
public:
    Plane(const dgText& text, const dgTextStyle& style, giTriBlock& block)
        : the_text(text), the_style(style), the_block(block)
    {}

    // The triangles are those of a glyph in ems, when scale_x and scale_y are what an em is.
    void add(const dgGLTriangles& triangles, const giPoint2& origin, double scale_x, double scale_y)
    {
        const int first = the_block.node_count();
        for (const giPoint2& point : triangles.points)
            the_block.nodes().append(
                place(the_text, the_style, origin.x() + point.x() * scale_x, origin.y() + point.y() * scale_y));
        for (const giTriangle& triangle : triangles.triangles)
            the_block.triangles().emplace_back(first + triangle[0], first + triangle[1], first + triangle[2]);
    }

private:
    const dgText& the_text;
    const dgTextStyle& the_style;
    giTriBlock& the_block;
};

giBox2 placed_box(const giBox2& box, const giPoint2& origin, double scale_x, double scale_y)
{
    giBox2 placed;
    placed.merge(giPoint2(origin.x() + box.low().x() * scale_x, origin.y() + box.low().y() * scale_y));
    placed.merge(giPoint2(origin.x() + box.high().x() * scale_x, origin.y() + box.high().y() * scale_y));
    return placed;
}

int meet(const giBox2& a, const giBox2& b)
{
    return a.low().x() <= b.high().x() && b.low().x() <= a.high().x() && a.low().y() <= b.high().y() &&
           b.low().y() <= a.high().y();
}

// The numbers of the groups that boxes belong to when those that meet are together: the lowest place of each group.
std::vector<std::size_t> groups_of(const std::vector<giBox2>& boxes)
{
    std::vector<std::size_t> group(boxes.size()), by_x(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i)
        group[i] = by_x[i] = i;
    const auto root = [&](std::size_t i)
    {
        while (group[i] != i)
            i = group[i] = group[group[i]];
        return i;
    };
    std::sort(by_x.begin(), by_x.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a].low().x() < boxes[b].low().x(); });
    std::vector<std::size_t> open; // whose boxes may still reach into those to come
    for (const std::size_t i : by_x)
    {
        std::erase_if(open, [&](std::size_t other) { return boxes[other].high().x() < boxes[i].low().x(); });
        for (const std::size_t other : open)
            if (meet(boxes[i], boxes[other]))
            {
                const std::size_t a = root(i), b = root(other);
                group[std::max(a, b)] = std::min(a, b);
            }
        open.push_back(i);
    }
    for (std::size_t i = 0; i < group.size(); ++i)
        group[i] = root(i);
    return group;
}

void append_outline(const dgGlyphOutline& glyph, const giPoint2& origin, double scale_x, double scale_y,
                    dgGlyphOutline& outline)
{
    for (const std::vector<giPoint2>& contour : glyph.contours)
    {
        std::vector<giPoint2>& placed = outline.contours.emplace_back();
        placed.reserve(contour.size());
        for (const giPoint2& point : contour)
            placed.emplace_back(origin.x() + point.x() * scale_x, origin.y() + point.y() * scale_y);
    }
}

void add_separately(const std::vector<dgPlacedGlyph>& placed, const dgTextStyle& style, Glyphs& glyphs, Plane& plane)
{
    for (const dgPlacedGlyph& glyph : placed)
        plane.add(glyphs.find(style, glyph.glyph).triangles, glyph.origin, style.height * style.width_factor,
                  style.height);
}

void add_without_overlaps(const std::vector<dgPlacedGlyph>& placed, const dgTextStyle& style, Glyphs& glyphs,
                          Plane& plane)
{
    const double scale_x = style.height * style.width_factor, scale_y = style.height;
    std::vector<giBox2> boxes;
    boxes.reserve(placed.size());
    for (const dgPlacedGlyph& glyph : placed)
        boxes.push_back(placed_box(glyphs.find(style, glyph.glyph).box, glyph.origin, scale_x, scale_y));
    const std::vector<std::size_t> group = groups_of(boxes);
    std::vector<std::vector<std::size_t>> members(placed.size());
    for (std::size_t i = 0; i < placed.size(); ++i)
        members[group[i]].push_back(i);
    for (const std::vector<std::size_t>& together : members)
    {
        if (together.size() == 1)
        {
            const dgPlacedGlyph& glyph = placed[together[0]];
            plane.add(glyphs.find(style, glyph.glyph).triangles, glyph.origin, scale_x, scale_y);
            continue;
        }
        dgGlyphOutline outline;
        for (const std::size_t i : together)
            append_outline(glyphs.find(style, placed[i].glyph).outline, placed[i].origin, scale_x, scale_y, outline);
        dgGLTriangles triangles;
        dg_gl_tessellate(outline.contours, triangles);
        plane.add(triangles, giPoint2(), 1, 1);
    }
}

// A closed line through points in the plane of a text.
dgRef<dgPolyline> closed_line(const dgText& text, const dgTextStyle& style, const std::vector<giPoint2>& points)
{
    std::vector<giPoint3> line;
    line.reserve(points.size() + 1);
    for (const giPoint2& point : points)
        line.push_back(place(text, style, point.x(), point.y()));
    line.push_back(line.front());
    return dgRef<dgPolyline>(new dgPolyline(std::move(line)));
}

std::vector<dgRef<dgPolyline>> outlines_of_letters(const dgText& text, const dgTextStyle& style)
{
    dgGlyphOutline all, letter;
    for (const dgPlacedGlyph& glyph : dg_lay_out_text(text.text(), style))
    {
        dg_glyph_outline(style, glyph.glyph, letter);
        append_outline(letter, glyph.origin, style.height * style.width_factor, style.height, all);
    }
    std::vector<dgRef<dgPolyline>> lines;
    for (const std::vector<giPoint2>& contour : all.contours)
        if (!contour.empty())
            lines.push_back(closed_line(text, style, contour));
    return lines;
}

std::vector<dgRef<dgPolyline>> outline_of_room(const dgText& text, const dgTextStyle& style)
{
    // In the plane of the text, where it runs along x.
    dgTextStyle straight = style;
    straight.baseline = giVector3(1, 0, 0);
    straight.up = giVector3(0, 1, 0);
    const giBox3 room = dg_text_box(text, straight);
    const giVector3 low = room.low() - text.position(), high = room.high() - text.position();
    if (!(high.x() > low.x()))
        return {};
    return {
        closed_line(text, style, {{low.x(), low.y()}, {high.x(), low.y()}, {high.x(), high.y()}, {low.x(), high.y()}})};
}

dgTriangleBlock* make_block(const dgText& text, const dgTextStyle& style, int inverting)
{
    auto block = std::make_unique<giTriBlock>();
    Plane plane(text, style, *block);
    Glyphs& glyphs = glyphs_of(style);
    const std::vector<dgPlacedGlyph> placed = dg_lay_out_text(text.text(), style);
    if (inverting)
        add_without_overlaps(placed, style, glyphs, plane);
    else
        add_separately(placed, style, glyphs, plane);
    return new dgTriangleBlock(block.release(), 1);
}

dgGLTextStore::Shape make_shape(const dgText& text, const dgTextStyle& style, int inverting)
{
    // What inverts pixels shows letters: lines of them cross.
    switch (inverting ? dgTEXT_FILLED : style.look)
    {
    case dgTEXT_FILLED: return {dgRef<dgTriangleBlock>(make_block(text, style, inverting)), {}};
    case dgTEXT_LINES: return {nullptr, outlines_of_letters(text, style)};
    case dgTEXT_BOX: return {nullptr, outline_of_room(text, style)};
    }
    return {};
}
}

const dgGLTextStore::Shape& dgGLTextStore::shape(const dgText& text, const dgTextStyle& style, int inverting)
{
    Entry& entry = the_entries[text.geometry_id()];
    const unsigned long long serial = style.font ? style.font->serial() : 0;
    for (const Variant& variant : entry.variants)
        if (variant.text_stamp == text.stamp() && variant.font_serial == serial && variant.inverting == inverting &&
            variant.style == style)
            return variant.shape;
    std::erase_if(entry.variants, [&](const Variant& variant) { return variant.text_stamp != text.stamp(); });
    Variant made{text.stamp(), serial, style, inverting, make_shape(text, style, inverting)};
    if (entry.variants.size() < most_variants)
        return entry.variants.emplace_back(std::move(made)).shape;
    entry.oldest = (entry.oldest + 1) % most_variants;
    return (entry.variants[entry.oldest] = std::move(made)).shape;
}

void dgGLTextStore::geometry_released(unsigned geometry_id)
{
    // The triangles tell their own store of their end, and that asks all listeners once more.
    const auto found = the_entries.find(geometry_id);
    if (found == the_entries.end())
        return;
    const Entry gone = std::move(found->second);
    the_entries.erase(found);
}
