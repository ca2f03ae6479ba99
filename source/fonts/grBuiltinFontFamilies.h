#pragma once

#include "ltFontType.h"

#include <span>

/// One PostScript Type 1 family under the file names that it is commonly delivered with; an empty stem where a style
/// does not exist.
struct grBuiltinFontFamily
{
    ltFontType type;
    const char* family;
    const char* stems[4]; // by grOutlineFontStyle
};

/// The families in the order in which they are offered.
std::span<const grBuiltinFontFamily> gr_builtin_font_families();
