#pragma once

#include "grExport.h"
#include "utString.h"

#include <memory>

/// Splits a text into words and single characters.
///
/// A word is a run of token characters: ASCII letters, digits and the extra token characters. Any other character that
/// is no separator is a token by itself. A separator is never part of a token, even when it is a token character too.
class GR_EXPORT grTokeniser
{
public:
    /// Copies both. separators may be null: blanks are then tokens too. The extra token characters are "_./".
    grTokeniser(const char* text, const char* separators);
    ~grTokeniser();

    /// The next token, good until the next call, or null at the end of the text.
    const char* next_token();

    /// Steps back over the token that the last call of next_token answered, so that it is answered again. Does nothing
    /// when that call answered null, or when the token has been stepped over already.
    void go_back_one();

    /// Where the token that the last call of next_token answered starts in the text, from 0; -1 when that was null.
    int token_start() const { return the_token_start; }

    /// Number of tokens answered, less those stepped back over.
    int token_number() const { return the_token_number; }

    /// Adds to the extra token characters.
    void add_valid_chars(const char* characters) { the_extra_chars += characters; }

protected:
    grTokeniser(const grTokeniser&) = delete;
    grTokeniser& operator=(const grTokeniser&) = delete;

private:
    bool is_separator(char character) const;
    int is_token_char(char character) const;

    utString the_text;
    utString the_separators;
    utString the_extra_chars;
    std::unique_ptr<char[]> the_token; // room for the whole text
    int the_position = 0;
    int the_token_start = -1; // where the last token started; -1 when there is none to step back over
    int the_token_number = 0;
};
