#include "tsTarn.h"

#include "dgRef.h"
#include "dgStructure.h"
#include "dgTriangleBlock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>

namespace
{
constexpr double largest = std::numeric_limits<double>::max();

class comma_punctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
};

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}
}

TEST(gr_read_tarn_tblock, reads_one_triangle_however_its_file_is_laid_out)
{
    const std::string file = tarn_file("1", tarn_triangle("1", "1"));
    // The '*' stands where a reader of 100 characters at a time would see the start of a line.
    const std::string starred = std::string(99, 'x') + "*" + std::string(100, '*') + "\n";
    const struct
    {
        const char* name;
        std::string text;
    } cases[] = {
        {"plain", file},
        {"CRLF", replaced(file, "\n", "\r\n")},
        {"long lines", starred + replaced(file, "skipped 2", std::string(1000, 'x'))},
        {"empty lines before the header", "\n\n" + file},
        {"no final line end", file.substr(0, file.size() - 1)},
        {"final carriage return alone", file.substr(0, file.size() - 1) + "\r"},
        {"text behind the star", "*star\n" + file.substr(file.find("1 blocks"))},
        {"text behind the last block", file + "more * text"},
        {"numbers in one line",
         tarn_file("1", tarn_block_head("1 1 3 1 0") + "0 0 0 0 0 1 0.25 0.5 1 0 0 0 1 0 .75 5e-1 0 +2. 0 1 0 0 0.25 1 "
                                                       "1 2 3 rest")},
        {"a number a line", tarn_file("1", "\n\n\n1\n1\n3\n1\n0\n1\n2\n3\n4\n5\n6\n7\n8\n" +
                                               std::string(tarn_three_nodes) + "\t1\v2\f\n\n3")},
        {"a million digits", replaced(file, "0.75", "0.75" + std::string(1000000, '0'))},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.name);
        const tsTarn tarn(c.text);
        ASSERT_EQ(tarn.blocks.size(), 1u);
        EXPECT_EQ(tarn.count, 1);
        EXPECT_EQ(tarn.first, tarn.blocks[0].get());
        EXPECT_EQ(tarn[0].curvatures(), nullptr);
        ASSERT_TRUE(tarn[0].normals() && tarn[0].texture_coordinates());
        EXPECT_EQ((*tarn[0].normals())[1], giVector3(0, 1, 0));
        EXPECT_EQ((*tarn[0].texture_coordinates())[1], giPoint2(0.75, 0.5));
        ASSERT_EQ(tarn[0].node_count(), 3);
        EXPECT_EQ(tarn[0].nodes()[2], giPoint3(0, 2, 0));
        EXPECT_EQ(tarn[0].triangles(), std::vector<giTriangle>{giTriangle(0, 1, 2)});
    }
}

TEST(gr_read_tarn_tblock, only_mode_1_is_normals_and_any_flag_but_0_is_texture)
{
    const struct
    {
        const char *mode, *flag;
        bool normals, texture;
    } cases[] = {{"1", "0", true, false}, {"0", "1", false, true}, {"2", "-3", false, true}, {"-1", "0", false, false}};
    for (const auto& c : cases)
    {
        const tsTarn tarn(tarn_file("1", tarn_triangle(c.mode, c.flag)));
        ASSERT_EQ(tarn.blocks.size(), 1u) << c.mode;
        EXPECT_EQ(tarn[0].normals() != nullptr, c.normals) << c.mode;
        EXPECT_EQ(tarn[0].curvatures() != nullptr, !c.normals) << c.mode;
        EXPECT_EQ(tarn[0].texture_coordinates() != nullptr, c.texture) << c.flag;
    }
}

