#pragma once

#include "gwExport.h"
#include "gwJoinedText.h"
#include "utString.h"

#include <vector>

/// What a resource text sets, in its order, with places for whoever complains about it.
///
/// A text has one "key: value" per line. Blanks around key and value are dropped, empty lines and lines that start with
/// "!" or "#" are passed over, and a backslash at the end of a line joins the next one to it. Line ends may be those of
/// any platform, and a byte order mark of UTF-8 may come first.
class GW_EXPORT gwResourceText
{
public:
    /// One "key: value", with the positions of both in the text, in bytes from 0.
    struct Setting
    {
        utString key;   ///< without blanks and control characters
        utString value; ///< may be empty; lines are joined
        std::size_t key_position = 0;
        std::size_t value_position = 0;
    };

    explicit gwResourceText(std::string_view text);

    /// Those before the first bad line.
    const std::vector<Setting>& settings() const { return the_settings; }
    /// The first line that has no colon, or before it no key or one with blanks or control characters inside; 0 when
    /// there is none.
    int bad_line() const { return the_bad_line; }
    /// Place of a key or of a character of a value by its position, such as value_position + 3.
    gwTextPlace place(std::size_t position) const { return the_joined.place(position); }

private:
    bool read_line(std::string_view line, std::size_t position);

    gwJoinedText the_joined;
    std::vector<Setting> the_settings;
    int the_bad_line = 0;
};
