#pragma once

#include "grOutlineFontStyle.h"
#include "ltFontType.h"

#include <fstream>
#include <string>
#include <string_view>

/// Reads the families of a font list one after another.
class grOutlineFontListFile
{
public:
    /// A family as its line names it, with the stems of its files.
    struct Family
    {
        ltFontType type{};
        int language = 0;
        utString name;
        grOutlineFontStyles stems;
    };

    explicit grOutlineFontListFile(const utString& file);

    /// Sets family to the next one; false at the end of the file and at the first thing that is wrong.
    bool next(Family& family);
    /// Whether all of the file was read.
    bool read_well() const { return the_is_open && the_bad_line < 0 && !the_stream.bad(); }
    /// Of the bad line, counted from 1; -1 when there is none.
    int bad_line() const { return the_bad_line; }

    /// Takes the text before the first comma, without blanks around it, and the comma off rest; false without a comma.
    static bool read_to_comma(std::string_view& rest, utString& text);
    /// Without leading and trailing blanks and tabs.
    static utString trimmed(std::string_view text);

private:
    std::ifstream the_stream;
    bool the_is_open;
    int the_line = 0;
    int the_bad_line = -1;
    std::string the_text;
};
