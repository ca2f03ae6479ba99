#include "apSystemFontHost.h"

#include "apFontCollection.h"

#include <windows.h>

namespace
{
struct Call
{
    const apSystemFonts::Callback* callback;
};

int CALLBACK face_found(const LOGFONTA* font, const TEXTMETRICA*, DWORD font_type, LPARAM data)
{
    // For outline fonts GDI hands over the longer record, which begins with the one that is declared.
    const auto* full = reinterpret_cast<const ENUMLOGFONTA*>(font);
    apSystemFace face;
    face.family = font->lfFaceName;
    face.full_name =
        font_type & TRUETYPE_FONTTYPE ? reinterpret_cast<const char*>(full->elfFullName) : font->lfFaceName;
    face.weight = static_cast<int>(font->lfWeight);
    face.italic = font->lfItalic != 0;
    face.character_set = font->lfCharSet;
    face.font_type = static_cast<int>(font_type);
    (*reinterpret_cast<const Call*>(data)->callback)(face);
    return 1;
}

class GdiListing : public apSystemFontHost::Listing
{
public:
    GdiListing() : the_context(CreateDCA("DISPLAY", nullptr, nullptr, nullptr)) {}
    ~GdiListing() override
    {
        if (the_context)
            DeleteDC(the_context);
    }
    void enumerate(const char* family, const apSystemFonts::Callback& callback) const override
    {
        const Call call{&callback};
        if (the_context)
            EnumFontFamiliesA(the_context, family, face_found, reinterpret_cast<LPARAM>(&call));
    }

private:
    HDC the_context;
};

// GDI always finds some font; only the one that was asked for counts.
bool is_face(HDC context, const std::string& full_name)
{
    const UINT bytes = GetOutlineTextMetricsA(context, 0, nullptr);
    if (!bytes)
        return false;
    std::vector<unsigned char> room(bytes);
    auto* metrics = reinterpret_cast<OUTLINETEXTMETRICA*>(room.data());
    if (!GetOutlineTextMetricsA(context, bytes, metrics))
        return false;
    // The record holds offsets to its texts in the place of pointers.
    const char* found =
        reinterpret_cast<const char*>(room.data()) + reinterpret_cast<std::size_t>(metrics->otmpFullName);
    return lstrcmpiA(found, full_name.c_str()) == 0;
}

bool read_table(HDC context, DWORD table, std::vector<unsigned char>& bytes)
{
    const DWORD size = GetFontData(context, table, 0, nullptr, 0);
    if (size == GDI_ERROR)
        return false;
    bytes.resize(size);
    return GetFontData(context, table, 0, bytes.data(), size) == size;
}

// A face of a collection is given with offsets that count from the start of the file, so the whole file is asked for.
// What is given of the face alone goes from its table directory to the end of the file.
bool read_face(HDC context, apFaceData& data)
{
    constexpr DWORD collection = 0x66637474; // "ttcf", low byte first
    const DWORD from_directory = GetFontData(context, 0, 0, nullptr, 0);
    if (from_directory == GDI_ERROR)
        return false;
    if (!read_table(context, collection, data.bytes) || data.bytes.size() < from_directory)
        return read_table(context, 0, data.bytes);
    data.face_index = ap_collection_face_index(data.bytes, data.bytes.size() - from_directory);
    return data.face_index >= 0;
}

// Fonts are made by the names of their families, which are short: the full name of a face may have 64 characters.
struct Search
{
    HDC context;
    const std::string& full_name;
    apFaceData& data;
    bool found = false;
};

bool load(Search& search, const LOGFONTA& description)
{
    HFONT font = CreateFontIndirectA(&description);
    HGDIOBJ before = SelectObject(search.context, font);
    search.found = is_face(search.context, search.full_name) && read_face(search.context, search.data);
    SelectObject(search.context, before);
    DeleteObject(font);
    return search.found;
}

int CALLBACK face_of_family(const LOGFONTA* font, const TEXTMETRICA*, DWORD font_type, LPARAM data)
{
    Search& search = *reinterpret_cast<Search*>(data);
    const auto* full = reinterpret_cast<const ENUMLOGFONTA*>(font);
    if (!(font_type & TRUETYPE_FONTTYPE) ||
        lstrcmpiA(reinterpret_cast<const char*>(full->elfFullName), search.full_name.c_str()) != 0)
        return 1;
    return !load(search, *font);
}

int CALLBACK family_found(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM data)
{
    Search& search = *reinterpret_cast<Search*>(data);
    EnumFontFamiliesA(search.context, font->lfFaceName, face_of_family, data);
    return !search.found;
}
}

apSystemFontHost::Listing* apSystemFontHost::open()
{
    return new GdiListing;
}

int apSystemFontHost::add_private(const apPathName& path)
{
    return AddFontResourceExW(path.wide().c_str(), FR_PRIVATE, nullptr) != 0;
}

int apSystemFontHost::remove_private(const apPathName& path)
{
    return RemoveFontResourceExW(path.wide().c_str(), FR_PRIVATE, nullptr) != 0;
}

int apSystemFontHost::find_face(const std::string& full_name, apFaceData& data)
{
    HDC context = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    apFaceData found;
    Search search{context, full_name, found};
    EnumFontFamiliesA(context, nullptr, family_found, reinterpret_cast<LPARAM>(&search));
    DeleteDC(context);
    if (search.found)
        data = std::move(found);
    return search.found;
}
