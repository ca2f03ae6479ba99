#include "grOutlineFontStyle.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grOutlineFontStyle style)
{
    switch (style)
    {
    case grOUTLINE_FONT_NORMAL: return os << "grOUTLINE_FONT_NORMAL";
    case grOUTLINE_FONT_BOLD: return os << "grOUTLINE_FONT_BOLD";
    case grOUTLINE_FONT_ITALIC: return os << "grOUTLINE_FONT_ITALIC";
    case grOUTLINE_FONT_BOLD_ITALIC: return os << "grOUTLINE_FONT_BOLD_ITALIC";
    }
    return os << "Unknown value for grOutlineFontStyle";
}
