#include "tsTarn.h"

#include "tsTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <streambuf>

namespace
{
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
    for (const auto& row : ts_table(TS_TABLES "damage.table", "damage"))
    {
        const std::string& name = row[0];
        const std::string block = (row[2].empty() ? "" : tarn_block_head(row[2])) + row[3];
        const std::string text = row[1].empty() ? row[3] : tarn_file(row[1], block);
        const tsTarn tarn(text);
        EXPECT_EQ(tarn.first, nullptr) << name;
        EXPECT_EQ(tarn.blocks.size(), 0u) << name;
        EXPECT_EQ(tarn.count, std::stoi(row[4])) << name;
        EXPECT_TRUE(tarn.failed) << name;

        std::istringstream stream(text);
        int count = 0;
        std::string complaint;
        EXPECT_EQ(gr_read_tarn_tblock(stream, count, nullptr, complaint), nullptr) << name << ", without a list";
        EXPECT_TRUE(row[5].empty() ? !complaint.empty() : complaint == row[5]) << name << ": " << complaint;
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
        std::string complaint;
        const std::unique_ptr<giTriBlock> block(gr_read_tarn_tblock(stream, count, nullptr, complaint));
        EXPECT_EQ(block != nullptr, c.complete) << c.name;
        EXPECT_EQ(complaint, c.complete ? ""
                                        : "byte " + std::to_string(c.text.size() + 1) +
                                              ": the file ends where a finite number of node 4 should be");
        EXPECT_EQ(stream.fail(), !c.complete) << c.name;
        EXPECT_EQ(stream.eof(), c.complete) << "the text behind the block cannot be given back";
    }
}
