#include "apNumber.h"

namespace
{
// The longest double in fixed notation: sign, 309 digits, point, 17 decimals.
constexpr int longest_number = 336;
}

std::string ap_number_text(double value)
{
    char text[longest_number];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return std::string(text, result.ptr);
}

std::string ap_number_text(double value, int decimals)
{
    char text[longest_number];
    const std::to_chars_result result =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
    return std::string(text, result.ptr);
}
