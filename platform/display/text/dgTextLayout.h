#pragma once

#include "dgExport.h"
#include "giBox2.h"
#include "giPoint2.h"

#include <vector>

class dgText;
class giBox3;
class utString;
struct dgGlyphOutline;
struct dgTextStyle;

/// A glyph of a text and where its origin stands, in model units along the baseline and up, from the text's position.
struct dgPlacedGlyph
{
    unsigned glyph; ///< of the style's font; dgTextFont::missing_glyph where it has none
    giPoint2 origin;
};

/// Places the glyphs of a text under a style, blanks left out. Glyphs stand in the order of the characters, from left
/// to right whatever their script. Lines are 1.2 heights apart.
DG_EXPORT std::vector<dgPlacedGlyph> dg_lay_out_text(const utString& text, const dgTextStyle& style);

/// The room that a text takes under a style, in model coordinates: of each line its advance, from 0.25 heights below
/// the baseline to 0.75 above. The position alone when the text is empty.
DG_EXPORT giBox3 dg_text_box(const dgText& text, const dgTextStyle& style);

/// The outline of a glyph of the style's font, which may be null.
DG_EXPORT void dg_glyph_outline(const dgTextStyle& style, unsigned glyph, dgGlyphOutline& outline);
