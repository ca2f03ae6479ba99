#pragma once

#include "utExport.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

/// Text of bytes, owned by value. Empty by default.
class utString
{
public:
    utString() = default;
    /// text may be null, which gives an empty string.
    utString(const char* text) : the_text(text ? text : "") {}
    utString(const char* text, int length) : the_text(text, static_cast<std::size_t>(length)) {}
    utString(std::string text) : the_text(std::move(text)) {}
    explicit utString(std::string_view text) : the_text(text) {}

    int length() const { return static_cast<int>(the_text.size()); }
    int empty() const { return the_text.empty(); }
    /// Ends with a zero byte; good until the string changes.
    const char* c_str() const { return the_text.c_str(); }
    std::string_view view() const { return the_text; }
    const std::string& str() const { return the_text; }

    /// index counts from 0 and is below the length.
    char operator[](int index) const { return the_text[static_cast<std::size_t>(index)]; }
    char& operator[](int index) { return the_text[static_cast<std::size_t>(index)]; }

    utString& operator+=(const utString& more) { return the_text += more.the_text, *this; }
    utString& operator+=(const char* more) { return the_text += more, *this; }
    utString& operator+=(char more) { return the_text += more, *this; }
    friend utString operator+(utString a, const utString& b) { return a += b; }
    friend utString operator+(utString a, const char* b) { return a += b; }
    friend utString operator+(const char* a, const utString& b) { return utString(a) += b; }

    /// Up to count characters from start on, fewer where the text ends first; none when start is past the end.
    utString substring(int start, int count) const
    {
        return start < length()
                   ? utString(view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count)))
                   : utString();
    }

    /// Equal but for the case of ASCII letters.
    UT_EXPORT int equal_case_blind(const utString& other) const;
    UT_EXPORT int equal_case_blind(const char* other) const;
    /// The same of the first count characters; a text that ends earlier is compared up to its end.
    UT_EXPORT int equal_case_blind(const utString& other, int count) const;

    std::size_t hash() const { return std::hash<std::string>()(the_text); }

    friend bool operator==(const utString& a, const utString& b) { return a.the_text == b.the_text; }
    friend bool operator==(const utString& a, const char* b) { return a.the_text == b; }
    /// By byte values.
    friend std::strong_ordering operator<=>(const utString& a, const utString& b) { return a.the_text <=> b.the_text; }

private:
    std::string the_text;
};

UT_EXPORT std::ostream& operator<<(std::ostream& os, const utString& text);

template <>
struct std::hash<utString>
{
    std::size_t operator()(const utString& text) const { return text.hash(); }
};
