#include "grTranslationsChecker.h"

#include "grStdToolFactory.h"
#include "tsTable.h"

#include <gtest/gtest.h>

namespace
{

const char* const right[] = {"", "  \t,", "mouse_button 1 : pan", "<> mouse_button 1 : pan ()",
                             "<control,shift f3> other_key ctrl : zoom (and_pan_centre), function_key 2 : reset"};
}

TEST(grTranslationsChecker, names_the_place_of_the_first_fault)
{
    const grStdToolFactory factory(nullptr, nullptr);
    grTranslationsChecker checker({&factory});
    for (const auto& row : ts_table(TS_TABLES "assembly.table", "translations"))
    {
        EXPECT_EQ(checker.check(row[1]), 0) << row[0];
        EXPECT_EQ(checker.line(), std::stoi(row[2])) << row[0];
        EXPECT_EQ(checker.column(), std::stoi(row[3])) << row[0];
        EXPECT_EQ(checker.complaint(), row[4]) << row[0];
    }
}

TEST(grTranslationsChecker, accepts_what_is_right)
{
    grTranslationsChecker checker({});
    for (const char* text : right)
        EXPECT_EQ(checker.check(text), 1) << text << checker.complaint();
}
