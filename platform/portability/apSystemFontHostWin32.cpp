#include "apSystemFontHost.h"

#include "apCharacterSet.h"
#include "apFile.h"
#include "apFontCollection.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <dwrite.h>

#include <memory>
#include <set>
#include <string_view>
#include <utility>

// The wide forms of the calls: the narrow ones cut names after 31 bytes, and know the code page's characters alone.
namespace
{
struct Release
{
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class T>
using Com = std::unique_ptr<T, Release>;

// The display's.
class DeviceContext
{
public:
    DeviceContext() : the_context(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr)) {}
    ~DeviceContext()
    {
        if (the_context)
            DeleteDC(the_context);
    }
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;
    operator HDC() const { return the_context; }

private:
    HDC the_context;
};

// One face as GDI gives it to a call.
struct Found
{
    const LOGFONTW& font;
    const wchar_t* full_name; // null for fonts without outlines
    int font_type;
    unsigned long code_pages; // as in apCharacterSet.h
};
using Receiver = std::function<bool(const Found&)>; // answers whether to go on

int CALLBACK hand_over(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD font_type, LPARAM data)
{
    // With @ begin variants of the same faces for writing downwards.
    if (font->lfFaceName[0] == L'@')
        return 1;
    // For outline fonts GDI hands over longer records, which begin with those that are declared.
    const bool outlines = font_type & TRUETYPE_FONTTYPE;
    const Found found{*font, outlines ? reinterpret_cast<const ENUMLOGFONTEXW*>(font)->elfFullName : nullptr,
                      static_cast<int>(font_type),
                      outlines ? reinterpret_cast<const NEWTEXTMETRICEXW*>(metrics)->ntmFontSig.fsCsb[0] : 0};
    return (*reinterpret_cast<const Receiver*>(data))(found);
}

// One call or more for each face of a family, or of all families where the name is empty: one for each of the character
// sets that it has.
void enumerate_faces(HDC context, const std::wstring& family, const Receiver& receiver)
{
    LOGFONTW wanted = {};
    wanted.lfCharSet = DEFAULT_CHARSET;
    if (!context || family.size() >= LF_FACESIZE)
        return;
    family.copy(wanted.lfFaceName, family.size());
    EnumFontFamiliesExW(context, &wanted, hand_over, reinterpret_cast<LPARAM>(&receiver), 0);
}

int character_set(const Found& found)
{
    if (found.font.lfCharSet == SYMBOL_CHARSET || !found.full_name)
        return found.font.lfCharSet;
    const int by_pages = ap_character_set(found.code_pages);
    return by_pages == apCHARACTER_SET_UNSPECIFIED ? int{ANSI_CHARSET} : by_pages;
}

bool same_name(const wchar_t* a, const wchar_t* b)
{
    return CompareStringOrdinal(a, -1, b, -1, TRUE) == CSTR_EQUAL;
}

class GdiListing : public apSystemFontHost::Listing
{
public:
    void enumerate(const char* family, const apSystemFonts::Callback& callback) const override
    {
        const std::wstring wanted = family ? apString::from_narrow(family).wide() : std::wstring();
        std::set<std::wstring> seen;
        enumerate_faces(the_context, wanted,
                        [&](const Found& found)
                        {
                            // GDI takes other names for some families too.
                            if (!wanted.empty() && !same_name(wanted.c_str(), found.font.lfFaceName))
                                return true;
                            const wchar_t* name = family && found.full_name ? found.full_name : found.font.lfFaceName;
                            apSystemFace face;
                            if (!seen.insert(name).second || !narrow(found.font.lfFaceName, face.family) ||
                                !narrow(found.full_name ? found.full_name : found.font.lfFaceName, face.full_name))
                                return true;
                            face.weight = static_cast<int>(found.font.lfWeight);
                            face.italic = found.font.lfItalic != 0;
                            face.character_set = character_set(found);
                            face.font_type = found.font_type;
                            callback(face);
                            return true;
                        });
    }

private:
    static bool narrow(const wchar_t* name, std::string& text) { return apString::from_wide(name).narrow(text); }

