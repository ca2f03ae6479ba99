#include "dgFontFace.h"

#include "dgAfmWidths.h"

#include "apFile.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>
#include <unordered_map>
#include <utility>

namespace
{
constexpr double tolerance = 0.001;  // of curves, in ems
constexpr int most_pieces = 64;      // of one curve
constexpr double slant_factor = 0.2; // x for each y, about 11 degrees
constexpr char32_t symbol_codes = 0xF000;

// Never closed: fonts may live in static objects.
FT_Library free_type()
{
    static FT_Library library = nullptr;
    if (!library && FT_Init_FreeType(&library) != 0)
        library = nullptr;
    return library;
}

dgTextFontStatus read_file(const std::string& file, std::vector<unsigned char>& bytes)
{
    std::ifstream stream;
    if (!ap_open_for_reading(file, stream))
        return dgTEXT_FONT_NO_FILE;
    bytes.assign(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    return stream.bad() ? dgTEXT_FONT_NO_FILE : dgTEXT_FONT_LOADED;
}

FT_Open_Args memory(const std::vector<unsigned char>& bytes)
{
    FT_Open_Args arguments{};
    arguments.flags = FT_OPEN_MEMORY;
    arguments.memory_base = bytes.data();
    arguments.memory_size = static_cast<FT_Long>(bytes.size());
    return arguments;
}

// Turns FreeType's outlines into contours of lines.
class Flattener
{
public:
    Flattener(double scale, double slant, dgGlyphOutline& outline)
        : the_scale(scale), the_slant(slant), the_outline(outline)
    {}

    bool run(FT_Outline& outline)
    {
        FT_Outline_Funcs functions{};
        functions.move_to = [](const FT_Vector* to, void* self) { return of(self).move_to(*to); };
        functions.line_to = [](const FT_Vector* to, void* self) { return of(self).line_to(*to); };
        functions.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* self)
        { return of(self).conic_to(*control, *to); };
        functions.cubic_to = [](const FT_Vector* first, const FT_Vector* second, const FT_Vector* to, void* self)
        { return of(self).cubic_to(*first, *second, *to); };
        const bool ok = FT_Outline_Decompose(&outline, &functions, this) == 0;
        for (std::vector<giPoint2>& contour : the_outline.contours)
            if (contour.size() > 1 && contour.front() == contour.back())
                contour.pop_back();
        std::erase_if(the_outline.contours, [](const auto& contour) { return contour.size() < 3; });
        return ok;
    }

private:
    static Flattener& of(void* self) { return *static_cast<Flattener*>(self); }

    giPoint2 point(const FT_Vector& v) const
    {
        const auto y = static_cast<double>(v.y);
        return {(static_cast<double>(v.x) + the_slant * y) * the_scale, y * the_scale};
    }
    void add(const giPoint2& p)
    {
        std::vector<giPoint2>& contour = the_outline.contours.back();
        if (contour.empty() || !(contour.back() == p))
            contour.push_back(p);
    }
    int move_to(const FT_Vector& to)
    {
        the_outline.contours.emplace_back();
        add(point(to));
        return 0;
    }
    int line_to(const FT_Vector& to)
    {
        add(point(to));
        return 0;
    }
    int conic_to(const FT_Vector& control, const FT_Vector& to)
    {
        const giPoint2 p0 = the_outline.contours.back().back(), p1 = point(control), p2 = point(to);
        const double bend = std::hypot(p0.x() - 2 * p1.x() + p2.x(), p0.y() - 2 * p1.y() + p2.y());
        const int n = pieces(bend / 4);
        for (int i = 1; i <= n; ++i)
        {
            const double t = static_cast<double>(i) / n, s = 1 - t;
            const auto at = [&](double a, double b, double c) { return s * s * a + 2 * s * t * b + t * t * c; };
            add({at(p0.x(), p1.x(), p2.x()), at(p0.y(), p1.y(), p2.y())});
        }
        return 0;
    }
    int cubic_to(const FT_Vector& first, const FT_Vector& second, const FT_Vector& to)
    {
        const giPoint2 p0 = the_outline.contours.back().back();
        const giPoint2 p1 = point(first), p2 = point(second), p3 = point(to);
        const double bend = std::max(std::hypot(p0.x() - 2 * p1.x() + p2.x(), p0.y() - 2 * p1.y() + p2.y()),
                                     std::hypot(p1.x() - 2 * p2.x() + p3.x(), p1.y() - 2 * p2.y() + p3.y()));
        const int n = pieces(bend * 3 / 4);
        for (int i = 1; i <= n; ++i)
        {
            const double t = static_cast<double>(i) / n, s = 1 - t;
            const auto at = [&](double a, double b, double c, double d)
            { return s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d; };
            add({at(p0.x(), p1.x(), p2.x(), p3.x()), at(p0.y(), p1.y(), p2.y(), p3.y())});
        }
        return 0;
    }
    // The distance of a curve from its chord shrinks with the square of the number of pieces.
    static int pieces(double distance)
    {
        return std::clamp(static_cast<int>(std::ceil(std::sqrt(distance / tolerance))), 1, most_pieces);
    }

    double the_scale;
    double the_slant;
    dgGlyphOutline& the_outline;
};
}

