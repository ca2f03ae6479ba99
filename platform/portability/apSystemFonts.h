#pragma once

#include "apExport.h"
#include "apPathName.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

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
    std::string file; ///< UTF-8; empty where the system names no file
    int face_index = 0;
};

/// Where the outlines of a face are: a file, or its bytes.
struct apFaceData
{
    std::string file; ///< UTF-8; empty when the bytes are given
    int face_index = 0;
    std::vector<unsigned char> bytes;
};

/// The fonts that the operating system offers to this process, as they are when the object is made.
///
/// On Windows these are the system's own calls; elsewhere fontconfig's list, with weights on the scale from 100 to 900
/// and the character set derived from the code pages that the font claims to serve.
class AP_EXPORT apSystemFonts
{
public:
    using Callback = std::function<void(const apSystemFace&)>;

    apSystemFonts();
    ~apSystemFonts();
    apSystemFonts(const apSystemFonts&) = delete;
    apSystemFonts& operator=(const apSystemFonts&) = delete;

    /// Calls back for one face of every family when family is null, else for every face of that family.
    void enumerate(const char* family, const Callback& callback) const;

    /// Offers the fonts of a file to this process alone; listings made from now on contain them. Answers 0 when the
    /// file holds no font. A file that is added twice must be removed twice.
    static int add_private(const apPathName& file);

    /// Takes a file back that add_private took; 0 when it is not there.
    static int remove_private(const apPathName& file);

    /// Where the face of a full name is, whatever the case of its letters; 0 with data untouched when there is none.
    static int find_face(const std::string& full_name, apFaceData& data);

private:
    struct List;
    std::unique_ptr<List> the_list;
};

/// Replaces the list of the operating system's faces by a fixed table for the life of the object; private fonts are not
/// in it. Overrides nest and must be destroyed in the reverse order of their construction.
class AP_EXPORT apSystemFontsOverride
{
public:
    explicit apSystemFontsOverride(std::vector<apSystemFace> faces);
    ~apSystemFontsOverride();
    apSystemFontsOverride(const apSystemFontsOverride&) = delete;
    apSystemFontsOverride& operator=(const apSystemFontsOverride&) = delete;

    const std::vector<apSystemFace>& faces() const { return the_faces; }

    /// The override in force, or null.
    static const apSystemFontsOverride* current();

private:
    std::vector<apSystemFace> the_faces;
    apSystemFontsOverride* the_previous;
};
