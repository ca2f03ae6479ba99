#include "apSystemFontHost.h"

#include "apCharacterSet.h"
#include "apFile.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <strings.h>
#include <tuple>

namespace
{
struct Unreference
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};
using Config = std::unique_ptr<FcConfig, Unreference>;

std::string text(const FcPattern* pattern, const char* object, int i)
{
    FcChar8* found = nullptr;
    if (FcPatternGetString(pattern, object, i, &found) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(found);
}

// Fonts may carry several names: the typographic ones come before those that group four styles at most. Of these, and
// so the last one, applications know the English form.
std::string name(const FcPattern* pattern, const char* object, const char* language_object)
{
    std::string found = text(pattern, object, 0);
    for (int i = 0;; ++i)
    {
        const std::string other = text(pattern, object, i);
        if (other.empty())
            return found;
        if (text(pattern, language_object, i).starts_with("en"))
            found = other;
    }
}

int number(const FcPattern* pattern, const char* object, int otherwise)
{
    int found = otherwise;
    FcPatternGetInteger(pattern, object, 0, &found);
    return found;
}

// On the scale from 100 to 900. Variable fonts have a range, which is no number and leaves 400.
int weight(const FcPattern* pattern)
{
    double found = FC_WEIGHT_REGULAR;
    FcPatternGetDouble(pattern, FC_WEIGHT, 0, &found);
    return static_cast<int>(std::lround(FcWeightToOpenTypeDouble(found)));
}

FT_Library free_type()
{
    static FT_Library library = nullptr;
    if (!library && FT_Init_FreeType(&library) != 0)
        library = nullptr;
    return library;
}

constexpr int western = 0, symbol = 2;

int character_set(const std::string& file, int index)
{
    FT_Face face = nullptr;
    if (!free_type() || FT_New_Face(free_type(), file.c_str(), index, &face) != 0)
        return apCHARACTER_SET_UNSPECIFIED;
    int found = apCHARACTER_SET_UNSPECIFIED;
    if (const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2)))
        found = ap_character_set(os2->ulCodePageRange1);
    // Old fonts claim no pages.
    if (found == apCHARACTER_SET_UNSPECIFIED)
        found = FT_Select_Charmap(face, FT_ENCODING_MS_SYMBOL) == 0 ? symbol : western;
    FT_Done_Face(face);
    return found;
}

// Faces without their character sets, which cost opening the font.
std::vector<apSystemFace> list_faces(FcConfig* config)
{
    const std::unique_ptr<FcPattern, Unreference> any(FcPatternCreate());
    const std::unique_ptr<FcObjectSet, Unreference> objects(
        FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_FULLNAME, FC_FULLNAMELANG, FC_WEIGHT, FC_SLANT, FC_FILE, FC_INDEX,
                         FC_FONTFORMAT, FC_VARIABLE, static_cast<char*>(nullptr)));
    const std::unique_ptr<FcFontSet, Unreference> fonts(FcFontList(config, any.get(), objects.get()));
    std::vector<apSystemFace> faces;
    if (!fonts)
        return faces;
    for (int i = 0; i < fonts->nfont; ++i)
    {
        const FcPattern* pattern = fonts->fonts[i];
        FcBool variable = FcFalse;
        // A variable font is listed for itself, without a style, and once more for each of its named styles.
        if (FcPatternGetBool(pattern, FC_VARIABLE, 0, &variable) == FcResultMatch && variable)
            continue;
        apSystemFace face;
        face.family = name(pattern, FC_FAMILY, FC_FAMILYLANG);
        face.full_name = name(pattern, FC_FULLNAME, FC_FULLNAMELANG);
        face.weight = weight(pattern);
        face.italic = number(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
        face.font_type = text(pattern, FC_FONTFORMAT, 0) == "TrueType" ? apFONT_TYPE_TRUETYPE : apFONT_TYPE_DEVICE;
        face.file = text(pattern, FC_FILE, 0);
        face.face_index = number(pattern, FC_INDEX, 0);
        if (!face.family.empty() && !face.full_name.empty())
            faces.push_back(std::move(face));
    }
    return faces;
}

