#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "literalCut.h"
#include "meshes.h"

#include <gtest/gtest.h>

#include <map>

using meshes::at;

namespace
{
constexpr double tolerance = 1e-6;
constexpr unsigned n_seeds = 40;

giPlane random_plane(std::mt19937& random)
{
    std::uniform_real_distribution<double> share(-1, 1);
    const giVector3 normal(share(random), share(random), share(random));
    return giPlane(giPoint3(4 * share(random), 4 * share(random), 2 * share(random)), normal);
}

giTriBlock cut(giTriBlock block, const giPlane& plane, int keep_negative)
{
    grTriCut::cut(block, grTriCutterPlane(plane, tolerance), keep_negative);
    return block;
}

giPlane turned_over(const giPlane& plane)
{
    return giPlane(plane.point(), -plane.normal());
}

void expect_same(const giTriBlock& block, const giTriBlock& expected)
{
    ASSERT_EQ(block.triangles(), expected.triangles());
    ASSERT_EQ(block.node_count(), expected.node_count());
    ASSERT_EQ(block.normals()->size(), at(block.node_count()));
    ASSERT_EQ(block.texture_coordinates()->size(), at(block.node_count()));
    for (int i = 0; i < block.node_count(); ++i)
    {
        ASSERT_TRUE(block.nodes()[i].coincident(expected.nodes()[i], 1e-12)) << "node " << i;
        ASSERT_LE(((*block.normals())[at(i)] - (*expected.normals())[at(i)]).length(), 1e-12) << "normal " << i;
        ASSERT_TRUE((*block.texture_coordinates())[at(i)].coincident((*expected.texture_coordinates())[at(i)], 1e-12));
    }
}

// How often each edge is used, against its direction counted back: all 0 for a closed mesh.
std::map<std::pair<int, int>, int> open_edges(const giTriBlock& block)
{
    std::map<std::pair<int, int>, int> edges;
    for (const giTriangle& t : block.triangles())
        for (int k = 0; k < 3; ++k)
        {
            const int a = t.edge_start(k), b = t.edge_end(k);
            edges[{std::min(a, b), std::max(a, b)}] += a < b ? 1 : -1;
        }
    std::erase_if(edges, [](const auto& edge) { return edge.second == 0; });
    return edges;
}
}

TEST(grTriCutRandom, equals_the_literal_cut)
{
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giPlane plane = random_plane(random);
        for (const giTriBlock& mesh : {meshes::torus(24, 12, seed), meshes::soup(60, 200, seed)})
            for (int keep_negative = 0; keep_negative < 2; ++keep_negative)
                expect_same(cut(mesh, plane, keep_negative), literal_cut(mesh, plane, tolerance, keep_negative));
    }
}

TEST(grTriCutRandom, equals_the_cut_with_a_table_that_has_entries)
{
    // Such a table takes the way over the public tables.
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giPlane plane = random_plane(random);
        const giTriBlock mesh = meshes::soup(60, 200, seed);
        for (int keep_negative = 0; keep_negative < 2; ++keep_negative)
        {
            giTriBlock by_tables = mesh;
            by_tables.nodes().set(mesh.node_count(), giPoint3());
            giTriBlock flat = by_tables;
            meshes::add_features(by_tables);
            meshes::add_features(flat);
            gsTriEdgegrInterNodecoTable cut_edges, with_entry;
            with_entry.set(gsTriEdge(mesh.node_count(), mesh.node_count()), grInterNode(0, mesh.node_count()));
            grTriCut::cut(flat, grTriCutterPlane(plane, tolerance), keep_negative, &cut_edges);
            grTriCut::cut(by_tables, grTriCutterPlane(plane, tolerance), keep_negative, &with_entry);
            EXPECT_EQ(flat, by_tables);
            ASSERT_EQ(cut_edges.count() + 1, with_entry.count());
            for (const auto& [edge, node] : cut_edges)
            {
                ASSERT_TRUE(with_entry.find(edge));
                EXPECT_EQ(with_entry.find(edge)->index(), node.index());
                EXPECT_EQ(with_entry.find(edge)->t(), node.t());
                EXPECT_EQ((*with_entry.find_key(edge))[0], edge[0]);
            }
        }
    }
}

