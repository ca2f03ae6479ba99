#include "grResourceKey.h"

#include "tsTable.h"
#include "utString.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

namespace
{

std::string document(const char* name)
{
    std::ifstream file(std::string(GR_DOCS) + name);
    return {std::istreambuf_iterator<char>(file), {}};
}
}

TEST(grResourceKey, says_which_values_a_key_accepts)
{
    for (const auto& row : ts_table(TS_TABLES "keys.table", "keys"))
    {
        const grResourceKey* key = grResourceKey::find(row[0]);
        ASSERT_NE(key, nullptr) << row[0];
        std::string complaint;
        EXPECT_EQ(key->accepts(row[1], complaint), row[2].empty()) << row[0] << ' ' << row[1];
        EXPECT_EQ(complaint, row[2]) << row[0];
    }
    EXPECT_EQ(grResourceKey::find("Framerate"), nullptr);
}

TEST(grResourceKey, accepts_its_own_defaults_and_stands_in_the_documents_as_it_is)
{
    const std::string documents = document("view-tools.md") + document("rubber-banding.md");
    std::set<std::string> names;
    for (const grResourceKey& key : grResourceKey::all())
    {
        EXPECT_TRUE(names.insert(key.name()).second) << key.name() << " is listed twice";
        const std::string text = key.default_text(), row = std::string("| `") + key.name() + "` | " +
                                                           (text.empty() ? "none" : text) + " | " + key.meaning() +
                                                           " |";
        std::string complaint;
        EXPECT_TRUE(text.empty() || key.accepts(text, complaint)) << key.name() << ": " << complaint;
        EXPECT_NE(documents.find(row), std::string::npos) << "no table has\n" << row;
    }
}
