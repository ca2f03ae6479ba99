#include "tarnCommands.h"
#include "tnNumbers.h"

#include <array>

namespace
{
/// The signed volume between the triangles of some blocks and a point, and the vector sum of their areas, which is null
/// for a closed surface. The volume of a closed surface is the same for every point.
struct Extent
{
    double volume = 0;
    giVector3 area;
};

Extent extent(const ms_blocks& blocks, std::size_t first, std::size_t end, const giPoint3& apex)
{
    Extent sum;
    for (std::size_t i = first; i < end; ++i)
        for (const giTriangle& t : blocks[i]->triangles())
        {
            const giPoint3& p = blocks[i]->nodes()[t[0]];
            const giVector3 area = (blocks[i]->nodes()[t[1]] - p).cross(blocks[i]->nodes()[t[2]] - p) / 2;
            sum.volume += area.dot(p - apex) / 3;
            sum.area += area;
        }
    return sum;
}
}

TEST_F(gr_tarn, capped_halves_are_closed_and_add_up)
{
    make_part();
    const ms_blocks part = blocks("part.tarn");
    const giPoint3 apexes[] = {giPoint3(1, 2, 3), giPoint3(300, -200, 100)};
    const double volume = extent(part, 0, part.size(), apexes[0]).volume;
    // Aslant; along the middle, through the axes of hub and holes; through the floor of the pocket; across.
    for (const char* plane : {"0.3,1,0.1,0", "0,1,0,0", "0,0,1,10", "-3,2,40,450", "4,1,0,30"})
    {
        SCOPED_TRACE(plane);
        ASSERT_EQ(run(std::string("cut @part.tarn @cut.tarn --keep-both --cap --plane ") + plane), 0);
        EXPECT_EQ(the_errors.str(), "") << "closed everywhere";
        const ms_blocks cut = blocks("cut.tarn");
        // The caps are the only blocks without texture coordinates; each is the last of its half.
        std::vector<std::size_t> ends{0};
        for (std::size_t i = 0; i < cut.size(); ++i)
            if (!cut[i]->texture_coordinates())
                ends.push_back(i + 1);
        ASSERT_EQ(ends.size(), 3u);
        ASSERT_EQ(ends[2], cut.size());
        double sum = 0;
        for (std::size_t half = 0; half < 2; ++half)
        {
            const Extent near = extent(cut, ends[half], ends[half + 1], apexes[0]);
            const Extent far = extent(cut, ends[half], ends[half + 1], apexes[1]);
            EXPECT_GT(near.volume, 0.02 * volume);
            EXPECT_NEAR(near.volume, far.volume, 1e-6 * volume);
            EXPECT_LT(near.area.length(), 1e-3);
            sum += near.volume;
        }
        EXPECT_NEAR(sum, volume, 1e-6 * volume);
    }
}

TEST_F(gr_tarn, cut_keeps_the_side_that_the_normal_points_to_whatever_its_length)
{
    make_part();
    for (const char* plane : {"2,0,0,20", "2e200,0,0,2e201", "2e-200,0,0,2e-199"})
    {
        ASSERT_EQ(run(std::string("cut @part.tarn @cut.tarn --plane=") + plane), 0) << the_errors.str();
        for (const auto& block : blocks("cut.tarn"))
            EXPECT_GE(block->box().low().x(), 10 - 1e-6) << plane; // 2 x = 20
    }
    ASSERT_EQ(run("cut @part.tarn @part.tarn --plane -1,0,0,-10"), 0) << "over the file that is read";
    for (const auto& block : blocks("part.tarn"))
        EXPECT_LE(block->box().high().x(), 10 + 1e-6);
}

TEST_F(gr_tarn, cap_says_where_the_mesh_is_open)
{
    // One triangle across the plane: nothing to fill.
    the_folder.write("open.tarn", "*\n1\n1\n\n\n\n1 0 3 1 0\n\n\n\n\n\n\n\n\n-1 0 0 0 0 1 0 0\n1 0 0 0 0 1 0 0\n"
                                  "0 5 0 0 0 1 0 0\n1 2 3\n");
    ASSERT_EQ(run("cut @open.tarn @cut.tarn --plane 0,1,0,1 --cap"), 0);
    EXPECT_NE(the_errors.str().find("open in 1 places"), std::string::npos) << the_errors.str();
    EXPECT_EQ(blocks("cut.tarn").size(), 1u);
}

TEST_F(gr_tarn, visibility_lists_blocks_and_writes_images_and_classes)
{
    make_part();
    ASSERT_EQ(run("visibility @part.tarn --direction 0,0,1e200 --size 256 --images @images --classes @classes.tarn"), 0)
        << the_errors.str();
    std::istringstream lines(the_out.str());
    std::array<std::string, 8> line;
    for (std::string& text : line)
        std::getline(lines, text);
    // The pocket is seen from above alone, the plate from both sides.
    EXPECT_NE(line[2].find("both"), std::string::npos) << the_out.str();
    EXPECT_NE(line[3].find("upper"), std::string::npos) << the_out.str();
    for (const char* name : {"overview_upper.png", "overview_lower.png", "overview_upper_coloured.png"})
        EXPECT_GT(the_folder.text(std::string("images/") + name).size(), 100u) << name;
    const ms_blocks part = blocks("part.tarn"), sorted = blocks("classes.tarn");
    ASSERT_EQ(sorted.size(), 4u);
    int triangles = 0;
    for (const auto& block : part)
        triangles += block->triangle_count();
    for (const auto& block : sorted)
        triangles -= block->triangle_count();
    EXPECT_EQ(triangles, 0);
    EXPECT_GE(sorted[0]->triangle_count(), part[1]->triangle_count());
}

TEST_F(gr_tarn, classes_of_blocks_without_normals_get_those_of_their_triangles)
{
    // A square in the plane x = 0 of curvature pairs, seen from both sides.
    the_folder.write("flat.tarn", "*\n1\n1\n\n\n\n0 0 4 2 0\n\n\n\n\n\n\n\n\n0 0 0 0 0 0 0 0\n0 1 0 0 0 0 0 0\n"
                                  "0 1 1 0 0 0 0 0\n0 0 1 0 0 0 0 0\n1 2 3\n1 3 4\n");
    ASSERT_EQ(run("visibility @flat.tarn --direction 1,0,0 --size 64 --classes @classes.tarn"), 0) << the_errors.str();
    const ms_blocks sorted = blocks("classes.tarn");
    ASSERT_EQ(sorted[3]->node_count(), 4) << the_out.str();
    for (const giVector3& normal : *sorted[3]->normals())
        EXPECT_EQ(normal, giVector3(1, 0, 0));
}

TEST(tnNumbers, lists_have_just_so_many_finite_numbers)
{
    std::vector<double> numbers;
    ASSERT_TRUE(tn_read_numbers("1,-2.5, 3e2", 3, numbers));
    EXPECT_EQ(numbers, (std::vector<double>{1, -2.5, 300}));
    for (const char* text : {"", "1,2", "1,2,3,4", "1,2,3,", "1;2;3", "1,2,inf", "1,2,nan", "1,2,3x"})
        EXPECT_FALSE(tn_read_numbers(text, 3, numbers)) << text;
}
