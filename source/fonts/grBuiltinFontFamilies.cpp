#include "grBuiltinFontFamilies.h"

namespace
{
// Rows that name a family again are deliberate: they are a second chance, mostly under other file names, for a family
// that the row before found no files of.
constexpr grBuiltinFontFamily courier = {ltADOBE_PFA_FONT, "Courier",         "Courier",
                                         "Courier-Bold",   "Courier-Oblique", "Courier-BoldOblique"};
constexpr grBuiltinFontFamily helvetica = {ltADOBE_PFA_FONT, "Helvetica",         "Helvetica",
                                           "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique"};
constexpr grBuiltinFontFamily symbol = {ltADOBE_PFA_FONT, "Symbol", "Symbol", "", "", ""};
constexpr grBuiltinFontFamily times = {ltADOBE_PFA_FONT, "Times",        "Times-Roman",
                                       "Times-Bold",     "Times-Italic", "Times-BoldItalic"};

constexpr grBuiltinFontFamily families[] = {
    {ltADOBE_PFA_FONT, "AvantGarde", "AvantGarde-Book", "AvantGarde-Demi", "AvantGarde-BookOblique",
     "AvantGarde-DemiOblique"},
    {ltADOBE_PFA_FONT, "Bookman", "Bookman-Light", "Bookman-Demi", "Bookman-LightItalic", "Bookman-DemiItalic"},
    {ltADOBE_PFA_FONT, "CharterBT", "CharterBT-Roman", "CharterBT-Bold", "CharterBT-Italic", "CharterBT-BoldItalic"},
    courier,
    helvetica,
    {ltADOBE_PFA_FONT, "Helvetica-Narrow", "Helvetica-Narrow", "Helvetica-Narrow-Bold", "Helvetica-Narrow-Oblique",
     "Helvetica-Narrow-BoldOblique"},
    {ltADOBE_PFA_FONT, "New Century Schoolbook", "NewCenturySchlbk-Roman", "NewCenturySchlbk-Bold",
     "NewCenturySchlbk-Italic", "NewCenturySchlbk-BoldItalic"},
    {ltADOBE_PFA_FONT, "Palatino", "Palatino-Roman", "Palatino-Bold", "Palatino-Italic", "Palatino-BoldItalic"},
    symbol,
    times,
    {ltADOBE_PFA_FONT, "Utopia", "Utopia-Regular", "Utopia-Bold", "Utopia-Italic", "Utopia-BoldItalic"},
    {ltADOBE_PFA_FONT, "ZapfDingbats", "ZapfDingbats", "", "", ""},
    courier,
    helvetica,
    symbol,
    times,
    {ltADOBE_PFA_FONT, "Courier", "cour", "courb", "couri", "courbi"},
    {ltADOBE_PFA_FONT, "Utopia", "UTRG____", "UTB_____", "UTI_____", "UTBI____"},
    {ltADOBE_PFB_FONT, "Courier", "cour", "courb", "couri", "courbi"},
    {ltADOBE_PFB_FONT, "CharterBT", "bchart", "bchartb", "bcharti", "bchartbi"},
    {ltADOBE_PFB_FONT, "Utopia", "utopia", "utopb", "utopi", "utopbi"},
};
static_assert(std::size(families) == 21);
}

std::span<const grBuiltinFontFamily> gr_builtin_font_families()
{
    return families;
}
