#include "apNarrowText.h"

#include "apString.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

// The process's code page, of which the standard library's paths know nothing with some compilers.

int ap_decode_narrow(std::string_view text, std::string& utf8)
{
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // at most one for each byte
    const int count = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size);
    if (size > 0 && count == 0)
        return 0;
    wide.resize(static_cast<std::size_t>(count));
    const apString decoded = apString::from_wide(wide);
    if (decoded.valid())
        utf8 = decoded.utf8();
    return decoded.valid();
}

int ap_encode_narrow(const std::string& utf8, std::string& text)
{
    if (GetACP() == CP_UTF8 || utf8.empty())
    {
        text = utf8;
        return 1;
    }
    const std::wstring wide = apString::from_utf8(utf8).wide();
    const int size = static_cast<int>(wide.size());
    std::string narrow(4 * wide.size(), '\0');
    BOOL replaced = FALSE;
    const int count = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), size, narrow.data(),
                                          static_cast<int>(narrow.size()), nullptr, &replaced);
    if (count == 0 || replaced)
        return 0;
    narrow.resize(static_cast<std::size_t>(count));
    text = narrow;
    return 1;
}
