#pragma once

#include "apExport.h"

#include <charconv>
#include <string>
#include <system_error>

/// Numbers in neutral format: "." is the decimal mark whatever the process's locale.

/// Reads one number at first (leading blanks and one "+" allowed) and answers the end of what it read, or null when
/// no number stands there or it does not fit; value is then as it was. Number is double, float or an integer type.
template <class Number>
const char* ap_scan_number(const char* first, const char* last, Number& value)
{
    while (first != last && (*first == ' ' || (*first >= '\t' && *first <= '\r')))
        ++first;
    if (first != last && *first == '+')
    {
        ++first;
        // A sign may stand once: what follows must not bring its own.
        if (first != last && *first == '-')
            return nullptr;
    }
    Number read{};
    const std::from_chars_result result = std::from_chars(first, last, read);
    if (result.ec != std::errc())
        return nullptr;
    value = read;
    return result.ptr;
}

/// The shortest text that reads back as exactly the same number.
AP_EXPORT std::string ap_number_text(double value);
/// With that many digits after the point (0 to 17).
AP_EXPORT std::string ap_number_text(double value, int decimals);