class FontconfigListing : public apSystemFontHost::Listing
{
public:
    explicit FontconfigListing(std::vector<apSystemFace> faces) : the_faces(std::move(faces))
    {
        for (apSystemFace& face : the_faces)
            face.character_set = face.font_type == apFONT_TYPE_TRUETYPE ? ::character_set(face.file, face.face_index)
                                                                        : apCHARACTER_SET_UNSPECIFIED;
        // fontconfig has no order. A TrueType face speaks for its family, where other formats of it are there too.
        std::sort(the_faces.begin(), the_faces.end(),
                  [](const apSystemFace& a, const apSystemFace& b)
                  {
                      return std::tie(a.family, b.font_type, a.full_name, a.file, a.face_index) <
                             std::tie(b.family, a.font_type, b.full_name, b.file, b.face_index);
                  });
    }

    void enumerate(const char* family, const apSystemFonts::Callback& callback) const override
    {
        const std::string* last = nullptr;
        for (const apSystemFace& face : the_faces)
        {
            if (family ? face.family == family : !last || face.family != *last)
                callback(face);
            last = &face.family;
        }
    }

private:
    std::vector<apSystemFace> the_faces;
};

// fontconfig answers yes to files that hold no font.
bool add_file(FcConfig* config, const std::string& file)
{
    const auto count = [&]
    {
        const FcFontSet* fonts = FcConfigGetFonts(config, FcSetApplication);
        return fonts ? fonts->nfont : 0;
    };
    const int before = count();
    return FcConfigAppFontAddFile(config, reinterpret_cast<const FcChar8*>(file.c_str())) && count() > before;
}

// The private fonts of this process, and what was last known of all fonts. No object of fontconfig is kept: it hides
// what it points to, so that memory checkers would take it for lost at the end of the process.
class Knowledge
{
public:
    // Kept to the end: fonts may live in static objects.
    static Knowledge& get()
    {
        static Knowledge* const knowledge = new Knowledge;
        return *knowledge;
    }

    // All faces as they are now.
    const std::vector<apSystemFace>& read_faces()
    {
        the_faces.clear();
        if (const Config config(FcInitLoadConfigAndFonts()); config)
        {
            for (const std::string& file : std::set<std::string>(the_private_files.begin(), the_private_files.end()))
                add_file(config.get(), file);
            the_faces = list_faces(config.get());
        }
        return the_faces;
    }

    // Null when there is none. Fonts that came after the last reading are found by reading again.
    const apSystemFace* find(const std::string& full_name)
    {
        const apSystemFace* found = find_known(full_name);
        if (found && ap_file_exists(apPathName(found->file)))
            return found;
        read_faces();
        return find_known(full_name);
    }

    bool add(const std::string& file)
    {
        const Config empty(FcConfigCreate());
        if (!empty || !add_file(empty.get(), file))
            return false;
        the_private_files.push_back(file);
        the_faces.clear();
        return true;
    }

    bool remove(const std::string& file)
    {
        const auto found = std::find(the_private_files.begin(), the_private_files.end(), file);
        if (found == the_private_files.end())
            return false;
        the_private_files.erase(found);
        the_faces.clear();
        return true;
    }

private:
    Knowledge() = default;

    const apSystemFace* find_known(const std::string& full_name) const
    {
        const apSystemFace* best = nullptr;
        for (const apSystemFace& face : the_faces)
        {
            if (strcasecmp(face.full_name.c_str(), full_name.c_str()) != 0)
                continue;
            // The same name may belong to several formats of one font; the file's name settles what is left.
            if (!best || std::make_tuple(-face.font_type, face.file) < std::make_tuple(-best->font_type, best->file))
                best = &face;
        }
        return best;
    }

    std::vector<apSystemFace> the_faces;        // as last read; empty when they have changed
    std::vector<std::string> the_private_files; // as often as they were added
};
}

apSystemFontHost::Listing* apSystemFontHost::open()
{
    return new FontconfigListing(Knowledge::get().read_faces());
}

int apSystemFontHost::add_private(const apPathName& path)
{
    return ap_file_exists(path) && Knowledge::get().add(path.utf8());
}

int apSystemFontHost::remove_private(const apPathName& path)
{
    return Knowledge::get().remove(path.utf8());
}

int apSystemFontHost::find_face(const std::string& full_name, apFaceData& data)
{
    const apSystemFace* face = Knowledge::get().find(full_name);
    if (!face)
        return 0;
    data = apFaceData{face->file, face->face_index, {}};
    return 1;
}
