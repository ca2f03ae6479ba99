#include "grTokeniser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using Tokens = std::vector<std::string>;

Tokens all_tokens(grTokeniser& tokeniser)
{
    Tokens tokens;
    while (const char* token = tokeniser.next_token())
        tokens.push_back(token);
    return tokens;
}

Tokens all_tokens(const char* text, const char* separators)
{
    grTokeniser tokeniser(text, separators);
    return all_tokens(tokeniser);
}

const struct
{
    const char* name;
    const char* text;
    const char* separators;
    Tokens expected;
} token_cases[] = {
    {"words between separators", "zoom pan\treset", " ,\t", {"zoom", "pan", "reset"}},
    {"separators at both ends and in rows", " ,zoom, \t,pan ,", " ,\t", {"zoom", "pan"}},
    {"punctuation stands alone", "<a>b:(c)", " ", {"<", "a", ">", "b", ":", "(", "c", ")"}},
    {"point, underscore and slash join", "a/b.c_1", " ", {"a/b.c_1"}},
    {"signs do not join", "0.5,-1", ",", {"0.5", "-", "1"}},
    {"a line end is a token", "a\nb", " ", {"a", "\n", "b"}},
    {"a separator is never part of a word", "a.b", ".", {"a", "b"}},
    {"without separators blanks are tokens", "a b", nullptr, {"a", " ", "b"}},
    {"bytes above ASCII are no letters", "a\xe9z", " ", {"a", "\xe9", "z"}},
    {"nothing but separators", "  ", " ", {}},
    {"empty text", "", " ", {}},
};
}

TEST(grTokeniser, splits_texts_into_words_and_single_characters)
{
    for (const auto& c : token_cases)
        EXPECT_EQ(all_tokens(c.text, c.separators), c.expected) << c.name;
}

TEST(grTokeniser, counts_tokens_and_answers_one_again_after_a_step_back)
{
    grTokeniser tokeniser("one  two", " ");
    EXPECT_STREQ(tokeniser.next_token(), "one");
    EXPECT_STREQ(tokeniser.next_token(), "two");
    EXPECT_EQ(tokeniser.token_number(), 2);

    tokeniser.go_back_one();
    EXPECT_EQ(tokeniser.token_number(), 1);
    EXPECT_STREQ(tokeniser.next_token(), "two");
    EXPECT_EQ(tokeniser.token_number(), 2);
}

TEST(grTokeniser, looks_back_over_one_token_only)
{
    grTokeniser tokeniser("one two three", " ");
    tokeniser.next_token();
    tokeniser.next_token();
    tokeniser.go_back_one();
    tokeniser.go_back_one();
    EXPECT_EQ(tokeniser.token_number(), 1);
    EXPECT_STREQ(tokeniser.next_token(), "two");
}

TEST(grTokeniser, does_not_step_back_over_the_end_of_the_text)
{
    grTokeniser tokeniser("last", " ");
    tokeniser.next_token();
    EXPECT_EQ(tokeniser.next_token(), nullptr);
    tokeniser.go_back_one();
    EXPECT_EQ(tokeniser.next_token(), nullptr);
    EXPECT_EQ(tokeniser.token_number(), 1);
}

TEST(grTokeniser, joins_added_characters_into_words)
{
    grTokeniser tokeniser("-1 a+b", " ");
    tokeniser.add_valid_chars("-");
    tokeniser.add_valid_chars("+");
    EXPECT_EQ(all_tokens(tokeniser), (Tokens{"-1", "a+b"}));
}
