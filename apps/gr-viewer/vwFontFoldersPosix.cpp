// Of Debian, and the systems made from it.
#include "vwFontFolders.h"

std::string vw_system_font_path()
{
    return "/usr/share/fonts/X11/Type1;/usr/share/htmldoc/fonts";
}

std::string vw_system_metrics_path()
{
    return "/usr/share/fonts/type1/urw-base35;/usr/share/htmldoc/fonts";
}
