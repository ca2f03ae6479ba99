#include "tsTarn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <streambuf>

namespace
{
const struct
{
    const char* name;
    std::string text;
    int count;
    const char* complaint = ""; // empty: not looked at
} damaged_files[] = {
    {"empty", "", 0, "this is no tarn file: no line starts with '*'"},
    {"no line with a star", "title\n1 *\n1\n1\n" + tarn_triangle("1", "1"), 0},
    {"no count", "*\nmany\n", 0, "line 2: the number of blocks should be where 'many' is"},
    {"count beyond an int", tarn_file("4294967297", tarn_triangle("1", "1")), 0},
    {"fewer blocks than counted", tarn_file("2", tarn_triangle("1", "1")), 2,
     "line 21: the file ends where block 2 of 2 should be"},
    {"more index lines than lines", tarn_file("2147483647", tarn_triangle("1", "1")), 2147483647},
    {"node count below 0", tarn_file("1", tarn_block_head("1 1 -3 1 0") + "1 2 3\n"), 1,
     "line 8: -3 nodes and 1 triangles are no block"},
    {"triangle count below 0", tarn_file("1", tarn_block_head("1 1 3 -1 0") + tarn_three_nodes), 1},
    {"node count that exhausts memory", tarn_file("1", tarn_block_head("1 1 2147483647 1 0") + tarn_three_nodes), 1},
    {"triangle count that exhausts memory",
     tarn_file("1", tarn_block_head("1 1 3 2147483647 0") + tarn_three_nodes + "1 2 3\n"), 1},
    {"one node too many", tarn_file("1", tarn_block_head("1 1 4 1 0") + tarn_three_nodes + "1 2 3\n"), 1,
     "line 21: the file ends where a finite number of node 4 should be"},
    {"one triangle too many", tarn_file("1", tarn_block_head("1 1 3 2 0") + tarn_three_nodes + "1 2 3\n"), 1},
    {"node number 0", tarn_file("1", tarn_block_head("1 1 3 1 0") + tarn_three_nodes + "0 1 2\n"), 1},
    {"negative node number", tarn_file("1", tarn_block_head("1 1 3 1 0") + tarn_three_nodes + "1 -2 3\n"), 1},
    {"node number beyond the last", tarn_file("1", tarn_block_head("1 1 3 1 0") + tarn_three_nodes + "1 2 4\n"), 1,
     "line 20: triangle 1 has node 4 of 3"},
    {"node number with decimals", tarn_file("1", tarn_block_head("1 1 3 1 0") + tarn_three_nodes + "1 2.0 3\n"), 1},
    {"word for a number", tarn_file("1", tarn_block_head("1 1 1 0 0") + "0 0 zero 0 0 1 0 0\n"), 1},
    {"nan", tarn_file("1", tarn_block_head("1 1 1 0 0") + "0 0 nan 0 0 1 0 0\n"), 1,
     "line 17: a finite number of node 1 should be where 'nan' is"},
    {"infinity", tarn_file("1", tarn_block_head("1 1 1 0 0") + "0 0 -inf 0 0 1 0 0\n"), 1},
    {"two signs", tarn_file("1", tarn_block_head("1 1 1 0 0") + "0 0 +-1 0 0 1 0 0\n"), 1},
    {"the lowest double rounded outwards",
     tarn_file("1", tarn_block_head("0 0 1 0 0") + "0 0 0 -1.7976931348623159e308 0 0 0 0\n"), 1},
    {"a zero byte", tarn_file("1", tarn_block_head("1 1 1 0 0") + "0 0 " + std::string(1, '\0') + "0 0 0 1 0 0\n"), 1,
     "line 17: a finite number of node 1 should be where '?0' is"},
};

// A source of characters that cannot be positioned, such as a pipe, and hands out a few at a time.
class tsPipe : public std::streambuf
{
public:
    explicit tsPipe(const std::string& text) : the_text(text) {}

protected:
    int_type underflow() override
    {
        if (the_next == the_text.size())
            return traits_type::eof();
        const std::size_t some = std::min<std::size_t>(7, the_text.size() - the_next);
        setg(&the_text[the_next], &the_text[the_next], &the_text[the_next] + some);
        the_next += some;
        return traits_type::to_int_type(*gptr());
    }

private:
    std::string the_text;
    std::size_t the_next = 0;
};
}

TEST(gr_read_tarn_tblock, damaged_files_fail_and_keep_nothing)
{
    for (const auto& c : damaged_files)
    {
        const tsTarn tarn(c.text);
        EXPECT_EQ(tarn.first, nullptr) << c.name;
        EXPECT_EQ(tarn.blocks.size(), 0u) << c.name;
        EXPECT_EQ(tarn.count, c.count) << c.name;
        EXPECT_TRUE(tarn.failed) << c.name;

        std::istringstream stream(c.text);
        int count = 0;
        std::string complaint;
        EXPECT_EQ(gr_read_tarn_tblock(stream, count, nullptr, complaint), nullptr) << c.name << ", without a list";
        EXPECT_TRUE(*c.complaint ? complaint == c.complaint : !complaint.empty()) << c.name << ": " << complaint;
    }
}

TEST(gr_read_tarn_tblock, a_count_below_1_is_an_answer_and_no_failure)
{
    for (const int claimed : {0, -4})
    {
        const tsTarn tarn("*\n" + std::to_string(claimed));
        EXPECT_EQ(tarn.first, nullptr);
        EXPECT_EQ(tarn.count, claimed);
        EXPECT_FALSE(tarn.failed);
    }
}

TEST(gr_read_tarn_tblock, earlier_entries_of_the_list_outlive_a_failure)
{
    giTriBlock earlier;
    giTriBlockcoDList list;
    list.add_last(&earlier);
    std::istringstream stream(tarn_file("2", tarn_triangle("1", "1")));
    int count = 0;
    EXPECT_EQ(gr_read_tarn_tblock(stream, count, &list), nullptr);
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.first(), &earlier);
}

TEST(gr_read_tarn_tblock, a_file_cut_short_anywhere_fails)
{
    const std::string text = tarn_file("2", tarn_triangle("1", "1") + tarn_triangle("0", "1"));
    // Complete as soon as the last node number has a digit.
    const std::size_t complete = text.size() - 1;
    for (std::size_t length = 0; length < text.size(); ++length)
    {
        const tsTarn tarn(text.substr(0, length));
        EXPECT_EQ(tarn.blocks.size(), length < complete ? 0u : 2u) << "cut after " << length << " bytes";
        EXPECT_EQ(tarn.failed, length < complete) << "cut after " << length << " bytes";
    }
}

TEST(gr_read_tarn_tblock, a_source_that_cannot_be_positioned_is_read_and_bounded_too)
{
    const struct
    {
        const char* name;
        std::string text;
        bool complete;
    } cases[] = {
        {"complete", tarn_file("2", tarn_triangle("1", "1") + tarn_triangle("0", "1")) + "rest", true},
        {"lying counts", tarn_file("1", tarn_block_head("1 1 2147483647 2147483647 0") + tarn_three_nodes), false},
    };
    for (const auto& c : cases)
    {
        tsPipe pipe(c.text);
        std::istream stream(&pipe);
        int count = 0;
        const std::unique_ptr<giTriBlock> block(gr_read_tarn_tblock(stream, count, nullptr));
        EXPECT_EQ(block != nullptr, c.complete) << c.name;
        EXPECT_EQ(stream.fail(), !c.complete) << c.name;
        EXPECT_EQ(stream.eof(), c.complete) << "the text behind the block cannot be given back";
    }
}
