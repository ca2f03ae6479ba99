#include "vwOptions.h"

#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
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

const struct
{
    const char* line;
    const char* named; // in the message
} bad_lines[] = {
    {"", "no file"},
    {"--frobnicate a.tarn", "--frobnicate"},
    {"--views 0 a.tarn", "--views"},
    {"--views many a.tarn", "--views"},
    {"--framerate -5 a.tarn", "--framerate"},
    {"--framerate nan a.tarn", "'nan' is no number from 0.1 to 1000"},
    {"--bench fast --seconds inf a.tarn", "'inf' is no number"},
    {"--size 960 a.tarn", "'960' is no size"},
    {"--size 0x10 a.tarn", "not 0"},
    {"--size 10x20x30 a.tarn", "'10x20x30'"},
    {"--offscreen a.tarn", "--play"},
    {"--play s --out d a.tarn", "--offscreen"},
    {"--offscreen --play s a.tarn", "--out"},
    {"--out d a.tarn", "--out"},
    {"--font Times a.tarn", "--text"},
    {"--refresher quick a.tarn", "--refresher"},
    {"--bench spin a.tarn", "--bench"},
    {"--bench fast", "no file"},
    {"--list-fonts a.tarn", "--list-fonts shows no file"},
    {"--dump-xml x --text t a.tarn", "--text"},
    {"--multi --independent a.tarn", "--multi"},
    {"--offscreen --play s --out d --record r a.tarn", "--offscreen and --record exclude each other"},
    {"--bench fast --record r a.tarn", "--bench and --record"},
    {"--dump-structure --record r a.tarn", "--dump-structure and --record"},
    {"--dump-xml x --bench fast a.tarn", "--dump-xml and --bench"},
    {"--print-resources --list-bindings", "--print-resources and --list-bindings"},
};
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
    EXPECT_EQ(options.framerate, 12.5);
    EXPECT_EQ(options.stats, 1);
    EXPECT_EQ(options.refresher, vwREFRESHER_FAST);
    EXPECT_TRUE(options.bench.empty());
    ASSERT_EQ(read("--refresher timeout --bench fast,pick --bench zoom --seconds 0.5 a.tarn", options, text),
              vwOPTIONS_RUN)
        << text;
    EXPECT_EQ(options.refresher, vwREFRESHER_TIMEOUT);
    EXPECT_EQ(options.bench, (std::vector<std::string>{"fast", "pick", "zoom"}));
    EXPECT_EQ(options.seconds, 0.5);
    EXPECT_EQ(options.files, std::vector<std::string>{"a.tarn"});
}

TEST(vwOptions, mistakes_are_named_and_change_nothing)
{
    for (const auto& row : bad_lines)
    {
        vwOptions options;
        std::string text;
        EXPECT_EQ(read(row.line, options, text), vwOPTIONS_BAD) << row.line;
        EXPECT_NE(text.find(row.named), std::string::npos) << row.line << ": " << text;
        EXPECT_EQ(text.substr(0, 11), "gr-viewer: ");
        EXPECT_TRUE(options.files.empty()) << row.line;
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
    std::filesystem::create_symlink("part.tarn", folder / "link");
    vwOptions options;
    options.files = {folder.write("part.tarn", "")};
    std::string error;
    EXPECT_TRUE(vw_keeps_inputs(options, folder / "new", error)) << error;
    EXPECT_FALSE(vw_keeps_inputs(options, folder / "link", error));
    EXPECT_NE(error.find("link: this file is read"), std::string::npos) << error;
}
