#pragma once

#include <string>

/// Bits of a face's font type.
enum apFontTypeBits
{
    apFONT_TYPE_RASTER = 1,
    apFONT_TYPE_DEVICE = 2,
    apFONT_TYPE_TRUETYPE = 4
};

/// One face as the operating system lists it. Names are in the platform's narrow encoding.
struct apSystemFace
{
    std::string family;    ///< name of the family of at most four styles that the face belongs to: "DejaVu Sans"
    std::string full_name; ///< name of the face itself: "DejaVu Sans Bold Oblique"
    int weight = 400;      ///< 100 to 900
    int italic = 0;
    int character_set = 0; ///< number of a Windows character set: 0 Western, 2 symbols, 204 Cyrillic, ...
    int font_type = apFONT_TYPE_TRUETYPE;
    std::string file; ///< UTF-8; empty on Windows, where looking for it is left to apSystemFonts::find_face
    int face_index = 0;
};
