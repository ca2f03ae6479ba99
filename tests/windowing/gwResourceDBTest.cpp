#include "gwResourceDB.h"

#include "apPathName.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace
{
utString text_of(const gwResourceDB& db)
{
    std::ostringstream os;
    db.write_text(os);
    return os.str();
}
}

TEST(gwResourceDB, finds_sets_and_removes_keys)
{
    gwResourceDB db;
    utString value("kept");
    EXPECT_FALSE(db.get_resource("framerate", value));
    EXPECT_EQ(value, "kept");
    db.set_resource("framerate", "10");
    db.set_resource("framerate", "");
    EXPECT_TRUE(db.get_resource("framerate", value)) << "an empty value is a value";
    EXPECT_EQ(value, "");
    EXPECT_FALSE(db.get_resource("Framerate", value));
    EXPECT_TRUE(db.remove_resource("framerate"));
    EXPECT_FALSE(db.remove_resource("framerate"));
}

const struct
{
    const char* name;
    const char* text;
    const char* loaded; // as written back
} good_texts[] = {
    {"blanks are dropped", "  a :  b c \t\n", "a: b c\n"},
    {"value keeps its colons", "t: mouse_button 1:zoom()\n", "t: mouse_button 1:zoom()\n"},
    {"comments and empty lines", "! x: 1\n\n   \n# y\n  !z\na: !b", "a: !b\n"},
    {"continuation", "a: one \\\n  two\\\r\n three\nb: 1\n", "a: one   two three\nb: 1\n"},
    {"continuation at the end", "a: one\\", "a: one\n"},
    {"foreign line ends", "a: 1\r\nb: 2\r\n", "a: 1\nb: 2\n"},
    {"last of equal keys", "a: 1\na: 2\n", "a: 2\n"},
    {"empty value", "a:", "a: \n"},
    {"nothing", "", ""},
};

TEST(gwResourceDB, loads_texts)
{
    for (const auto& c : good_texts)
    {
        gwResourceDB db;
        int line = -1;
        EXPECT_EQ(db.load_text(c.text, line), gwRESOURCE_OK) << c.name;
        EXPECT_EQ(text_of(db), c.loaded) << c.name;
        EXPECT_EQ(line, -1) << c.name;

        gwResourceDB again;
        EXPECT_EQ(again.load_text(text_of(db), line), gwRESOURCE_OK) << c.name;
        EXPECT_EQ(text_of(again), text_of(db)) << c.name;
    }
}

const struct
{
    const char* name;
    const char* text;
    int line;
} bad_texts[] = {
    {"no colon", "a: 1\nb 2\n", 2},
    {"no key", ": 1\n", 1},
    {"blank inside the key", "! note\na b: 1\n", 2},
    {"lines joined before it count", "a: 1 \\\n 2 \\\n 3\noops", 4},
    {"named by its first line", "a: 1\noops \\\n more\n", 2},
};

TEST(gwResourceDB, bad_text_names_its_line_and_changes_nothing)
{
    for (const auto& c : bad_texts)
    {
        gwResourceDB db;
        db.set_resource("a", "before");
        int line = -1;
        EXPECT_EQ(db.load_text(c.text, line), gwRESOURCE_BAD_LINE) << c.name;
        EXPECT_EQ(line, c.line) << c.name;
        EXPECT_EQ(text_of(db), "a: before\n") << c.name;
    }
}

TEST(gwResourceDB, later_text_wins_over_what_was_set_and_keeps_the_rest)
{
    gwResourceDB db;
    db.set_resource("a", "old");
    db.set_resource("b", "stays");
    int line = 0;
    EXPECT_EQ(db.load_text("a: new\n", line), gwRESOURCE_OK);
    EXPECT_EQ(text_of(db), "a: new\nb: stays\n");
}

TEST(gwResourceDB, loads_files)
{
    const std::string path = testing::TempDir() + "gwResourceDBTest_loads_files.txt";
    std::ofstream(path, std::ios::binary) << "a: 1\r\n";
    gwResourceDB db;
    int line = -1;
    EXPECT_EQ(db.load_file(apPathName(path), line), gwRESOURCE_OK);
    EXPECT_EQ(text_of(db), "a: 1\n");
    std::remove(path.c_str());
    EXPECT_EQ(db.load_file(apPathName(path), line), gwRESOURCE_NO_FILE);
    EXPECT_EQ(db.load_file(apPathName(testing::TempDir()), line), gwRESOURCE_NO_FILE) << "a folder is no file";
}
