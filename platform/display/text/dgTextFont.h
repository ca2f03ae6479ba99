#pragma once

#include "dgBase.h"
#include "dgTextFontCache.h"
#include "dgTextFontStatus.h"
#include "utString.h"

#include <memory>
#include <unordered_map>

class dgFontFace;
struct dgGlyphOutline;

/// An outline font for the text-font slots of renderers; one font may be in several. Lengths are ems: 1 is the height
/// of the text.
///
/// A font that failed to load has no glyphs; text in it is seen as empty frames.
class DG_EXPORT dgTextFont : public dgBase
{
public:
    /// Stands for every character that the font lacks: an empty frame.
    static constexpr unsigned missing_glyph = ~0u;

    /// A Type 1 font from a font file and a metrics file (AFM), which its advances and kerning are taken from. Without
    /// a name of a metrics file they are the font's own.
    dgTextFont(const utString& font_file, const utString& metrics_file);

    /// A TrueType face that the system knows under a full name such as "DejaVu Sans Bold". With italic 1 a face that is
    /// not slanted by design is slanted. language is the Windows character set; own_font says that the face is one of
    /// the application's own.
    dgTextFont(const utString& full_face_name, int language, int italic, int own_font);

    /// A font of the application's own. When font_file names no file, but a family, the metrics file holds the
    /// outlines.
    dgTextFont(const utString& font_file, const utString& metrics_file, int language);

    ~dgTextFont() override;

    dgTextFontStatus load_status() const { return the_status; }
    int language() const { return the_language; }
    int own_font() const { return the_own_font; }

    /// The glyph of a Unicode character, or missing_glyph.
    unsigned glyph(char32_t character) const;

    /// From a glyph's origin to that of the next one.
    double advance(unsigned glyph) const;

    /// What the distance between two glyphs in a row is altered by.
    double kerning(unsigned left, unsigned right) const;

    /// The outline of a glyph; empty for blanks.
    void outline(unsigned glyph, dgGlyphOutline& outline) const;

    /// A number that no other font has or had.
    unsigned long long serial() const { return the_serial; }

    /// For drivers, to keep what they make of outlines.
    std::unique_ptr<dgTextFontCache>& cache() const { return the_cache; }

    UT_DECLARE_TYPE(dgTextFont, dgBase);

private:
    dgTextFont(const dgTextFont&) = delete;
    dgTextFont& operator=(const dgTextFont&) = delete;
    void load(const utString& font_file, const utString& metrics_file);

    std::unique_ptr<dgFontFace> the_face; // null unless loaded
    dgTextFontStatus the_status = dgTEXT_FONT_NO_FILE;
    int the_language = -1;
    int the_own_font = 0;
    unsigned long long the_serial;
    mutable std::unordered_map<char32_t, unsigned> the_glyphs;
    mutable std::unordered_map<unsigned, double> the_advances;
    mutable std::unique_ptr<dgTextFontCache> the_cache;
};
