#include "utString.h"

#include <gtest/gtest.h>

#include <sstream>
#include <unordered_set>

TEST(utString, compares_without_case_but_only_as_far_as_asked)
{
    const utString control("Control");
    EXPECT_TRUE(control.equal_case_blind("cONTROL"));
    EXPECT_FALSE(control.equal_case_blind("control "));
    EXPECT_FALSE(control.equal_case_blind("contro"));
    EXPECT_TRUE(control.equal_case_blind(utString("CONTRARY"), 5));
    EXPECT_FALSE(control.equal_case_blind(utString("CONTRARY"), 6));
    EXPECT_FALSE(control.equal_case_blind(utString("con"), 5)) << "a shorter text is not equal to its continuation";
    EXPECT_TRUE(utString("AZ").equal_case_blind("az"));
    EXPECT_FALSE(utString("[").equal_case_blind("{")) << "only letters have a case";
    EXPECT_FALSE(control == utString("control"));
}

TEST(utString, cuts_and_joins)
{
    const utString text("trackball");
    EXPECT_EQ(text.substring(5, 4), "ball");
    EXPECT_EQ(text.substring(5, 100), "ball");
    EXPECT_EQ(text.substring(9, 1), "");
    EXPECT_EQ(text.substring(50, 1), "");
    EXPECT_EQ("a " + text.substring(0, 5) + "!", "a track!");
    EXPECT_EQ(utString(static_cast<const char*>(nullptr)).length(), 0);
    EXPECT_EQ(utString("abc", 2), "ab");
}

TEST(utString, orders_hashes_and_streams_by_its_bytes)
{
    EXPECT_LT(utString("Z"), utString("a"));
    EXPECT_LT(utString("a"), utString("\xC3\xA4"));
    const std::unordered_set<utString> texts{"one", "two", "one"};
    EXPECT_EQ(texts.size(), 2u);
    std::ostringstream os;
    os << utString("as it is");
    EXPECT_EQ(os.str(), "as it is");
}
