#include "apNarrowText.h"

#include <exception>
#include <filesystem>

// Paths carry the standard library's conversion from and to the narrow encoding.

int ap_decode_narrow(std::string_view text, std::string& utf8)
try
{
    const std::u8string decoded = std::filesystem::path(text, std::filesystem::path::native_format).u8string();
    utf8.assign(decoded.begin(), decoded.end());
    return 1;
}
catch (const std::exception&)
{
    return 0;
}

int ap_encode_narrow(const std::string& utf8, std::string& text)
try
{
    const std::u8string decoded(utf8.begin(), utf8.end());
    text = std::filesystem::path(decoded, std::filesystem::path::native_format).string();
    return 1;
}
catch (const std::exception&)
{
    return 0;
}
