#include "grBorkedTri.h"
#include "grNodeLink.h"
#include "grSpanEdge.h"
#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "meshes.h"

#include "giPlane.h"

#include <gtest/gtest.h>

using meshes::at;

namespace
{
const grTriCutterPlane at_half(giPlane(giPoint3(0.5, 0, 0), giVector3(1, 0, 0)), 0.1); // positive towards higher x
}

TEST(grTriCutTables, caller_is_told_of_cut_edges_and_those_that_he_knows_are_used)
{
    const grTriCutterPlane cutter(giPlane(giPoint3(0.1, 0.2, 0.3), giVector3(1, 2, 3)), 1e-6);
    for (const int keep_negative : {0, 1})
        for (unsigned seed = 0; seed < 20; ++seed)
        {
            SCOPED_TRACE(seed);
            const giTriBlock mesh = meshes::torus(24, 12, seed);
            giTriBlock expected = mesh, block = mesh;
            gsTriEdgegrInterNodecoTable cuts, known;
            grTriCut::cut(expected, cutter, keep_negative, &cuts);
            ASSERT_GT(cuts.count(), 50);
            // Half of the cut edges have their nodes in the block beforehand, the others an invalid one.
            for (int i = 0; i < cuts.count(); ++i)
                block.nodes().append(giPoint3());
            block.normals()->resize(at(block.node_count()));
            block.texture_coordinates()->resize(at(block.node_count()));
            for (const auto& [edge, node] : cuts)
            {
                ASSERT_GE(node.index(), mesh.node_count());
                ASSERT_LT(node.index(), block.node_count());
                const giPoint3 p = giPoint3::interpolate(mesh.nodes()[edge[0]], mesh.nodes()[edge[1]], node.t());
                EXPECT_NEAR(cutter.plane().distance(p), 0, 1e-9); // t belongs to the direction of the key
                block.nodes().set(node.index(), p);
                if (node.index() % 2)
                    known.set(edge, node);
                else
                    known.set(gsTriEdge(edge[1], edge[0]), grInterNode());
            }
            known.set(gsTriEdge(0, mesh.node_count() / 2), grInterNode()); // not cut
            const int before = block.node_count();
            grTriCut::cut(block, cutter, keep_negative, &known);
            ASSERT_EQ(block.triangle_count(), expected.triangle_count());
            ASSERT_EQ(block.node_count(), expected.node_count());
            for (int i = 0; i < block.triangle_count(); ++i)
                for (int k = 0; k < 3; ++k)
                {
                    const int a = block.triangles()[at(i)][k], b = expected.triangles()[at(i)][k];
                    ASSERT_TRUE(block.nodes()[a].coincident(expected.nodes()[b], 1e-12));
                    ASSERT_LE(((*block.normals())[at(a)] - (*expected.normals())[at(b)]).length(), 1e-12);
                    ASSERT_TRUE((*block.texture_coordinates())[at(a)].coincident(
                        (*expected.texture_coordinates())[at(b)], 1e-12));
                }
            for (const auto& [edge, node] : cuts)
            {
                EXPECT_EQ(known.find(edge)->t(), node.t());
                EXPECT_EQ((*known.find_key(edge))[0], edge[0]);
                EXPECT_EQ(known.find(edge)->index() < before, node.index() % 2 == 1);
            }
        }
}

TEST(grTriCutTables, zones_and_edges_are_found_in_order)
{
    giTriBlock block = meshes::grid(2, 1); // nodes 0 and 1 at x = 0, 2 and 3 at 1, 4 and 5 at 2
    block.triangles() = {giTriangle(0, 2, 3), giTriangle(0, 3, 1)};
    intgrZonecoTable node_zones;
    gsTriEdgegrZonecoTable edge_zones, set_zones;
    grTriCut::zone_nodes(block.triangles(), block.nodes(), at_half, node_zones);
    EXPECT_EQ(node_zones.count(), 4);
    grTriCut::zone_edges(block.triangles(), node_zones, edge_zones);
    EXPECT_EQ(edge_zones.count(), 5);
    std::vector<gsTriEdge> edges;
    grTriCut::get_edges(block.triangles()[0], grSPANNING_ZONE, edge_zones, edges);
    ASSERT_EQ(edges, (std::vector<gsTriEdge>{{3, 0}, {0, 2}})); // edge 1 and edge 2
    EXPECT_EQ(edges[0][0], 3);
    gsTriEdgecoSet set;
    set.add(gsTriEdge(1, 3));
    grTriCut::zone_edges(set, node_zones, set_zones);
    EXPECT_EQ(*set_zones.find(gsTriEdge(3, 1)), grSPANNING_ZONE);
    gsTriEdgegrInterNodecoTable table;
    table.set(gsTriEdge(1, 3), grInterNode(0.5, 6));
    table.set(gsTriEdge(2, 3), grInterNode(0.5, 7));
    edges.clear();
    grTriCut::get_edges(table, grSPANNING_ZONE, edge_zones, edges);
    EXPECT_EQ(edges, std::vector<gsTriEdge>{gsTriEdge(1, 3)});
}

