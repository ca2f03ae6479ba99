#pragma once

#include "dgGlyphOutline.h"
#include "dgTextFontStatus.h"
#include "dg_fontsExport.h"

#include <memory>
#include <string>
#include <vector>

/// One face of a font file: the glyphs of characters, their outlines and how far apart they stand. Lengths are ems: 1
/// is the size of the font.
class DG_FONTS_EXPORT dgFontFace
{
public:
    /// Takes the face of an index out of a font file's bytes. Null with the reason in status on failure.
    static std::unique_ptr<dgFontFace> open(std::vector<unsigned char> bytes, int index, dgTextFontStatus& status);

    /// The same from a file, whose path is UTF-8.
    static std::unique_ptr<dgFontFace> open_file(const std::string& file, int index, dgTextFontStatus& status);

    ~dgFontFace();
    dgFontFace(const dgFontFace&) = delete;
    dgFontFace& operator=(const dgFontFace&) = delete;

    /// Takes advances and kerning from a metrics file (AFM, or PFM for kerning alone). Anything but dgTEXT_FONT_LOADED
    /// leaves the advances as they were: a file of another font, one that names few of this font's glyphs, is
    /// dgTEXT_FONT_BAD_FILE.
    dgTextFontStatus attach_metrics(const std::string& file);

    /// Whether the face is drawn slanted by design.
    int italic() const;

    /// Slants all outlines from now on.
    void slant(int on) { the_slant = on; }

    /// The glyph of a Unicode character. Of a symbol font's own character set, the code that the character's number
    /// stands for. 0 when the font has none.
    unsigned glyph(char32_t character) const;

    /// From a glyph's origin to that of the next one.
    double advance(unsigned glyph) const;

    /// What the distance between two successive glyphs is altered by; mostly negative.
    double kerning(unsigned left, unsigned right) const;

    /// The outline of a glyph, curves replaced by lines that stay within 0.001 em. 0 when the font's data for it is
    /// damaged.
    int outline(unsigned glyph, dgGlyphOutline& outline) const;

private:
    struct Face;
    explicit dgFontFace(std::unique_ptr<Face> face);

    std::unique_ptr<Face> the_face;
    int the_slant = 0;
};
