#include "apString.h"

#include <exception>
#include <filesystem>
#include <locale>
#include <type_traits>

namespace
{
// UTF-16 where wide characters have two bytes, else UTF-32.
using wide_unit = std::conditional_t<sizeof(wchar_t) == sizeof(char16_t), char16_t, char32_t>;
using converter = std::codecvt<wide_unit, char8_t, std::mbstate_t>;

const converter& utf8_converter()
{
    return std::use_facet<converter>(std::locale::classic());
}

// Some libraries convert lone surrogates, which stand for no character: ED A0 80 to ED BF BF in UTF-8.
template <class Text>
bool has_surrogate(const Text& utf8)
{
    for (std::size_t i = 1; i < utf8.size(); ++i)
        if (static_cast<unsigned char>(utf8[i - 1]) == 0xED && static_cast<unsigned char>(utf8[i]) >= 0xA0)
            return true;
    return false;
}

int decode(std::u8string_view text, std::wstring& wide)
{
    // No encoding has more units than UTF-8 has bytes.
    std::basic_string<wide_unit> units(text.size(), 0);
    std::mbstate_t state{};
    const char8_t* text_end = text.data();
    wide_unit* units_end = units.data();
    const auto result = utf8_converter().in(state, text.data(), text.data() + text.size(), text_end, units.data(),
                                            units.data() + units.size(), units_end);
    if (result != std::codecvt_base::ok || text_end != text.data() + text.size() || has_surrogate(text))
        return 0;
    wide.assign(units.data(), units_end);
    return 1;
}

int encode(std::wstring_view wide, std::string& utf8)
{
    constexpr std::size_t most_bytes_per_unit = 4;
    const std::basic_string<wide_unit> units(wide.begin(), wide.end());
    std::u8string text(units.size() * most_bytes_per_unit, 0);
    std::mbstate_t state{};
    const wide_unit* units_end = units.data();
    char8_t* text_end = text.data();
    const auto result = utf8_converter().out(state, units.data(), units.data() + units.size(), units_end, text.data(),
                                             text.data() + text.size(), text_end);
    if (result != std::codecvt_base::ok || units_end != units.data() + units.size())
        return 0;
    text.resize(static_cast<std::size_t>(text_end - text.data()));
    if (has_surrogate(text))
        return 0;
    utf8.assign(text.begin(), text.end());
    return 1;
}
}

apString apString::from_utf8(std::string_view text)
{
    apString result;
    const std::u8string bytes(text.begin(), text.end());
    result.the_valid = decode(bytes, result.the_wide);
    if (result.the_valid)
        result.the_utf8 = text;
    return result;
}

apString apString::from_narrow(std::string_view text)
{
    try
    {
        // Paths carry the standard library's conversion from and to the narrow encoding of the platform.
        const std::u8string utf8 = std::filesystem::path(text, std::filesystem::path::native_format).u8string();
        return from_utf8(std::string(utf8.begin(), utf8.end()));
    }
    catch (const std::exception&)
    {
        apString undecodable;
        undecodable.the_valid = 0;
        return undecodable;
    }
}

apString apString::from_wide(std::wstring_view text)
{
    apString result;
    result.the_valid = encode(text, result.the_utf8);
    if (result.the_valid)
        result.the_wide = text;
    return result;
}

int apString::narrow(std::string& text) const
{
    if (!the_valid)
        return 0;
    try
    {
        const std::u8string utf8(the_utf8.begin(), the_utf8.end());
        text = std::filesystem::path(utf8, std::filesystem::path::native_format).string();
        return 1;
    }
    catch (const std::exception&)
    {
        return 0;
    }
}