    DeviceContext the_context;
};

// A font as long as it is the one of a device context.
class SelectedFont
{
public:
    SelectedFont(HDC context, const LOGFONTW& description)
        : the_context(context), the_font(CreateFontIndirectW(&description)), the_former(SelectObject(context, the_font))
    {}
    ~SelectedFont()
    {
        SelectObject(the_context, the_former);
        DeleteObject(the_font);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC the_context;
    HFONT the_font;
    HGDIOBJ the_former;
};

// GDI always finds some font; only the one that was asked for counts.
bool is_face(HDC context, const std::wstring& full_name)
{
    const UINT bytes = GetOutlineTextMetricsW(context, 0, nullptr);
    if (!bytes)
        return false;
    std::vector<unsigned char> room(bytes);
    auto* metrics = reinterpret_cast<OUTLINETEXTMETRICW*>(room.data());
    if (!GetOutlineTextMetricsW(context, bytes, metrics))
        return false;
    // The record holds offsets to its texts in the place of pointers. What it calls the full name is the unique one,
    // which may tell the maker and the version too.
    return same_name(
        reinterpret_cast<const wchar_t*>(room.data() + reinterpret_cast<std::size_t>(metrics->otmpFaceName)),
        full_name.c_str());
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

template <class T>
T* ask(IUnknown* object, const GUID& interface_name)
{
    void* found = nullptr;
    return object && SUCCEEDED(object->QueryInterface(interface_name, &found)) ? static_cast<T*>(found) : nullptr;
}

std::wstring path_of(IDWriteFontFile& file)
{
    IDWriteFontFileLoader* any_loader = nullptr;
    const void* key = nullptr;
    UINT32 key_size = 0, length = 0;
    if (FAILED(file.GetLoader(&any_loader)) || FAILED(file.GetReferenceKey(&key, &key_size)))
        return {};
    const Com<IDWriteFontFileLoader> kept(any_loader);
    const Com<IDWriteLocalFontFileLoader> loader(
        ask<IDWriteLocalFontFileLoader>(any_loader, __uuidof(IDWriteLocalFontFileLoader)));
    if (!loader || FAILED(loader->GetFilePathLengthFromKey(key, key_size, &length)))
        return {};
    std::wstring path(length + 1, L'\0');
    if (FAILED(loader->GetFilePathFromKey(key, key_size, path.data(), length + 1)))
        return {};
    path.resize(length);
    // Wine names it as its kernel does.
    constexpr std::wstring_view kernel_prefix = L"\\??\\";
    return path.starts_with(kernel_prefix) ? path.substr(kernel_prefix.size()) : path;
}

// Where the font of the context is on the disk, which GDI does not tell and DirectWrite does.
bool find_file(HDC context, apFaceData& data)
{
    IUnknown* made = nullptr;
    if (FAILED(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory), &made)))
        return false;
    const Com<IDWriteFactory> factory(static_cast<IDWriteFactory*>(made));
    IDWriteGdiInterop* gdi = nullptr;
    if (FAILED(factory->GetGdiInterop(&gdi)))
        return false;
    const Com<IDWriteGdiInterop> kept_gdi(gdi);
    IDWriteFontFace* face = nullptr;
    if (FAILED(gdi->CreateFontFaceFromHdc(context, &face)))
        return false;
    const Com<IDWriteFontFace> kept_face(face);
    IDWriteFontFile* file = nullptr;
    UINT32 count = 1;
    if (FAILED(face->GetFiles(&count, &file)) || !file)
        return false;
    const Com<IDWriteFontFile> kept_file(file);
    const apPathName path(path_of(*file).c_str());
    if (!ap_file_exists(path))
        return false;
    data.file = path.utf8();
    data.face_index = static_cast<int>(face->GetIndex());
    return true;
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
    const DeviceContext context;
    const std::wstring wanted = apString::from_narrow(full_name).wide();
    if (wanted.empty())
        return 0;
    // Fonts are made by the names of their families, which are short: the full name of a face may have 64 characters.
    bool done = false;
    std::set<std::wstring> families;
    enumerate_faces(context, {},
                    [&](const Found& found)
                    {
                        if (found.full_name)
                            families.insert(found.font.lfFaceName);
                        return true;
                    });
    for (const std::wstring& family : families)
        enumerate_faces(context, family,
                        [&](const Found& found)
                        {
                            if (!found.full_name || !same_name(found.full_name, wanted.c_str()))
                                return true;
                            const SelectedFont font(context, found.font);
                            apFaceData face;
                            done = is_face(context, wanted) && (find_file(context, face) || read_face(context, face));
                            if (done)
                                data = std::move(face);
                            return !done;
                        });
    return done;
}