TEST(gr_read_tarn_tblock, the_lowest_double_as_first_curvature_becomes_the_largest)
{
    const std::string lowest = "-1.7976931348623157e308", near_lowest = "-1.7976931348623155e308";
    const tsTarn tarn(tarn_file("1", tarn_block_head("0 0 3 0 0") + "0 0 0 " + lowest + " 5 6 0 0\n0 0 0 5 " + lowest +
                                         " 6 0 0\n0 0 0 " + near_lowest + " 2 3 0 0\n"));
    ASSERT_EQ(tarn.blocks.size(), 1u);
    const auto& pairs = *tarn[0].curvatures();
    EXPECT_EQ(pairs[0], (giTriBlock::curvature_pair{largest, 5}));
    EXPECT_EQ(pairs[1], (giTriBlock::curvature_pair{5, -largest})) << "the second value is kept as it is";
    EXPECT_EQ(pairs[2][0], std::nextafter(-largest, 0)) << "only the exact value is swapped";
}

TEST(gr_read_tarn_tblock, the_index_takes_a_line_for_five_blocks)
{
    for (const auto& [n, index_lines] : {std::pair(1, 1), {5, 1}, {6, 2}, {10, 2}, {11, 3}})
    {
        std::string blocks;
        for (int number = 0; number < n; ++number)
            blocks += tarn_triangle("1", "0");
        const tsTarn tarn(tarn_file(std::to_string(n), blocks, index_lines));
        EXPECT_EQ(tarn.blocks.size(), static_cast<std::size_t>(n));
    }
}

TEST(gr_read_tarn_tblock, numbers_keep_their_value_wherever_the_pieces_of_the_stream_end)
{
    // Node lines of a prime length slide over every alignment of any piece size.
    const int nodes = 40000;
    std::string text = tarn_file("1", tarn_block_head("1 1 " + std::to_string(nodes) + " 1 0"));
    for (int node = 0; node < nodes; ++node)
        text += "-123.4567e-1 2.5e+3 -7 0 0 1 0.125 3e0  \n";
    const tsTarn tarn(text + "1 2 40000\n");
    ASSERT_EQ(tarn.blocks.size(), 1u);
    for (int node = 0; node < nodes; ++node)
    {
        ASSERT_EQ(tarn[0].nodes()[node], giPoint3(-12.34567, 2500, -7)) << node;
        ASSERT_EQ((*tarn[0].texture_coordinates())[static_cast<std::size_t>(node)], giPoint2(0.125, 3)) << node;
    }
}

TEST(gr_read_tarn_tblock, without_a_list_the_first_block_is_kept_and_the_stream_stands_behind_the_last_in_any_locale)
{
    const std::string file = tarn_file("2", tarn_triangle("1", "1") + tarn_triangle("0", "0"));
    std::istringstream stream(file + file + "rest");
    stream.imbue(std::locale(std::locale::classic(), new comma_punctuation));
    for (int number = 0; number < 2; ++number)
    {
        int count = 0;
        const std::unique_ptr<giTriBlock> block(gr_read_tarn_tblock(stream, count, nullptr));
        ASSERT_TRUE(block && block->normals()) << number;
        EXPECT_EQ(count, 2);
        EXPECT_EQ((*block->texture_coordinates())[1], giPoint2(0.75, 0.5));
    }
    std::string rest;
    EXPECT_TRUE(std::getline(stream, rest));
    EXPECT_EQ(rest, "rest");
}

TEST(gr_read_tarn_tblock, a_structure_gets_a_triangle_block_for_each)
{
    dgRef<dgStructure> structure(new dgStructure);
    std::istringstream stream(tarn_file("2", tarn_triangle("1", "1") + tarn_triangle("0", "0")));
    EXPECT_EQ(gr_read_tarn_tblock(stream, structure.get()), 2);
    ASSERT_EQ(structure->nelements(), 2);
    for (const int number : {0, 1})
    {
        dgTriangleBlock* element = dgTriangleBlock::ut_dynamic_cast(structure->element(number));
        ASSERT_TRUE(element);
        EXPECT_EQ(element->block().normals() != nullptr, number == 0);
    }
    std::istringstream damaged(tarn_file("2", tarn_triangle("1", "1")));
    EXPECT_EQ(gr_read_tarn_tblock(damaged, structure.get()), 0);
    EXPECT_EQ(structure->nelements(), 2) << "nothing is added after a failure";
}
