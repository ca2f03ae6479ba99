#include "gr_smooth_tblock.h"

#include "meshes.h"

#include "giAngleDegrees.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

namespace
{
constexpr double crease_degrees = 30;

std::array<double, 3> place(const giTriBlock& block, int node)
{
    const giPoint3& p = block.nodes()[node];
    return {p.x() + 0.0, p.y() + 0.0, p.z() + 0.0};
}

giVector3 facet(const giTriBlock& block, const giTriangle& t)
{
    return meshes::doubled_area(block, t).unit();
}

// A field of steps and slopes as lists of corners in any order: every triangle has three nodes of its own. Texture
// coordinates have a seam, the first triangle has no area, and one stands on its head.
giTriBlock field(int side, unsigned seed)
{
    std::mt19937 random(seed);
    const std::array<double, 6> heights = {0, -0.0, 0.1, 0.2, 0.3, 2};
    std::vector<giPoint3> nodes;
    for (int i = 0; i <= side; ++i)
        for (int j = 0; j <= side; ++j)
            nodes.emplace_back(i - 1, j - 1, heights[random() % heights.size()]);
    std::vector<giTriangle> triangles = meshes::net(side, side, false);
    std::swap(triangles[7][0], triangles[7][1]);
    std::shuffle(triangles.begin() + 1, triangles.end(), random);
    nodes[meshes::at(triangles[0][2])] =
        giPoint3::interpolate(nodes[meshes::at(triangles[0][0])], nodes[meshes::at(triangles[0][1])], 0.5);
    giTriBlock block;
    std::vector<giPoint2> texture;
    for (std::size_t i = 0; i < triangles.size(); ++i)
    {
        for (int k = 0; k < 3; ++k)
        {
            block.nodes().append(nodes[meshes::at(triangles[i][k])]);
            texture.emplace_back(i % 2 == 0 ? 0 : 0.5, 0);
        }
        const int n = block.node_count();
        block.triangles().emplace_back(n - 3, n - 2, n - 1);
    }
    block.create_texture_coordinates() = texture;
    return block;
}

// What the normal at each corner has to be, found by comparing all triangles at a place with each other.
std::vector<giVector3> plain_normals(const giTriBlock& block)
{
    struct Corner
    {
        std::size_t number;
        giVector3 normal;
        double angle;
        int surface;
    };
    std::map<std::array<double, 3>, std::vector<Corner>> places;
    for (std::size_t i = 0; i < block.triangles().size(); ++i)
        for (int k = 0; k < 3; ++k)
        {
            const giTriangle& t = block.triangles()[i];
            const giPoint3& p = block.nodes()[t[k]];
            const giVector3 next = block.nodes()[t[(k + 1) % 3]] - p, last = block.nodes()[t[(k + 2) % 3]] - p;
            std::vector<Corner>& corners = places[place(block, t[k])];
            corners.push_back({3 * i + meshes::at(k), facet(block, t), next.angle_to(last).radians(),
                               static_cast<int>(corners.size())});
        }
    std::vector<giVector3> normals(3 * block.triangles().size());
    for (auto& [where, corners] : places)
    {
        for (std::size_t round = 0; round < corners.size(); ++round)
            for (Corner& a : corners)
                for (const Corner& b : corners)
                    if (a.normal.angle_to(b.normal).degrees() < crease_degrees && a.normal.length() > 0 &&
                        b.normal.length() > 0)
                        a.surface = std::min(a.surface, b.surface);
        for (const Corner& a : corners)
            for (const Corner& b : corners)
                if (a.surface == b.surface)
                    normals[a.number] += b.normal * b.angle;
    }
    return normals;
}
}

