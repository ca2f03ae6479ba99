#pragma once

#include "dg_fontsExport.h"

#include <iosfwd>
#include <string>
#include <vector>

/// One glyph of a metrics file.
struct dgAfmWidth
{
    std::string glyph_name;
    double width; ///< thousandths of an em
};

/// Reads the widths of the glyphs out of an AFM file, the lines "C 65 ; WX 722 ; N A ; ..." between StartCharMetrics
/// and EndCharMetrics (Adobe Font Metrics file format 4.1, section 8). Answers 0 when the text is no AFM file.
DG_FONTS_EXPORT int dg_read_afm_widths(std::istream& stream, std::vector<dgAfmWidth>& widths);
