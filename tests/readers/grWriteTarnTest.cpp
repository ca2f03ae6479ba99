#include "gr_write_tarn_tblock.h"
#include "tsTarn.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
// Numbers that a fixed number of digits would not bring back.
giTriBlock awkward_block()
{
    const double tiny = std::numeric_limits<double>::denorm_min(), largest = std::numeric_limits<double>::max();
    giTriBlock block;
    block.nodes().set(0, giPoint3(0.1, 1.0 / 3, -0.0));
    block.nodes().set(1, giPoint3(tiny, largest, 1e22));
    block.nodes().set(2, giPoint3(-123456789.123456789, 5e-324, 2));
    block.triangles() = {giTriangle(0, 1, 2), giTriangle(2, 1, 0)};
    return block;
}

std::string written(const std::vector<const giTriBlock*>& blocks, int expected)
{
    std::ostringstream stream;
    EXPECT_EQ(gr_write_tarn_tblock(stream, blocks.data(), static_cast<int>(blocks.size())), expected);
    return stream.str();
}
}

TEST(gr_write_tarn_tblock, every_number_is_read_back_exactly)
{
    giTriBlock with_normals = awkward_block(), with_curvatures = awkward_block(), nodes_only, no_nodes;
    with_normals.create_normals()[1] = giVector3(0.1, 0.2, 0.3).unit();
    with_normals.create_texture_coordinates()[2] = giPoint2(1.0 / 7, -1e-7);
    with_curvatures.create_curvatures()[1] = {std::numeric_limits<double>::max(), 0.7};
    nodes_only.nodes().set(0, giPoint3(1, 2, 3));
    nodes_only.create_normals();
    no_nodes.create_normals();

    // Six blocks take two lines of index; the empty one stands first and last to show that it ends properly.
    const std::vector<const giTriBlock*> blocks = {&no_nodes,        &with_normals, &nodes_only,
                                                   &with_curvatures, &with_normals, &no_nodes};
    const std::string text = written(blocks, 6);
    EXPECT_EQ(text.find(" \n"), std::string::npos) << "no line ends in a blank";
    const tsTarn tarn(text);
    ASSERT_EQ(tarn.blocks.size(), blocks.size());
    for (std::size_t number = 0; number < blocks.size(); ++number)
        EXPECT_EQ(tarn[number], *blocks[number]) << "block " << number;
}

TEST(gr_write_tarn_tblock, a_block_without_vector_values_is_read_with_no_curvature)
{
    const giTriBlock block = awkward_block();
    const tsTarn tarn(written({&block}, 1));
    ASSERT_EQ(tarn.blocks.size(), 1u);
    EXPECT_EQ(tarn[0].nodes(), block.nodes());
    EXPECT_EQ(tarn[0].normals(), nullptr);
    ASSERT_NE(tarn[0].curvatures(), nullptr);
    EXPECT_EQ((*tarn[0].curvatures())[2][0], std::numeric_limits<double>::max());
}

TEST(gr_write_tarn_tblock, what_could_not_be_read_back_is_refused_before_anything_is_written)
{
    giTriBlock infinite = awkward_block(), dangling = awkward_block(), short_normals = awkward_block();
    infinite.nodes().set(1, giPoint3(0, std::numeric_limits<double>::infinity(), 0));
    dangling.triangles().push_back(giTriangle(0, 1, 3));
    short_normals.create_normals().pop_back();
    const giTriBlock good = awkward_block();
    for (const giTriBlock* bad : {&infinite, &dangling, &short_normals, static_cast<giTriBlock*>(nullptr)})
        EXPECT_EQ(written({&good, bad}, 0), "");
    EXPECT_EQ(written({}, 0), "");
}
