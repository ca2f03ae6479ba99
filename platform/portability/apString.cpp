#include "apString.h"

#include <exception>
#include <filesystem>

namespace
{
// The standard library's paths carry its only conversions between the three encodings that are not deprecated. They
// throw on undecodable text.
using converter = std::filesystem::path;

std::u8string_view as_utf8(std::string_view text)
{
    return {reinterpret_cast<const char8_t*>(text.data()), text.size()};
}

template <class Source>
int decode(const Source& source, std::string& utf8, std::wstring& wide)
{
    try
    {
        const converter text(source, converter::native_format);
        std::wstring decoded = text.wstring();
        // Encoded again from the decoded form: some libraries pass narrow text through unchecked.
        const std::u8string encoded = converter(decoded, converter::native_format).u8string();
        utf8.assign(encoded.begin(), encoded.end());
        wide = std::move(decoded);
        return 1;
    }
    catch (const std::exception&)
    {
        return 0;
    }
}
}

apString apString::from_utf8(std::string_view text)
{
    apString result;
    result.the_valid = decode(as_utf8(text), result.the_utf8, result.the_wide);
    return result;
}

apString apString::from_narrow(std::string_view text)
{
    apString result;
    result.the_valid = decode(text, result.the_utf8, result.the_wide);
    return result;
}

apString apString::from_wide(std::wstring_view text)
{
    apString result;
    result.the_valid = decode(text, result.the_utf8, result.the_wide);
    return result;
}

int apString::narrow(std::string& text) const
{
    if (!the_valid)
        return 0;
    try
    {
        text = converter(the_wide, converter::native_format).string();
        return 1;
    }
    catch (const std::exception&)
    {
        return 0;
    }
}
