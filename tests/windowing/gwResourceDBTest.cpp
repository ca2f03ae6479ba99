#include "gwResourceDB.h"

#include "apPathName.h"
#include "gwResourceText.h"
#include "tsTable.h"

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

std::string value_of(const gwResourceDB& db, const char* key)
{
    utString value("none");
    db.get_resource(key, value);
    return value.str();
}
}

TEST(gwResourceText, finds_settings_with_their_places)
{
    for (const auto& row : ts_table(TS_TABLES "windowing.table", "resources"))
        EXPECT_EQ(read(row[1]), row[2]) << row[0];
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
