#include "grTokeniser.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
// The tokens of a text, each with a bar behind it; after the second and at the end of the text one step back is made,
// and at the second a second one, which does nothing.
std::string tokens(const char* text, const char* separators, const char* more = "")
{
    grTokeniser tokeniser(text, separators);
    tokeniser.add_valid_chars(more);
    std::string found;
    int count = 0;
    while (const char* token = tokeniser.next_token())
    {
        EXPECT_EQ(tokeniser.token_number(), ++count);
        EXPECT_EQ(text[tokeniser.token_start()], token[0]);
        if (count == 2)
        {
            const std::string second = token;
            tokeniser.go_back_one();
            tokeniser.go_back_one();
            EXPECT_EQ(tokeniser.token_number(), 1);
            token = tokeniser.next_token();
            EXPECT_EQ(token, second);
        }
        found += token + std::string("|");
    }
    EXPECT_EQ(tokeniser.token_start(), -1);
    tokeniser.go_back_one();
    EXPECT_EQ(tokeniser.next_token(), nullptr);
    EXPECT_EQ(tokeniser.token_number(), count);
    return found;
}
}

TEST(grTokeniser, splits_texts_into_words_and_single_characters)
{
    EXPECT_EQ(tokens(" ,zoom, \tpan\treset ,", " ,\t"), "zoom|pan|reset|");
    EXPECT_EQ(tokens("<a>b:(c)", " "), "<|a|>|b|:|(|c|)|");
    EXPECT_EQ(tokens("a/b.c_1 0.5-1", " "), "a/b.c_1|0.5|-|1|");
    EXPECT_EQ(tokens("-1 a+b", " ", "-+"), "-1|a+b|");
    EXPECT_EQ(tokens("a\nb", " "), "a|\n|b|");
    EXPECT_EQ(tokens("a.b", "."), "a|b|") << "a separator is never part of a word";
    EXPECT_EQ(tokens("a b", nullptr), "a| |b|");
    EXPECT_EQ(tokens("aZ09\xe9z", " "), "aZ09|\xe9|z|") << "bytes above ASCII are no letters";
    EXPECT_EQ(tokens("  ", " "), "");
    EXPECT_EQ(tokens("", " "), "");
}
