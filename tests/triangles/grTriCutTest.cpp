#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "meshes.h"

#include "giPlane.h"
#include "gsTriUtils.h"

#include <gtest/gtest.h>

#include <limits>

using meshes::at;

namespace
{
// The plane x = value, positive towards higher x.
grTriCutterPlane at_x(double value, double tolerance = 1e-6)
{
    return grTriCutterPlane(giPlane(giPoint3(value, 0, 0), giVector3(1, 0, 0)), tolerance);
}

giTriBlock triangle(const giPoint3& a, const giPoint3& b, const giPoint3& c)
{
    giTriBlock block;
    for (const giPoint3& p : {a, b, c})
        block.nodes().append(p);
    block.triangles().emplace_back(0, 1, 2);
    return block;
}
}

TEST(grTriCut, block_on_one_side_stays_or_goes_as_a_whole)
{
    const giTriBlock grid = meshes::grid(3, 2);
    const struct
    {
        const char* name;
        double x;
        int keep_negative, stays;
    } cases[] = {{"positive side", -1, 0, 1},
                 {"positive side, both kept", -1, 1, 1},
                 {"negative side", 4, 0, 0},
                 {"negative side, both kept", 4, 1, 1},
                 {"touching from the positive side", 0, 0, 1},
                 {"touching from the negative side", 3, 0, 0}};
    for (const auto& c : cases)
    {
        giTriBlock block = grid;
        grTriCut::cut(block, at_x(c.x), c.keep_negative);
        giTriBlock empty;
        empty.create_normals();
        empty.create_texture_coordinates();
        EXPECT_EQ(block, c.stays ? grid : empty) << c.name;
    }
}

TEST(grTriCut, nodes_that_no_triangle_uses_go_even_when_nothing_is_cut)
{
    giTriBlock block = triangle({1, 0, 0}, {2, 0, 0}, {1, 1, 0});
    block.nodes().set(3, giPoint3(5, 5, 5));
    meshes::add_features(block);
    grTriCut::cut(block, at_x(0), 0);
    EXPECT_EQ(block.node_count(), 3);
    EXPECT_EQ(block.normals()->size(), 3u);
    EXPECT_EQ(block.triangles(), std::vector<giTriangle>{giTriangle(0, 1, 2)});
}

TEST(grTriCut, triangle_with_a_vertex_on_the_plane_gives_one_piece_a_side)
{
    const giTriBlock original = triangle({0, 0, 0}, {1, 1, 0}, {-1, 1, 0});
    giTriBlock both = original, positive = original;
    grTriCut::cut(both, at_x(0), 1);
    EXPECT_EQ(both.triangles(), (std::vector<giTriangle>{{0, 1, 3}, {0, 3, 2}}));
    EXPECT_EQ(both.nodes()[3], giPoint3(0, 1, 0));
    grTriCut::cut(positive, at_x(0), 0);
    EXPECT_EQ(positive.triangles(), (std::vector<giTriangle>{{0, 1, 2}}));
    EXPECT_EQ(positive.nodes()[2], giPoint3(0, 1, 0));
}

TEST(grTriCut, quadrilateral_is_split_along_the_same_diagonal_whichever_side_it_lies_on)
{
    // r0 the lone vertex, X on (r0, r1), Y on (r2, r0): (r0, X, Y), (X, r1, Y), (Y, r1, r2). X gets its number first or
    // second as its edge is visited.
    const giTriBlock lone_negative = triangle({-1, 0, 0}, {1, 0, 0}, {1, 2, 0});
    const giTriBlock lone_positive = triangle({1, 0, 0}, {-1, 0, 0}, {-1, 2, 0});
    giTriBlock block = lone_negative;
    grTriCut::cut(block, at_x(0), 1);
    EXPECT_EQ(block.nodes()[3], giPoint3(0, 1, 0)); // Y: edge 1 comes before edge 2
    EXPECT_EQ(block.nodes()[4], giPoint3(0, 0, 0)); // X
    EXPECT_EQ(block.triangles(), (std::vector<giTriangle>{{4, 1, 3}, {3, 1, 2}, {0, 4, 3}}));
    block = lone_positive;
    grTriCut::cut(block, at_x(0), 1);
    EXPECT_EQ(block.triangles(), (std::vector<giTriangle>{{0, 4, 3}, {4, 1, 3}, {3, 1, 2}}));
}

