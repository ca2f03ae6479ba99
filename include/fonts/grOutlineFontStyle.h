#pragma once

#include "grExport.h"
#include "utString.h"

#include <array>
#include <iosfwd>

/// Styles of a family, in the order of its slots.
enum grOutlineFontStyle
{
    grOUTLINE_FONT_NORMAL = 0,
    grOUTLINE_FONT_BOLD = 1,
    grOUTLINE_FONT_ITALIC = 2,
    grOUTLINE_FONT_BOLD_ITALIC = 3
};

/// One text for each style; empty where a style does not exist.
using grOutlineFontStyles = std::array<utString, 4>;

GR_EXPORT std::ostream& operator<<(std::ostream& os, grOutlineFontStyle style);