TEST(grTriCutTables, triangles_cut_one_by_one_share_nodes_and_edges_that_are_not_met_are_copied)
{
    giTriBlock block = meshes::grid(1, 1); // nodes 0 (0, 0), 1 (0, 1), 2 (1, 0) and 3 (1, 1)
    intgrZonecoTable node_zones;
    gsTriEdgegrZonecoTable edge_zones;
    grTriCut::zone_nodes(block.triangles(), block.nodes(), at_half, node_zones);
    grTriCut::zone_edges(block.triangles(), node_zones, edge_zones);
    gsTriEdgegrInterNodecoTable shared;
    std::vector<giTriangle> positive, negative;
    for (const giTriangle& t : std::vector<giTriangle>(block.triangles()))
        grTriCut::cut_triangle(t, at_half, edge_zones, block.nodes(), shared, positive, negative);
    EXPECT_EQ(shared.count(), 3);
    EXPECT_EQ(block.node_count(), 7);
    block.triangles() = positive;
    EXPECT_DOUBLE_EQ(meshes::area(block), 0.5);

    EXPECT_TRUE(grTriCut::intersect_edge(gsTriEdge(0, 1), at_half, block.nodes()).invalid()); // along the plane
    EXPECT_EQ(block.node_count(), 7);
    const grInterNode at_start = grTriCut::intersect_edge(gsTriEdge(4, 0), at_half, block.nodes());
    EXPECT_EQ(at_start.index(), 7);
    EXPECT_EQ(at_start.t(), 0);
    edge_zones.set(gsTriEdge(0, 1), grSPANNING_ZONE);
    edge_zones.set(gsTriEdge(1, 3), grPOSITIVE_ZONE);
    grTriCut::cut_triangle(giTriangle(0, 3, 1), at_half, edge_zones, block.nodes(), shared, positive, negative);
    ASSERT_EQ(block.node_count(), 9);
    EXPECT_EQ(block.nodes()[8], block.nodes()[1]); // edge 1 of the triangle runs from node 1 to node 0
}

TEST(grTriCutTables, features_are_interpolated_in_the_direction_of_the_tables_key_and_reordered)
{
    gsTriEdgegrInterNodecoTable table;
    table.set(gsTriEdge(1, 0), grInterNode(0.25, 4));
    table.set(gsTriEdge(0, 2), grInterNode());
    std::vector<giPoint2> tus{giPoint2(0, 0), giPoint2(8, 4)}, listed = tus;
    std::vector<giVector3> normals{giVector3(0, 0, 0), giVector3(8, 4, 0)}, listed_normals = normals;
    grTriCut::interpolate_point_feature(tus, table);
    grTriCut::interpolate_vector_feature(normals, table);
    grTriCut::interpolate_point_feature(listed, table, {gsTriEdge(0, 1), gsTriEdge(5, 6)});
    grTriCut::interpolate_vector_feature(listed_normals, table, {gsTriEdge(0, 1), gsTriEdge(5, 6)});
    ASSERT_EQ(tus.size(), 5u);
    EXPECT_EQ(tus[4], giPoint2(6, 3));
    EXPECT_EQ(normals.at(4), giVector3(6, 3, 0));
    EXPECT_EQ(listed, tus);
    EXPECT_EQ(listed_normals, normals);
    intintcoTable map;
    map.set(4, 0);
    map.set(1, 1);
    grTriCut::reorder_point_feature(tus, map);
    grTriCut::reorder_vector_feature(normals, map);
    EXPECT_EQ(tus, (std::vector<giPoint2>{giPoint2(6, 3), giPoint2(8, 4)}));
    EXPECT_EQ(normals, (std::vector<giVector3>{giVector3(6, 3, 0), giVector3(8, 4, 0)}));
    EXPECT_DOUBLE_EQ(grTriCut::get_in_eps(1), 1e-5);
    EXPECT_DOUBLE_EQ(grTriCut::get_in_eps(1e-6), 5e-8);
}

TEST(grTriCutTables, records_of_a_cut_know_when_they_are_empty_and_compare_without_direction)
{
    grInterNode node(0.25, 0);
    EXPECT_FALSE(node.invalid());
    node.set_invalid();
    EXPECT_TRUE(node.invalid() && node.t() == 0.25);
    EXPECT_TRUE(grBorkedTri().invalid());
    EXPECT_FALSE(grBorkedTri(0, -1, -1).invalid());
    EXPECT_TRUE(grSpanEdge(3, 5) == grSpanEdge(5, 3, 8, 9));
    EXPECT_FALSE(grSpanEdge(3, 5) == grSpanEdge(3, 6));
    grNodeLink link;
    EXPECT_TRUE(link.invalid());
    EXPECT_EQ(link.append_a_link(7) + link.append_a_link(9), 2);
    EXPECT_EQ(link.append_a_link(11), 0);
    EXPECT_FALSE(link.invalid());
    EXPECT_EQ(link.other_node(7), 9);
    EXPECT_EQ(link.other_node(9), 7);
    EXPECT_EQ(link.other_node(1000), 7); // also for a node that is in neither slot
}