TEST(grTriCut, triangles_in_the_plane_go_even_when_both_sides_are_kept)
{
    giTriBlock block = triangle({0, 0, 0}, {0, 1, 0}, {0, 0, 1});
    grTriCut::cut(block, at_x(0), 1);
    EXPECT_EQ(block.triangle_count(), 0);
    EXPECT_EQ(block.node_count(), 0);
}

TEST(grTriCut, being_on_the_plane_is_strict)
{
    const struct
    {
        const char* name;
        double x, tolerance;
        grZone zone;
    } cases[] = {{"inside the tolerance", 0.4999, 0.5, grON_ZONE},
                 {"at the tolerance", 0.5, 0.5, grPOSITIVE_ZONE},
                 {"at the tolerance below", -0.5, 0.5, grNEGATIVE_ZONE},
                 {"in the plane without a tolerance", 0, 0, grNEGATIVE_ZONE},
                 {"no number", std::numeric_limits<double>::quiet_NaN(), 0.5, grNEGATIVE_ZONE}};
    for (const auto& c : cases)
        EXPECT_EQ(at_x(0, c.tolerance).zone_node(giPoint3(c.x, 7, 8)), c.zone) << c.name;
}

TEST(grTriCut, neighbours_share_the_new_node_of_their_edge)
{
    giTriBlock block = meshes::grid(4, 4);
    gsTriEdgegrInterNodecoTable cut_edges;
    grTriCut::cut(block, at_x(1.5), 1, &cut_edges);
    // 5 lines along x and the 4 diagonals between them cross the plane.
    EXPECT_EQ(cut_edges.count(), 9);
    EXPECT_EQ(block.node_count(), 25 + 9);
    for (const auto& [edge, node] : cut_edges)
    {
        ASSERT_GE(node.index(), 25);
        const giPoint3 between = giPoint3::interpolate(block.nodes()[edge[0]], block.nodes()[edge[1]], node.t());
        EXPECT_TRUE(between.coincident(block.nodes()[node.index()], 1e-12));
    }
}

TEST(grTriCut, edge_table_of_the_caller_names_nodes_as_they_were_before_the_removal)
{
    giTriBlock block = triangle({-1, 0, 0}, {1, 0, 0}, {1, 2, 0});
    gsTriEdgegrInterNodecoTable cut_edges;
    grTriCut::cut(block, at_x(0.5), 0, &cut_edges);
    ASSERT_EQ(cut_edges.count(), 2);
    ASSERT_TRUE(cut_edges.find(gsTriEdge(0, 1)));
    EXPECT_EQ(cut_edges.find(gsTriEdge(1, 0))->index(), 4);
    EXPECT_DOUBLE_EQ(cut_edges.find(gsTriEdge(0, 1))->t(), 0.75); // from node 0
    EXPECT_EQ(cut_edges.find(gsTriEdge(0, 2))->index(), 3);
    EXPECT_EQ((*cut_edges.find_key(gsTriEdge(0, 2)))[0], 2); // edge 1 of the triangle runs from vertex 2 to 0
    EXPECT_EQ(block.node_count(), 4);
}

