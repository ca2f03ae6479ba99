#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "meshes.h"

#include "giPlane.h"

#include <gtest/gtest.h>

namespace
{
// Zones of nodes 0, 1, 2...
intgrZonecoTable zones_of(const std::vector<grZone>& zones)
{
    intgrZonecoTable table(4, 50);
    for (std::size_t i = 0; i < zones.size(); ++i)
        table.set(static_cast<int>(i), zones[i]);
    return table;
}
}

TEST(grTriCutHelpers, triangle_zones_from_edges_and_from_nodes_differ)
{
    const struct
    {
        const char* name;
        std::vector<grZone> nodes;
        grZone by_edges, by_nodes;
    } cases[] = {
        {"all on", {grON_ZONE, grON_ZONE, grON_ZONE}, grON_ZONE, grUNDETERMINED_ZONE},
        {"two on, positive", {grON_ZONE, grON_ZONE, grPOSITIVE_ZONE}, grPOSITIVE_ZONE, grPOSITIVE_ZONE},
        {"one on, negative", {grNEGATIVE_ZONE, grON_ZONE, grNEGATIVE_ZONE}, grNEGATIVE_ZONE, grNEGATIVE_ZONE},
        {"all positive", {grPOSITIVE_ZONE, grPOSITIVE_ZONE, grPOSITIVE_ZONE}, grPOSITIVE_ZONE, grPOSITIVE_ZONE},
        {"one on, both sides", {grON_ZONE, grNEGATIVE_ZONE, grPOSITIVE_ZONE}, grSPANNING_ZONE, grNEGATIVE_ZONE},
        {"two sides", {grPOSITIVE_ZONE, grNEGATIVE_ZONE, grNEGATIVE_ZONE}, grSPANNING_ZONE, grPOSITIVE_ZONE},
        {"undetermined",
         {grUNDETERMINED_ZONE, grUNDETERMINED_ZONE, grUNDETERMINED_ZONE},
         grSPANNING_ZONE,
         grUNDETERMINED_ZONE},
    };
    const giTriangle triangle(0, 1, 2);
    for (const auto& c : cases)
    {
        const intgrZonecoTable node_zones = zones_of(c.nodes);
        gsTriEdgegrZonecoTable edge_zones(4, 50);
        grTriCut::zone_edges({triangle}, node_zones, edge_zones);
        EXPECT_EQ(grTriCut::zone_tri(triangle, edge_zones), c.by_edges) << c.name;
        EXPECT_EQ(grTriCut::zone_tri(triangle, node_zones), c.by_nodes) << c.name;
    }
}

TEST(grTriCutHelpers, zones_are_told_of_used_nodes_alone_and_edges_found_by_zone_in_order)
{
    giTriBlock block = meshes::grid(2, 1); // nodes 0 to 5; x = 0, 1, 2
    block.triangles() = {giTriangle(0, 1, 4), giTriangle(0, 4, 3)};
    const grTriCutterPlane cutter(giPlane(giPoint3(0.5, 0, 0), giVector3(1, 0, 0)), 1e-6);
    intgrZonecoTable node_zones(4, 50);
    grTriCut::zone_nodes(block.triangles(), block.nodes(), cutter, node_zones);
    EXPECT_EQ(node_zones.count(), 4);
    EXPECT_FALSE(node_zones.contains(2));
    EXPECT_EQ(*node_zones.find(0), grNEGATIVE_ZONE);
    gsTriEdgegrZonecoTable edge_zones(4, 50);
    grTriCut::zone_edges(block.triangles(), node_zones, edge_zones);
    EXPECT_EQ(edge_zones.count(), 5);
    std::vector<gsTriEdge> edges;
    grTriCut::get_edges(block.triangles()[0], grSPANNING_ZONE, edge_zones, edges);
    ASSERT_EQ(edges.size(), 2u);
    EXPECT_EQ(edges[0][0], 4); // edge 1 is (4, 0), edge 2 is (0, 1)
    EXPECT_EQ(edges[1][1], 1);
    gsTriEdgecoSet set;
    set.add(gsTriEdge(3, 4));
    gsTriEdgegrZonecoTable set_zones(4, 50);
    grTriCut::zone_edges(set, node_zones, set_zones);
    EXPECT_EQ(*set_zones.find(gsTriEdge(4, 3)), grSPANNING_ZONE);
    gsTriEdgegrInterNodecoTable table;
    table.set(gsTriEdge(3, 4), grInterNode(0.5, 6));
    table.set(gsTriEdge(1, 4), grInterNode(0.5, 7));
    edges.clear();
    grTriCut::get_edges(table, grSPANNING_ZONE, edge_zones, edges);
    EXPECT_EQ(edges, std::vector<gsTriEdge>{gsTriEdge(3, 4)});
}

TEST(grTriCutHelpers, edge_is_intersected_within_fixed_tolerances)
{
    const grTriCutterPlane coarse(giPlane(giPoint3(0.5, 0, 0), giVector3(1, 0, 0)), 0.4);
    giTriBlock block = meshes::grid(1, 1);
    const grInterNode node = grTriCut::intersect_edge(gsTriEdge(0, 1), coarse, block.nodes());
    EXPECT_EQ(node.index(), 4);
    EXPECT_DOUBLE_EQ(node.t(), 0.5);
    EXPECT_EQ(block.nodes()[4], giPoint3(0.5, 0, 0));
    EXPECT_TRUE(grTriCut::intersect_edge(gsTriEdge(0, 2), coarse, block.nodes()).invalid()); // parallel to the plane
    EXPECT_EQ(block.node_count(), 5);
}

TEST(grTriCutHelpers, features_are_interpolated_in_the_direction_of_the_tables_key)
{
    gsTriEdgegrInterNodecoTable table;
    table.set(gsTriEdge(1, 0), grInterNode(0.25, 4));
    std::vector<giPoint2> tus{giPoint2(0, 0), giPoint2(8, 4)};
    grTriCut::interpolate_point_feature(tus, table, {gsTriEdge(0, 1), gsTriEdge(5, 6)});
    ASSERT_EQ(tus.size(), 5u);
    EXPECT_EQ(tus[4], giPoint2(6, 3));
    std::vector<giVector3> normals{giVector3(0, 0, 1), giVector3(0, 0, 1)};
    grTriCut::interpolate_vector_feature(normals, table);
    EXPECT_EQ(normals.at(4), giVector3(0, 0, 1));
    intintcoTable map;
    map.set(4, 0);
    map.set(1, 1);
    grTriCut::reorder_point_feature(tus, map);
    EXPECT_EQ(tus, (std::vector<giPoint2>{giPoint2(6, 3), giPoint2(8, 4)}));
    grTriCut::reorder_vector_feature(normals, map);
    EXPECT_EQ(normals.size(), 2u);
}

TEST(grTriCutHelpers, tolerance_of_a_length_is_a_twentieth_up_to_a_limit)
{
    EXPECT_DOUBLE_EQ(grTriCut::get_in_eps(1), 1e-5);
    EXPECT_DOUBLE_EQ(grTriCut::get_in_eps(1e-6), 5e-8);
}
