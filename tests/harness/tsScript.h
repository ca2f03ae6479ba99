#pragma once

#include <string>
#include <vector>

/// Words of a line, between blanks.
using tsWords = std::vector<std::string>;
tsWords ts_words(const std::string& line);
/// The parts of a text between separators, without the blanks around them; no empty ones.
std::vector<std::string> ts_parts(const std::string& text, const std::string& separator);

/// The value of an arithmetic expression such as 4.01*10^(-2/3) or asin(40/401/0.4); throws std::runtime_error for what
/// is none. _pi is the number.
double ts_value(const std::string& expression);

/// Whether a list of records is what was expected: word by word the same, or numbers that differ by no more than a
/// billionth (of themselves, if they are above 1). An expected number may be an expression; "*" stands for any word,
/// "<5" for any smaller number, ">5" for any larger one, a last word "..." for all that follow in its record, and a
/// record "..." for any number of records.
bool ts_matches(const std::vector<std::string>& expected, const std::vector<std::string>& found);

/// One step of a script: commands, and what they are to record. A step that expects nothing checks nothing.
struct tsStep
{
    int line = 0;
    std::string commands; // separated by ";"
    bool checked = false;
    std::vector<std::string> expected;
};

/// One test of a script file, with its scene's steps before its own.
struct tsScript
{
    std::string file; // without folder and ending
    std::string name; // letters, digits and "_"
    std::vector<tsStep> steps;
};

/// The tests of all files *.script in a folder. A file reads
///
///     # a comment
///     scene NAME [: OTHER]          what tests begin with, itself after that of another scene
///         COMMAND; COMMAND
///     test NAME [: SCENE]
///     * VALUE VALUE                 the test is played with each of them for $0
///     | VALUE | VALUE               any number of rows: the test is played with each, $1 and $2 being the values; "-"
///                                   is an empty one
///         COMMAND; COMMAND -> RECORD; RECORD
///             -> RECORD             goes on
///
/// Throws std::runtime_error with the place of what cannot be read.
std::vector<tsScript> ts_read_scripts(const std::string& folder);