TEST(grTriCut, nodes_in_the_callers_edge_table_are_used_as_they_are)
{
    giTriBlock block = triangle({-1, 0, 0}, {1, 0, 0}, {1, 2, 0});
    block.nodes().set(3, giPoint3(0.25, 0, 0));
    meshes::add_features(block);
    gsTriEdgegrInterNodecoTable cut_edges;
    cut_edges.set(gsTriEdge(0, 1), grInterNode(0.625, 3));
    grTriCut::cut(block, at_x(0), 0, &cut_edges);
    EXPECT_EQ(cut_edges.count(), 2);
    EXPECT_EQ(block.triangles(), (std::vector<giTriangle>{{2, 0, 3}, {3, 0, 1}}));
    EXPECT_EQ(block.nodes()[2], giPoint3(0.25, 0, 0));
    EXPECT_EQ(block.nodes()[3], giPoint3(0, 1, 0));
    // Half way from node 2 at (1, 2) to node 0 at (-1, 0), and 0.625 of the way from node 0 to node 1 at (1, 0).
    EXPECT_TRUE((*block.texture_coordinates())[3].coincident(giPoint2(0, 0.2), 1e-12));
    EXPECT_TRUE((*block.texture_coordinates())[2].coincident(giPoint2(0.025, 0), 1e-12));
}

TEST(grTriCut, invalid_nodes_in_the_callers_edge_table_are_made)
{
    const giTriBlock original = []
    {
        giTriBlock block = triangle({-1, 0, 0}, {1, 0, 0}, {1, 2, 0});
        meshes::add_features(block);
        return block;
    }();
    giTriBlock expected = original, block = original;
    grTriCut::cut(expected, at_x(0.5), 1);
    gsTriEdgegrInterNodecoTable cut_edges;
    cut_edges.set(gsTriEdge(1, 0), grInterNode()); // against the direction of the triangle
    cut_edges.set(gsTriEdge(1, 2), grInterNode()); // not cut
    grTriCut::cut(block, at_x(0.5), 1, &cut_edges);
    EXPECT_EQ(block, expected);
    EXPECT_EQ((*cut_edges.find_key(gsTriEdge(0, 1)))[0], 0);
    EXPECT_DOUBLE_EQ(cut_edges.find(gsTriEdge(0, 1))->t(), 0.75);
}

TEST(grTriCut, values_of_new_nodes_lie_between_those_of_the_ends_and_equal_ends_are_exact)
{
    giTriBlock block = triangle({-1, 0, 0}, {1, 0, 0}, {1, 2, 0});
    const giVector3 odd(0.1, 0.2, 0.3);
    block.create_normals() = {odd, odd, giVector3(0, 0, 1)};
    block.create_texture_coordinates() = {giPoint2(1. / 3, 1. / 7), giPoint2(1. / 3, 1. / 7 + 1e-6), giPoint2(1, 1)};
    block.create_curvatures() = {{2, 4}, {4, 8}, {std::numeric_limits<double>::max(), 0}};
    grTriCut::cut(block, at_x(0.5), 1);
    // Node 3 lies on the edge from node 2 to node 0, node 4 on that from node 0 to node 1; t is 1/4 and 3/4.
    EXPECT_EQ((*block.normals())[4], odd);
    EXPECT_EQ((*block.texture_coordinates())[4], giPoint2(1. / 3, 1. / 7)); // that of node 0: nearer than 1e-5
    EXPECT_TRUE(((*block.normals())[3] - giVector3(0.025, 0.05, 0.825)).length() < 1e-12);
    EXPECT_DOUBLE_EQ((*block.curvatures())[4][0], 3.5);
    EXPECT_DOUBLE_EQ((*block.curvatures())[4][1], 7);
    EXPECT_EQ((*block.curvatures())[3][0], std::numeric_limits<double>::max());
}

