#include "vwOptions.h"

#include "tsFolder.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace
{
// Words that are parted by blanks.
vwOptionsStatus read(const std::string& line, vwOptions& options, std::string& text)
{
    std::vector<std::string> words{"gr-viewer"};
    std::istringstream stream(line);
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::vector<const char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(word.c_str());
    return vw_read_options(static_cast<int>(arguments.size()), arguments.data(), options, text);
}
}

TEST(vwOptions, reads_what_is_given)
{
    vwOptions options;
    std::string text;
    ASSERT_EQ(read("a.tarn --views 4 --size 800x600 b.stl --framerate 12.5 --stats", options, text), vwOPTIONS_RUN)
        << text;
    EXPECT_EQ(options.files, (std::vector<std::string>{"a.tarn", "b.stl"}));
    EXPECT_EQ(options.views, 4);
    EXPECT_EQ(options.width, 800);
    EXPECT_EQ(options.height, 600);
    EXPECT_EQ(options.scene.framerate, 12.5);
    EXPECT_EQ(options.scene.stats, 1);
    EXPECT_EQ(options.scene.refresher, vwREFRESHER_FAST);
    EXPECT_TRUE(options.bench.empty());
    for (const auto& [line, smooth] :
         {std::pair("a.tarn", -1), {"--smooth-edges a.tarn", 1}, {"--no-smooth-edges a.tarn", 0}})
    {
        EXPECT_EQ(read(line, options, text), vwOPTIONS_RUN) << line << ": " << text;
        EXPECT_EQ(options.smooth_edges, smooth) << line;
    }
    ASSERT_EQ(read("--refresher timeout --bench fast,pick --bench zoom --seconds 0.5 a.tarn", options, text),
              vwOPTIONS_RUN)
        << text;
    EXPECT_EQ(options.scene.refresher, vwREFRESHER_TIMEOUT);
    EXPECT_EQ(options.bench, (std::vector<std::string>{"fast", "pick", "zoom"}));
    EXPECT_EQ(options.seconds, 0.5);
    EXPECT_EQ(options.files, std::vector<std::string>{"a.tarn"});
}

TEST(vwOptions, mistakes_are_named_and_change_nothing)
{
    for (const auto& row : ts_table(TS_TABLES "mistakes.table", "options"))
    {
        vwOptions options;
        std::string text;
        EXPECT_EQ(read(row[0], options, text), vwOPTIONS_BAD) << row[0];
        EXPECT_NE(text.find(row[1]), std::string::npos) << row[0] << ": " << text;
        EXPECT_EQ(text.substr(0, 11), "gr-viewer: ");
        EXPECT_TRUE(options.files.empty()) << row[0];
    }
}

TEST(vwOptions, some_things_need_no_file)
{
    vwOptions options;
    std::string text;
    EXPECT_EQ(read("--help", options, text), vwOPTIONS_DONE);
    EXPECT_NE(text.find("--resources"), std::string::npos);
    EXPECT_EQ(read("--version", options, text), vwOPTIONS_DONE);
    EXPECT_EQ(text.substr(0, 10), "gr-viewer ");
    for (const char* line :
         {"--print-resources", "--list-fonts --font-list f", "--list-bindings --bindings cad", "--text words"})
        EXPECT_EQ(read(line, options, text), vwOPTIONS_RUN) << line << ": " << text;
    EXPECT_EQ(options.text, "words");
}

TEST(vwOptions, what_is_read_is_not_written)
{
    const tsFolder folder;
    vwOptions options;
    options.files = {folder.write("part.tarn", "")};
    std::filesystem::create_hard_link(options.files[0], folder / "link");
    std::string error;
    EXPECT_TRUE(vw_keeps_inputs(options, folder / "new", error)) << error;
    EXPECT_FALSE(vw_keeps_inputs(options, folder / "link", error));
    EXPECT_NE(error.find("link: this file is read"), std::string::npos) << error;
}
