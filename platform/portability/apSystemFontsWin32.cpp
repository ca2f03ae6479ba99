#include "apSystemFontHost.h"

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
int is_face(HDC context, const std::string& full_name)
{
    const UINT bytes = GetOutlineTextMetricsA(context, 0, nullptr);
    if (!bytes)
        return 0;
    std::vector<unsigned char> room(bytes);
    auto* metrics = reinterpret_cast<OUTLINETEXTMETRICA*>(room.data());
    if (!GetOutlineTextMetricsA(context, bytes, metrics))
        return 0;
    // The record holds offsets to its texts in the place of pointers.
    const char* found =
        reinterpret_cast<const char*>(room.data()) + reinterpret_cast<std::size_t>(metrics->otmpFullName);
    return lstrcmpiA(found, full_name.c_str()) == 0;
}

int read_bytes(HDC context, std::vector<unsigned char>& bytes)
{
    // A font of a collection comes as the file's only one.
    const DWORD size = GetFontData(context, 0, 0, nullptr, 0);
    if (size == GDI_ERROR)
        return 0;
    bytes.resize(size);
    return GetFontData(context, 0, 0, bytes.data(), size) == size;
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
    if (full_name.size() >= LF_FACESIZE)
        return 0;
    HDC context = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    HFONT font = CreateFontA(0, 0, 0, 0, FW_DONTCARE, 0, 0, 0, DEFAULT_CHARSET, OUT_TT_ONLY_PRECIS, CLIP_DEFAULT_PRECIS,
                             DEFAULT_QUALITY, DEFAULT_PITCH, full_name.c_str());
    HGDIOBJ before = SelectObject(context, font);
    apFaceData found;
    const int ok = is_face(context, full_name) && read_bytes(context, found.bytes);
    SelectObject(context, before);
    DeleteObject(font);
    DeleteDC(context);
    if (ok)
        data = std::move(found);
    return ok;
}