TEST(grTriCutRandom, areas_and_volumes_of_both_halves_add_up)
{
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giPlane plane = random_plane(random);
        const giTriBlock mesh = meshes::torus(24, 12, seed);
        const giTriBlock positive = cut(mesh, plane, 0), negative = cut(mesh, turned_over(plane), 0);
        const giTriBlock both = cut(mesh, plane, 1);
        const double area = meshes::area(mesh);
        EXPECT_NEAR(meshes::area(positive) + meshes::area(negative), area, 1e-12 * area);
        EXPECT_NEAR(meshes::area(both), area, 1e-12 * area);
        const double volume = meshes::volume(mesh, plane.point());
        EXPECT_NEAR(meshes::volume(positive, plane.point()) + meshes::volume(negative, plane.point()), volume,
                    1e-12 * volume);
        EXPECT_GT(meshes::volume(positive, plane.point()), 0);
        for (const giPoint3& p : positive.nodes())
            ASSERT_GT(plane.distance(p), -tolerance);
    }
}

TEST(grTriCutRandom, split_mesh_stays_closed_and_a_half_is_open_in_the_plane_alone)
{
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giPlane plane = random_plane(random);
        const giTriBlock mesh = meshes::torus(24, 12, seed);
        EXPECT_TRUE(open_edges(cut(mesh, plane, 1)).empty());
        const giTriBlock half = cut(mesh, plane, 0);
        const auto open = open_edges(half);
        EXPECT_FALSE(open.empty());
        for (const auto& [edge, uses] : open)
            for (const int node : {edge.first, edge.second})
                ASSERT_LT(std::abs(plane.distance(half.nodes()[node])), tolerance);
    }
}

TEST(grTriCutRandom, pieces_face_as_their_triangle_does)
{
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giPlane plane = random_plane(random);
        // One triangle at a time, so that every piece is one of its.
        const giTriBlock mesh = meshes::soup(30, 50, seed);
        for (const giTriangle& t : mesh.triangles())
        {
            giTriBlock one = mesh;
            one.triangles() = {t};
            const giVector3 whole = meshes::doubled_area(one, t);
            giVector3 sum;
            const giTriBlock pieces = cut(one, plane, 1);
            for (const giTriangle& piece : pieces.triangles())
            {
                sum += meshes::doubled_area(pieces, piece);
                EXPECT_GE(meshes::doubled_area(pieces, piece).dot(whole), -1e-9);
            }
            EXPECT_LE((sum - whole).length(), 1e-12 * (1 + whole.length()));
        }
    }
}

TEST(grTriCutRandom, cutting_again_by_the_same_plane_changes_nothing)
{
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giPlane plane = random_plane(random);
        for (int keep_negative = 0; keep_negative < 2; ++keep_negative)
        {
            const giTriBlock once = cut(meshes::torus(24, 12, seed), plane, keep_negative);
            EXPECT_EQ(cut(once, plane, keep_negative), once);
        }
    }
}

TEST(grTriCutRandom, plane_through_nodes_and_edges_makes_no_slivers)
{
    for (unsigned seed = 0; seed < n_seeds; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const giTriBlock mesh = meshes::torus(24, 12, seed);
        // Through an edge and a further node; through an edge, that is two nodes, alone comes with the third at random.
        const giTriangle& t = mesh.triangles()[random() % mesh.triangles().size()];
        const int other = static_cast<int>(random() % at(mesh.node_count()));
        const giPoint3 &a = mesh.nodes()[t[0]], &b = mesh.nodes()[t[1]], &c = mesh.nodes()[other];
        if ((b - a).cross(c - a).length() < 1e-3)
            continue;
        const giPlane plane(a, (b - a).cross(c - a));
        const giTriBlock both = cut(mesh, plane, 1);
        expect_same(both, literal_cut(mesh, plane, tolerance, true));
        // The nodes that the plane passes through are used as they are: no new node lies on one of them.
        for (int i = mesh.node_count(); i < both.node_count(); ++i)
            for (const giPoint3& p : {a, b, c})
                ASSERT_FALSE(both.nodes()[i].coincident(p, tolerance / 10));
    }
    // Along a whole line of edges: nothing is cut.
    giTriBlock grid = meshes::grid(6, 4);
    const giTriBlock before = grid;
    grTriCut::cut(grid, grTriCutterPlane(giPlane(giPoint3(3, 0, 0), giVector3(1, 0, 0)), tolerance), 1);
    EXPECT_EQ(grid, before);
}
