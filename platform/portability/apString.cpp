#include "apString.h"

#include "apNarrowText.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

namespace
{
// Wide characters are UTF-16 where they have two bytes, else UTF-32.
constexpr bool wide_is_utf16 = sizeof(wchar_t) == sizeof(char16_t);

template <bool utf16>
bool decode(std::string_view utf8, std::wstring& wide)
try
{
    if constexpr (utf16)
        utf8::utf8to16(utf8.begin(), utf8.end(), std::back_inserter(wide));
    else
        utf8::utf8to32(utf8.begin(), utf8.end(), std::back_inserter(wide));
    return true;
}
catch (const utf8::exception&)
{
    wide.clear();
    return false;
}

template <bool utf16>
bool encode(std::wstring_view wide, std::string& utf8)
try
{
    if constexpr (utf16)
        utf8::utf16to8(wide.begin(), wide.end(), std::back_inserter(utf8));
    else
        utf8::utf32to8(wide.begin(), wide.end(), std::back_inserter(utf8));
    return true;
}
catch (const utf8::exception&)
{
    utf8.clear();
    return false;
}

bool is_control(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
}

apString apString::from_utf8(std::string_view text)
{
    apString result;
    result.the_valid = decode<wide_is_utf16>(text, result.the_wide);
    if (result.the_valid)
        result.the_utf8 = text;
    return result;
}

apString apString::from_narrow(std::string_view text)
{
    if (std::string utf8; ap_decode_narrow(text, utf8))
        return from_utf8(utf8);
    apString undecodable;
    undecodable.the_valid = 0;
    return undecodable;
}

apString apString::from_wide(std::wstring_view text)
{
    apString result;
    result.the_valid = encode<wide_is_utf16>(text, result.the_utf8);
    if (result.the_valid)
        result.the_wide = text;
    return result;
}

int apString::narrow(std::string& text) const
{
    return the_valid && ap_encode_narrow(the_utf8, text);
}

std::string ap_quoted(std::string_view bytes)
{
    constexpr std::size_t longest = 60;
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "'";
    while (!bytes.empty() && text.size() <= longest)
    {
        const auto invalid = utf8::find_invalid(bytes.begin(), bytes.end());
        auto after = bytes.begin();
        const bool shown = after != invalid && !is_control(utf8::unchecked::next(after));
        if (!shown)
            after = bytes.begin() + 1;
        const unsigned char byte = static_cast<unsigned char>(bytes.front());
        if (shown)
            text.append(bytes.begin(), after);
        else
            text.append({'\\', 'x', digits[byte / 16], digits[byte % 16]});
        bytes.remove_prefix(static_cast<std::size_t>(after - bytes.begin()));
    }
    return text + (bytes.empty() ? "'" : "...'");
}

bool ap_equal_case_blind(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}
