#pragma once

/// Kinds of outline fonts. The values are those of font lists and of the records that applications keep.
enum ltFontType
{
    ltTRUETYPE_FONT = 1,  ///< a TrueType face installed in the system; "truetype" in font lists
    ltADOBE_PFA_FONT = 2, ///< PostScript Type 1, text form; "adobe_pfa"
    ltADOBE_PFB_FONT = 3, ///< PostScript Type 1, binary form; "adobe_pfb"
    ltMORVEX_FONT = 4     ///< the application's own outline fonts, which a font finder reports
};