TEST(grTriCut, edge_that_runs_along_the_plane_is_given_a_copy_of_its_first_node)
{
    // 1e6 long and 0.02 across the plane: an angle of about 1.1e-6 degrees.
    giTriBlock block = triangle({-0.01, 0, 0}, {0.01, 1e6, 0}, {1, 0, 1});
    gsTriEdgegrInterNodecoTable cut_edges;
    grTriCut::cut(block, at_x(0), 1, &cut_edges);
    const grInterNode* node = cut_edges.find(gsTriEdge(0, 1));
    ASSERT_TRUE(node);
    EXPECT_EQ(node->t(), 0);
    EXPECT_EQ(block.nodes()[node->index()], giPoint3(-0.01, 0, 0));
    EXPECT_EQ(block.triangle_count(), 3);
}

TEST(grTriCut, coordinates_that_are_no_finite_numbers_do_no_harm)
{
    const double odd[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max()};
    for (const double value : odd)
        for (int keep_negative = 0; keep_negative < 2; ++keep_negative)
        {
            giTriBlock block = meshes::torus(12, 8, 5);
            for (int node = 0; node < block.node_count(); node += 7)
                block.nodes().set(node, giPoint3(node % 2 ? value : 0, value, node % 3 ? 1 : value));
            grTriCut::cut(block, at_x(0.3), keep_negative);
            EXPECT_GT(block.triangle_count(), 0);
            EXPECT_EQ(block.normals()->size(), at(block.node_count()));
            for (const giTriangle& t : block.triangles())
                for (int k = 0; k < 3; ++k)
                    ASSERT_TRUE(t[k] >= 0 && t[k] < block.node_count());
        }
}

namespace
{
// Leaves every zone to the test; intersects half way.
class FixedCutter : public grTriCutter
{
public:
    explicit FixedCutter(std::vector<grZone> zones) : grTriCutter(0), the_zones(std::move(zones)) {}
    grZone zone_node(const giPoint3& p) const override { return the_zones[static_cast<std::size_t>(p.x())]; }
    void intersect_edge(const giPoint3& p, const giPoint3& q, double, const giAngle&, int& status, double& t,
                        giPoint3& point) const override
    {
        status = 1;
        t = the_t;
        point = giPoint3::interpolate(p, q, t);
    }
    double the_t = 0.5;

private:
    std::vector<grZone> the_zones; // by the x of the node
};
}

TEST(grTriCut, other_cutters_decide_where_edges_are_cut)
{
    FixedCutter cutter({grPOSITIVE_ZONE, grNEGATIVE_ZONE, grPOSITIVE_ZONE});
    const giTriBlock original = triangle({0, 0, 0}, {1, 0, 0}, {2, 0, 1});
    giTriBlock block = original;
    grTriCut::cut(block, cutter, 0);
    EXPECT_EQ(block.triangle_count(), 2);
    EXPECT_EQ(block.node_count(), 4);
    // Both bounds are included.
    for (const double t : {0.0, 1.0})
    {
        cutter.the_t = t;
        block = original;
        gsTriEdgegrInterNodecoTable cut_edges;
        grTriCut::cut(block, cutter, 1, &cut_edges);
        EXPECT_EQ(cut_edges.find(gsTriEdge(0, 1))->t(), t);
    }
    cutter.the_t = 1.001;
    block = original;
    gsTriEdgegrInterNodecoTable cut_edges;
    grTriCut::cut(block, cutter, 1, &cut_edges);
    EXPECT_EQ(cut_edges.find(gsTriEdge(0, 1))->t(), 0);
    EXPECT_EQ(block.triangle_count(), 3);
}

TEST(grTriCut, triangle_with_three_cut_edges_gives_no_pieces_and_goes)
{
    const FixedCutter cutter({grPOSITIVE_ZONE, grNEGATIVE_ZONE, grUNDETERMINED_ZONE});
    giTriBlock block = triangle({0, 0, 0}, {1, 0, 0}, {2, 0, 1});
    gsTriEdgegrInterNodecoTable cut_edges;
    grTriCut::cut(block, cutter, 1, &cut_edges);
    EXPECT_EQ(cut_edges.count(), 3);
    EXPECT_EQ(block.triangle_count(), 0);
    EXPECT_EQ(block.node_count(), 0);
}
