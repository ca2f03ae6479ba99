#include "gwResourceDB.h"

#include "apPathName.h"
#include "gwResourceText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace
{
// What a text sets, one "line:column key = line:column value" per setting, and its first bad line.
std::string read(std::string_view text)
{
    const gwResourceText read(text);
    std::string all;
    const auto place = [&](std::size_t position)
    {
        const gwTextPlace p = read.place(position);
        return std::to_string(p.line) + ':' + std::to_string(p.column) + ' ';
    };
    for (const gwResourceText::Setting& setting : read.settings())
        all += place(setting.key_position) + setting.key.str() + " = " + place(setting.value_position) +
               setting.value.str() + "; ";
    return all + (read.bad_line() ? "bad line " + std::to_string(read.bad_line()) : "");
}

const struct
{
    const char* name;
    std::string_view text;
    const char* expected;
} texts[] = {
    {"blanks are dropped", "  a :  b c \t\n", "1:3 a = 1:8 b c; "},
    {"value keeps its colons", "t: mouse_button 1:zoom()\n", "1:1 t = 1:4 mouse_button 1:zoom(); "},
    {"comments and empty lines", "! x: 1\n\n   \n# y\n  !z\na: !b", "6:1 a = 6:4 !b; "},
    {"continuation", "a: one \\\n  two\\\r\n three\nb: \\\n\\\n 1", "1:1 a = 1:4 one   two three; 4:1 b = 6:2 1; "},
    {"continuation at the end", "a: one\\", "1:1 a = 1:4 one; "},
    {"a backslash inside a line", "a: b\\c", "1:1 a = 1:4 b\\c; "},
    {"foreign line ends", "a: 1\r\nb: 2\r\n", "1:1 a = 1:4 1; 2:1 b = 2:4 2; "},
    {"equal keys", "a: 1\na: 2\n", "1:1 a = 1:4 1; 2:1 a = 2:4 2; "},
    {"empty value", "a:", "1:1 a = 1:3 ; "},
    {"byte order mark",
     "\xEF\xBB\xBF"
     "a: 1\n",
     "1:1 a = 1:4 1; "},
    {"nothing", "", ""},
    {"no colon", "a: 1\nb 2\n", "1:1 a = 1:4 1; bad line 2"},
    {"no key", ": 1\n", "bad line 1"},
    {"blank inside the key", "! note\na b: 1\n", "bad line 2"},
    {"no bytes of letters",
     std::string_view("\xFF\xFE"
                      "a\0:\0"
                      "1\0",
                      8),
     "bad line 1"},
    {"lines joined before it count", "a: 1 \\\n 2 \\\n 3\noops", "1:1 a = 1:4 1  2  3; bad line 4"},
    {"named by its first line", "a: 1\noops \\\n more\n", "1:1 a = 1:4 1; bad line 2"},
};

std::string value_of(const gwResourceDB& db, const char* key)
{
    utString value("none");
    db.get_resource(key, value);
    return value.str();
}
}

TEST(gwResourceText, finds_settings_with_their_places)
{
    for (const auto& c : texts)
        EXPECT_EQ(read(c.text), c.expected) << c.name;
}

TEST(gwResourceDB, loads_all_of_a_text_or_nothing)
{
    gwResourceDB db;
    db.set_resource("stays", "");
    db.set_resource("a", "old");
    int line = -1;
    EXPECT_EQ(db.load_text("a: 1\na: 2\nempty:", line), gwRESOURCE_OK);
    EXPECT_EQ(value_of(db, "a"), "2");
    EXPECT_EQ(value_of(db, "empty") + value_of(db, "stays"), "");
    EXPECT_EQ(value_of(db, "A"), "none");
    EXPECT_EQ(line, -1);
    EXPECT_EQ(db.load_text("a: 3\noops", line), gwRESOURCE_BAD_LINE);
    EXPECT_EQ(value_of(db, "a"), "2");
    EXPECT_EQ(line, 2);
    EXPECT_TRUE(db.remove_resource("a"));
    EXPECT_FALSE(db.remove_resource("a"));
}

TEST(gwResourceDB, loads_files)
{
    const std::string path = testing::TempDir() + "gwResourceDBTest_loads_files.txt";
    std::ofstream(path, std::ios::binary) << "a: 1\r\n";
    gwResourceDB db;
    int line = -1;
    EXPECT_EQ(db.load_file(apPathName(path), line), gwRESOURCE_OK);
    EXPECT_EQ(value_of(db, "a"), "1");
    std::remove(path.c_str());
    EXPECT_EQ(db.load_file(apPathName(path), line), gwRESOURCE_NO_FILE);
    EXPECT_EQ(db.load_file(apPathName(testing::TempDir()), line), gwRESOURCE_NO_FILE) << "a folder is no file";
}
