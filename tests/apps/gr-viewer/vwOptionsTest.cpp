#include "vwOptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
vwOptionsStatus read(std::vector<const char*> arguments, vwOptions& options, std::string& text)
{
    arguments.insert(arguments.begin(), "gr-viewer");
    return vw_read_options(static_cast<int>(arguments.size()), arguments.data(), options, text);
}

const struct
{
    std::vector<const char*> arguments;
    const char* named; // in the message
} bad_cases[] = {
    {{}, "no file"},
    {{"--frobnicate", "a.tarn"}, "--frobnicate"},
    {{"--views", "0", "a.tarn"}, "--views"},
    {{"--views", "many", "a.tarn"}, "--views"},
    {{"--framerate", "-5", "a.tarn"}, "--framerate"},
    {{"--size", "960", "a.tarn"}, "'960' is no size"},
    {{"--size", "0x10", "a.tarn"}, "not 0"},
    {{"--size", "10x20x30", "a.tarn"}, "'10x20x30'"},
    {{"--offscreen", "a.tarn"}, "--play"},
    {{"--play", "s", "--out", "d", "a.tarn"}, "--offscreen"},
    {{"--offscreen", "--play", "s", "a.tarn"}, "--out"},
    {{"--out", "d", "a.tarn"}, "--out"},
    {{"--font", "DejaVu Sans", "a.tarn"}, "--text"},
    {{"--offscreen", "--play", "s", "--out", "d", "--record", "r", "a.tarn"}, "--record"},
    {{"--refresher", "quick", "a.tarn"}, "--refresher"},
    {{"--bench", "spin", "a.tarn"}, "--bench"},
    {{"--bench", "fast", "--record", "r", "a.tarn"}, "--record"},
    {{"--bench", "fast"}, "no file"},
    {{"--dump-structure", "--record", "r", "a.tarn"}, "--dump-structure"},
    {{"--dump-xml", "x", "--text", "t", "a.tarn"}, "--text"},
};
}

TEST(vwOptions, reads_what_is_given)
{
    vwOptions options;
    std::string text;
    ASSERT_EQ(
        read({"a.tarn", "--views", "4", "--size", "800x600", "b.stl", "--framerate", "12.5", "--stats"}, options, text),
        vwOPTIONS_RUN)
        << text;
    EXPECT_EQ(options.files, (std::vector<std::string>{"a.tarn", "b.stl"}));
    EXPECT_EQ(options.views, 4);
    EXPECT_EQ(options.width, 800);
    EXPECT_EQ(options.height, 600);
    EXPECT_EQ(options.framerate, 12.5);
    EXPECT_EQ(options.stats, 1);
    EXPECT_EQ(options.offscreen, 0);
}

TEST(vwOptions, reads_how_to_refresh_and_what_to_time)
{
    vwOptions options;
    std::string text;
    ASSERT_EQ(read({"a.tarn"}, options, text), vwOPTIONS_RUN);
    EXPECT_EQ(options.refresher, vwREFRESHER_FAST);
    EXPECT_TRUE(options.bench.empty());
    ASSERT_EQ(read({"--refresher", "timeout", "--bench", "fast,pick", "--bench", "zoom", "--seconds", "0.5", "a.tarn"},
                   options, text),
              vwOPTIONS_RUN)
        << text;
    EXPECT_EQ(options.refresher, vwREFRESHER_TIMEOUT);
    EXPECT_EQ(options.bench, (std::vector<std::string>{"fast", "pick", "zoom"}));
    EXPECT_EQ(options.seconds, 0.5);
    EXPECT_EQ(options.files, std::vector<std::string>{"a.tarn"});
}

TEST(vwOptions, mistakes_are_named_and_change_nothing)
{
    for (const auto& c : bad_cases)
    {
        vwOptions options;
        std::string text;
        EXPECT_EQ(read(c.arguments, options, text), vwOPTIONS_BAD) << c.named;
        EXPECT_NE(text.find(c.named), std::string::npos) << c.named << " in: " << text;
        EXPECT_EQ(text.substr(0, 11), "gr-viewer: ");
        EXPECT_TRUE(options.files.empty()) << c.named;
    }
}

TEST(vwOptions, help_version_and_resources_need_no_file)
{
    vwOptions options;
    std::string text;
    EXPECT_EQ(read({"--help"}, options, text), vwOPTIONS_DONE);
    EXPECT_NE(text.find("--resources"), std::string::npos);
    EXPECT_EQ(read({"--version"}, options, text), vwOPTIONS_DONE);
    EXPECT_EQ(text.substr(0, 10), "gr-viewer ");
    EXPECT_EQ(read({"--print-resources"}, options, text), vwOPTIONS_RUN);
    EXPECT_EQ(options.print_resources, 1);
    EXPECT_EQ(read({"--list-fonts", "--font-list", "f"}, options, text), vwOPTIONS_RUN);
    EXPECT_EQ(options.font_list, "f");
    EXPECT_EQ(read({"--text", "words"}, options, text), vwOPTIONS_RUN) << "a text may be shown alone";
}
