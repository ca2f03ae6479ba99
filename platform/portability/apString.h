#pragma once

#include "apExport.h"

#include <string>
#include <string_view>

/// Text that can be read as UTF-8, in the platform's narrow encoding, or as wide characters.
///
/// Bytes or wide characters that cannot be decoded give no valid string: valid() is 0 and every text is empty. Off
/// Windows the narrow encoding is UTF-8.
class AP_EXPORT apString
{
public:
    /// An empty, valid string.
    apString() = default;

    static apString from_utf8(std::string_view text);
    static apString from_narrow(std::string_view text);
    static apString from_wide(std::wstring_view text);

    int valid() const { return the_valid; }

    const std::string& utf8() const { return the_utf8; }
    const std::wstring& wide() const { return the_wide; }
    /// Sets text and answers 1, or answers 0 and leaves text alone when there is no valid string, or the narrow
    /// encoding lacks one of its characters.
    int narrow(std::string& text) const;

private:
    std::string the_utf8;
    std::wstring the_wide;
    int the_valid = 1;
};

/// Bytes of a file in quotation marks, for a message: what is no UTF-8 and what would act on a terminal is written as
/// \xNN, and what is longer than about 60 bytes is cut off.
AP_EXPORT std::string ap_quoted(std::string_view bytes);

/// Whether texts are the same but for the case of ASCII letters, whatever the process's locale.
AP_EXPORT bool ap_equal_case_blind(std::string_view a, std::string_view b);
