#pragma once

#include "ltFontType.h"
#include "utString.h"

/// A style of a font family, by the names that font lists and readers of families know it under.
struct ltFont
{
    ltFontType type = ltTRUETYPE_FONT;
    utString family;
    int bold = 0;
    int italic = 0;

    friend bool operator==(const ltFont& a, const ltFont& b)
    {
        return a.type == b.type && a.family == b.family && a.bold == b.bold && a.italic == b.italic;
    }
};