TEST(gr_smooth_tblock, agrees_with_comparing_all_triangles_at_a_place)
{
    // The large ones are worked on in several pieces.
    for (const auto& [side, textured] :
         {std::pair(2, true), std::pair(9, true), std::pair(150, true), std::pair(160, false)})
    {
        giTriBlock raw = field(side, 5);
        if (!textured)
            raw.remove_texture_coordinates();
        const std::vector<giVector3> expected = plain_normals(raw);
        giTriBlock block = raw;
        gr_smooth_tblock(block, giAngleDegrees(crease_degrees));
        ASSERT_EQ(block.triangle_count(), raw.triangle_count());
        // What a node of the result is, and which it has to be one with.
        std::map<int, std::array<double, 7>> meaning;
        std::map<std::array<double, 7>, int> node;
        int wrong = 0;
        for (std::size_t i = 0; i < raw.triangles().size(); ++i)
            for (int k = 0; k < 3; ++k)
            {
                const int now = block.triangles()[i][k], old = raw.triangles()[i][k];
                const giVector3& n = (*block.normals())[meshes::at(now)];
                const double u = textured ? (*raw.texture_coordinates())[meshes::at(old)].x() : 0;
                const std::array<double, 3> p = place(raw, old);
                const bool has_area = facet(raw, raw.triangles()[i]).length() > 0;
                wrong += place(block, now) != p ||
                         (textured && (*block.texture_coordinates())[meshes::at(now)].x() != u) ||
                         (has_area && (n - expected[3 * i + meshes::at(k)].unit()).length() > 1e-6);
                const std::array<double, 7> all = {p[0], p[1], p[2], n.x(), n.y(), n.z(), u};
                wrong += meaning.try_emplace(now, all).first->second != all;
                wrong += node.try_emplace(all, now).first->second != now;
            }
        EXPECT_EQ(wrong, 0) << side;
        EXPECT_EQ(static_cast<int>(meaning.size()), block.node_count()) << side;
    }
}

TEST(gr_smooth_tblock, places_with_very_many_triangles_take_no_ages)
{
    // A steep cone, of which all triangles meet at the tip.
    giTriBlock block;
    block.nodes().append(giPoint3());
    const int count = 100000;
    for (int i = 0; i < count; ++i)
    {
        const double angle = 2 * std::numbers::pi * i / count;
        block.nodes().append(giPoint3(std::cos(angle), std::sin(angle), -5));
    }
    for (int i = 0; i < count; ++i)
        block.triangles().emplace_back(0, 1 + i, 1 + (i + 1) % count);
    gr_smooth_tblock(block, giAngleDegrees(1));
    EXPECT_EQ(block.node_count(), count + 1);
    EXPECT_LT(((*block.normals())[0] - giVector3(0, 0, 1)).length(), 1e-6);
}

TEST(gr_smooth_tblock, drops_what_no_triangle_needs)
{
    const std::vector<giPoint3> nodes = {{9, 9, 9}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 0, 0}};
    giTriBlock smooth = meshes::block(nodes, {{1, 2, 3}, {1, 2, 4}});
    giTriBlock joined = smooth;
    gr_smooth_tblock(smooth, giAngleDegrees(crease_degrees));
    gr_join_tblock(joined);
    for (const giTriBlock* block : {&smooth, &joined})
    {
        EXPECT_EQ(block->triangles(), std::vector<giTriangle>({{0, 1, 2}}));
        EXPECT_EQ(block->node_count(), 3);
    }
    EXPECT_EQ((*smooth.normals())[0], giVector3(0, 0, 1));
    EXPECT_EQ((*joined.normals())[1], giVector3(1, 0, 0));
}

TEST(gr_join_tblock, makes_equal_nodes_one_and_no_others)
{
    const giTriBlock block = meshes::torus(300, 100, 3);
    giTriBlock parted;
    std::vector<giVector3> normals;
    std::vector<giPoint2> texture;
    for (const giTriangle& t : block.triangles())
    {
        for (int k = 0; k < 3; ++k)
        {
            parted.nodes().append(block.nodes()[t[k]]);
            // Normals that are told apart by their third decimal and not by their ninth.
            normals.emplace_back(t[k] % 1000 * 1e-3 + 1e-9 * k, 0, 1);
            texture.push_back((*block.texture_coordinates())[meshes::at(t[k])]);
        }
        const int n = parted.node_count();
        parted.triangles().emplace_back(n - 3, n - 2, n - 1);
    }
    normals[0] = -normals[0];
    texture[1] = giPoint2(7, 7);
    parted.create_normals() = normals;
    parted.create_texture_coordinates() = texture;
    giTriBlock joined = parted;
    gr_join_tblock(joined);
    EXPECT_EQ(joined.node_count(), block.node_count() + 2);
    for (std::size_t i = 0; i < block.triangles().size(); ++i)
        for (int k = 0; k < 3; ++k)
            ASSERT_EQ(place(joined, joined.triangles()[i][k]), place(block, block.triangles()[i][k]));
    EXPECT_LT((*joined.normals())[meshes::at(joined.triangles()[0][0])].z(), 0);
}
