#include "flMessages.h"

#include "tsFolder.h"

#include <gtest/gtest.h>

TEST(flMessages, what_comes_from_a_file_is_printable_and_short)
{
    EXPECT_EQ(fl_quoted("M\xc3\xbcller"), "'M\xc3\xbcller'");
    EXPECT_EQ(fl_quoted("a\x1b[31m\n\xff\xc2\x80\xc3"), "'a\\x1b[31m\\x0a\\xff\\xc2\\x80\\xc3'");
    EXPECT_EQ(fl_quoted(std::string(41, 'x')), "'" + std::string(40, 'x') + "...'");
    EXPECT_EQ(fl_name(std::string(99, 'x') + "\n"), std::string(99, 'x') + "\\x0a");
}

TEST(flMessages, say_why_a_file_is_not_read)
{
    const tsFolder folder;
    std::error_code no_links; // for everybody, as on Windows
    std::filesystem::create_symlink("nowhere", folder / "link", no_links);
    std::string text = "as it was", error;
    const struct
    {
        const char *name, *reason;
    } rows[] = {
        {"none", "none: there is no such file"},
        {no_links ? "none" : "link", no_links ? "such file" : "link: this is a link to a file that is not there"},
        {".", ".: this is a folder, no file"}};
    for (const auto& row : rows)
    {
        EXPECT_FALSE(fl_read_text(folder / row.name, text, error)) << row.name;
        EXPECT_TRUE(error.ends_with(row.reason)) << error;
    }
    EXPECT_EQ(text, "as it was");
    EXPECT_TRUE(fl_read_text(folder.write("file", "a\r\n"), text, error));
    EXPECT_EQ(text, "a\r\n");
}
