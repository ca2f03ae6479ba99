#pragma once

#include "gwExport.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A place in a text, from line 1 and column 1 on; columns count bytes.
struct gwTextPlace
{
    int line = 1;
    int column = 1;
};

/// A text with its continued lines joined, which knows where each of its characters stands in the original.
///
/// A backslash at the end of a line joins the next line to it: the backslash and the line's end, which may be that of
/// any platform, are left out. A backslash that ends the text is left out too.
class GW_EXPORT gwJoinedText
{
public:
    /// Copies what it needs.
    explicit gwJoinedText(std::string_view original);

    const std::string& text() const { return the_text; }
    /// Place in the original of a character of text(); of its end when position is the size of text() or more.
    gwTextPlace place(std::size_t position) const;

private:
    struct Line
    {
        std::size_t start; // position in the joined text
        gwTextPlace place;
    };

    std::string the_text;
    std::vector<Line> the_lines; // those of the original, in order; one or more
};
