#pragma once

#include "ltFont.h"

/// How a run of text looks.
struct ltAttributeSet
{
    ltFont font;
    double height = 1; ///< of a line, in model units
    int underlined = 0;

    friend bool operator==(const ltAttributeSet& a, const ltAttributeSet& b)
    {
        return a.font == b.font && a.height == b.height && a.underlined == b.underlined;
    }
};