struct dgFontFace::Face
{
    FT_Face face = nullptr;
    std::vector<unsigned char> bytes; // which the face reads from as long as it lives
    double scale = 0.001;             // ems for a unit of the font
    FT_CharMap unicode = nullptr;
    FT_CharMap symbols = nullptr; // the font's own codes
    bool symbols_raised = false;  // that start at symbol_codes
    std::unordered_map<unsigned, double> widths;

    Face() = default;
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;
    ~Face()
    {
        if (face)
            FT_Done_Face(face);
    }

    unsigned find(FT_CharMap map, char32_t code) const
    {
        if (!map)
            return 0;
        if (face->charmap != map)
            FT_Set_Charmap(face, map);
        return FT_Get_Char_Index(face, code);
    }
};

dgFontFace::dgFontFace(std::unique_ptr<Face> face) : the_face(std::move(face)) {}

dgFontFace::~dgFontFace() = default;

std::unique_ptr<dgFontFace> dgFontFace::open(std::vector<unsigned char> bytes, int index, dgTextFontStatus& status)
{
    auto face = std::make_unique<Face>();
    face->bytes = std::move(bytes);
    status = dgTEXT_FONT_BAD_FILE;
    const FT_Open_Args arguments = memory(face->bytes);
    if (!free_type() || FT_Open_Face(free_type(), &arguments, index, &face->face) != 0)
        return nullptr;
    if (!FT_IS_SCALABLE(face->face) || face->face->units_per_EM == 0)
        return nullptr;
    face->scale = 1.0 / face->face->units_per_EM;
    if (FT_Select_Charmap(face->face, FT_ENCODING_UNICODE) == 0)
        face->unicode = face->face->charmap;
    if (FT_Select_Charmap(face->face, FT_ENCODING_MS_SYMBOL) == 0)
    {
        face->symbols = face->face->charmap;
        face->symbols_raised = true;
    }
    else if (FT_Select_Charmap(face->face, FT_ENCODING_ADOBE_CUSTOM) == 0)
    {
        face->symbols = face->face->charmap;
    }
    status = dgTEXT_FONT_LOADED;
    return std::unique_ptr<dgFontFace>(new dgFontFace(std::move(face)));
}

std::unique_ptr<dgFontFace> dgFontFace::open_file(const std::string& file, int index, dgTextFontStatus& status)
{
    std::vector<unsigned char> bytes;
    status = read_file(file, bytes);
    return status == dgTEXT_FONT_LOADED ? open(std::move(bytes), index, status) : nullptr;
}

dgTextFontStatus dgFontFace::attach_metrics(const std::string& file)
{
    std::vector<unsigned char> bytes;
    if (const dgTextFontStatus status = read_file(file, bytes); status != dgTEXT_FONT_LOADED)
        return status;
    std::unordered_map<unsigned, double> widths;
    std::vector<dgAfmWidth> read;
    std::istringstream text(std::string(bytes.begin(), bytes.end()));
    const int is_afm = dg_read_afm_widths(text, read);
    std::size_t fitting = 0;
    for (const dgAfmWidth& width : read)
    {
        const unsigned glyph = FT_Get_Name_Index(the_face->face, width.glyph_name.c_str());
        if (!glyph && width.glyph_name != ".notdef")
            continue;
        ++fitting;
        widths[glyph] = width.width / 1000;
    }
    if (is_afm && fitting <= read.size() / 2)
        return dgTEXT_FONT_BAD_FILE;
    FT_Open_Args arguments = memory(bytes);
    if (FT_Attach_Stream(the_face->face, &arguments) != 0)
        return dgTEXT_FONT_BAD_FILE;
    the_face->widths = std::move(widths);
    return dgTEXT_FONT_LOADED;
}

int dgFontFace::italic() const
{
    return (the_face->face->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
}

unsigned dgFontFace::glyph(char32_t character) const
{
    if (const unsigned found = the_face->find(the_face->unicode, character))
        return found;
    if (character > 0xff)
        return 0;
    if (the_face->symbols_raised)
        if (const unsigned found = the_face->find(the_face->symbols, symbol_codes + character))
            return found;
    return the_face->find(the_face->symbols, character);
}

double dgFontFace::advance(unsigned glyph) const
{
    const auto found = the_face->widths.find(glyph);
    if (found != the_face->widths.end())
        return found->second;
    if (FT_Load_Glyph(the_face->face, glyph, FT_LOAD_NO_SCALE) != 0)
        return 0;
    return static_cast<double>(the_face->face->glyph->metrics.horiAdvance) * the_face->scale;
}

double dgFontFace::kerning(unsigned left, unsigned right) const
{
    FT_Vector kerning{};
    if (FT_Get_Kerning(the_face->face, left, right, FT_KERNING_UNSCALED, &kerning) != 0)
        return 0;
    return static_cast<double>(kerning.x) * the_face->scale;
}

int dgFontFace::outline(unsigned glyph, dgGlyphOutline& outline) const
{
    outline.contours.clear();
    FT_Face face = the_face->face;
    if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0 || face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return 0;
    return Flattener(the_face->scale, the_slant ? slant_factor : 0, outline).run(face->glyph->outline);
}
