#pragma once

#include "apExport.h"
#include "apString.h"

#include <string>
#include <string_view>

/// Path of one file, by value.
class AP_EXPORT apPathName
{
public:
    /// An empty path.
    apPathName() = default;
    /// text is UTF-8. Undecodable text makes a path that valid() refuses and that names no file.
    apPathName(const char* text) : the_text(apString::from_utf8(text)) {}
    apPathName(std::string_view text) : the_text(apString::from_utf8(text)) {}
    apPathName(const std::string& text) : the_text(apString::from_utf8(text)) {}
    apPathName(const wchar_t* text) : the_text(apString::from_wide(text)) {}
    explicit apPathName(const apString& text) : the_text(text) {}

    int valid() const { return the_text.valid(); }
    int empty() const { return the_text.utf8().empty(); }
    const std::string& utf8() const { return the_text.utf8(); }
    const std::wstring& wide() const { return the_text.wide(); }
    /// In the platform's narrow encoding, as apString::narrow.
    int narrow(std::string& text) const { return the_text.narrow(text); }

    int is_absolute() const;
    /// The path of name inside this folder; name as it is when it is absolute or this path is empty.
    apPathName operator/(const apPathName& name) const;

    friend bool operator==(const apPathName& a, const apPathName& b) { return a.utf8() == b.utf8(); }

private:
    apString the_text;
};
