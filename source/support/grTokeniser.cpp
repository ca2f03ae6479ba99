#include "grTokeniser.h"

#include <string_view>

namespace
{
// Not isalnum: its answer depends on the locale and is undefined for negative values.
bool is_letter_or_digit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool contains(const utString& characters, char c)
{
    return characters.view().find(c) != std::string_view::npos;
}
}

grTokeniser::grTokeniser(const char* text, const char* separators)
    : the_text(text), the_separators(separators), the_extra_chars("_./"),
      the_token(std::make_unique<char[]>(the_text.str().size() + 1))
{}

grTokeniser::~grTokeniser() = default;

const char* grTokeniser::next_token()
{
    const int end = the_text.length();
    while (the_position < end && is_separator(the_text[the_position]))
        ++the_position;
    if (the_position >= end)
    {
        the_token_start = -1;
        return nullptr;
    }

    the_token_start = the_position;
    int length = 0;
    const int is_word = is_token_char(the_text[the_position]);
    do
        the_token[static_cast<std::size_t>(length++)] = the_text[the_position++];
    while (is_word && the_position < end && is_token_char(the_text[the_position]));
    the_token[static_cast<std::size_t>(length)] = '\0';
    ++the_token_number;
    return the_token.get();
}

void grTokeniser::go_back_one()
{
    if (the_token_start < 0)
        return;
    the_position = the_token_start;
    the_token_start = -1;
    --the_token_number;
}

bool grTokeniser::is_separator(char character) const
{
    return contains(the_separators, character);
}

int grTokeniser::is_token_char(char character) const
{
    return (is_letter_or_digit(character) || contains(the_extra_chars, character)) && !is_separator(character);
}
