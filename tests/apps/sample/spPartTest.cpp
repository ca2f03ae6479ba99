#include "spPart.h"

#include <gtest/gtest.h>

#include <array>
#include <map>

namespace
{
using blocks = std::vector<std::unique_ptr<giTriBlock>>;

giVector3 area_vector(const giTriBlock& block, const giTriangle& t)
{
    const giPoint3& p = block.nodes()[t[0]];
    return (block.nodes()[t[1]] - p).cross(block.nodes()[t[2]] - p) * 0.5;
}

int total_triangles(const blocks& part)
{
    int total = 0;
    for (const auto& block : part)
        total += block->triangle_count();
    return total;
}

// Numbers every position of all blocks, equal positions with the same number.
class weld
{
public:
    int number(const giPoint3& p)
    {
        return the_numbers.emplace(std::array<double, 3>{p.x(), p.y(), p.z()}, static_cast<int>(the_numbers.size()))
            .first->second;
    }

private:
    std::map<std::array<double, 3>, int> the_numbers;
};
}

TEST(spPart, every_edge_is_shared_by_two_triangles_in_opposite_directions)
{
    const blocks part = sp_make_part(40000);
    weld positions;
    std::map<std::pair<int, int>, int> edges;
    for (const auto& block : part)
        for (const giTriangle& t : block->triangles())
            for (int edge = 0; edge < 3; ++edge)
                ++edges[{positions.number(block->nodes()[t.edge_start(edge)]),
                         positions.number(block->nodes()[t.edge_end(edge)])}];
    int open = 0, repeated = 0;
    for (const auto& [edge, uses] : edges)
    {
        open += edges.count({edge.second, edge.first}) == 0;
        repeated += uses != 1;
    }
    EXPECT_EQ(open, 0);
    EXPECT_EQ(repeated, 0);
}

TEST(spPart, normals_are_of_length_1_and_agree_with_the_orientation)
{
    const blocks part = sp_make_part(40000);
    for (std::size_t number = 0; number < part.size(); ++number)
    {
        const giTriBlock& block = *part[number];
        ASSERT_TRUE(block.normals() && block.texture_coordinates());
        ASSERT_EQ(block.normals()->size(), static_cast<std::size_t>(block.node_count()));
        for (const giVector3& normal : *block.normals())
            ASSERT_NEAR(normal.length(), 1, 1e-9);
        int thin = 0, turned = 0;
        for (const giTriangle& t : block.triangles())
        {
            const giVector3 area = area_vector(block, t);
            thin += area.length() < 1e-9;
            // The coarsest arcs have steps of 22.5 degrees, whose cosine is above 0.9.
            for (int vertex = 0; vertex < 3; ++vertex)
                turned += area.unit().dot((*block.normals())[static_cast<std::size_t>(t[vertex])]) < 0.9;
        }
        EXPECT_EQ(thin, 0) << "block " << number;
        EXPECT_EQ(turned, 0) << "block " << number;
    }
}

TEST(spPart, encloses_the_volume_of_its_features)
{
    // The signed volume from the divergence theorem, against prisms and cylinders worked out by hand; fillets and
    // chamfers are left out and make up far less than the tolerance.
    const double pi = 3.14159265358979323846;
    const double plate = (180 * 120 - (4 - pi) * 14 * 14) * 24.0;
    const double pocket = (100 * 80 - (4 - pi) * 12 * 12) * 14.0;
    const double hub = pi * 17 * 17 * 24 - pi * 9 * 9 * 34;
    const double bosses = 2 * (pi * 13 * 13 * 14 - pi * 6 * 6 * 24);
    const double slot = (20 * 12 + pi * 6 * 6) * 24.0;
    const double holes = 6 * pi * 2.5 * 2.5 * 10 + 4 * pi * (6.5 * 6.5 * 9 + 3.6 * 3.6 * 15);
    const double screws = 4 * pi * (5.4 * 5.4 * 8 + 3 * 3 * 21) - 4 * 25 * 0.866 * 4;
    double volume = 0;
    for (const auto& block : sp_make_part(40000))
        for (const giTriangle& t : block->triangles())
            volume += block->nodes()[t[0]].vector().dot(area_vector(*block, t)) / 3;
    const double expected = plate - pocket + hub + bosses - slot - holes + screws;
    EXPECT_NEAR(volume / expected, 1, 0.01);
}

TEST(spPart, comes_near_the_number_of_triangles_asked_for)
{
    for (const int wanted : {30000, 200000, 600000})
        EXPECT_NEAR(total_triangles(sp_make_part(wanted)), wanted, 0.05 * wanted);
    const blocks first = sp_make_part(30000), second = sp_make_part(30000);
    ASSERT_EQ(first.size(), 6u);
    for (std::size_t number = 0; number < first.size(); ++number)
        EXPECT_TRUE(*first[number] == *second[number]) << number;
}
