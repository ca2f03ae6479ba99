#pragma once

#include "ltAttributeSet.h"

#include <vector>

/// Text whose parts look differently: runs one after another, each with its attributes.
struct ltString
{
    /// A piece of the text whose letters all look alike.
    struct Run
    {
        utString text; ///< UTF-8
        ltAttributeSet attributes;

        friend bool operator==(const Run& a, const Run& b) { return a.text == b.text && a.attributes == b.attributes; }
    };

    std::vector<Run> runs;

    /// The text of all runs.
    utString text() const
    {
        utString all;
        for (const Run& run : runs)
            all += run.text;
        return all;
    }
    friend bool operator==(const ltString& a, const ltString& b) { return a.runs == b.runs; }
};
