#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "meshes.h"

#include "giVector2.h"
#include "giWorkplane3.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
const giWorkplane3 tilted(giPoint3(1, 2, 0.5), giVector3(1, 0.3, 0.2), giVector3(-0.2, 1, 0.4));
}

TEST(grTriCutWorkplane, zone_of_a_point_counts_the_origin_in_and_the_line_strictly)
{
    const giVector2 origin(1, 1), along(0, 3);
    const struct
    {
        const char* name;
        giPoint2 point;
        grZone zone;
    } cases[] = {
        {"left of the direction", {0, 5}, grPOSITIVE_ZONE},
        {"right of the direction", {2, 5}, grNEGATIVE_ZONE},
        {"on the line", {1, 9}, grON_ZONE},
        {"at the tolerance from the line", {1.5, 9}, grNEGATIVE_ZONE},
        {"at the tolerance from the origin", {1.5, 1}, grON_ZONE},
        {"behind the origin, left", {0, -9}, grPOSITIVE_ZONE},
        {"no number", {std::numeric_limits<double>::quiet_NaN(), 0}, grNEGATIVE_ZONE},
    };
    for (const auto& c : cases)
        EXPECT_EQ(grTriCut::zone_node(c.point, origin, along, 0.5), c.zone) << c.name;
}

TEST(grTriCutWorkplane, cuts_as_the_plane_through_line_and_normal_does)
{
    const giVector2 origin(0.3, -0.4), along(2, 1);
    const giVector3 left = tilted.to_world(giPoint2(along.perpendicular())) - tilted.origin();
    const giPlane plane(tilted.to_world(giPoint2(origin)), left);
    for (unsigned seed = 0; seed < 20; ++seed)
        for (int keep_negative = 0; keep_negative < 2; ++keep_negative)
        {
            SCOPED_TRACE("seed " + std::to_string(seed));
            giTriBlock block = meshes::torus(24, 12, seed), expected = block;
            std::vector<gsTriEdge> edges;
            gsTriEdgegrInterNodecoTable cut_edges, expected_edges;
            grTriCut::cut(block, tilted, origin, along, 1e-6, edges, keep_negative, &cut_edges);
            grTriCut::cut(expected, grTriCutterPlane(plane, 1e-6), keep_negative, &expected_edges);
            ASSERT_EQ(block.triangles(), expected.triangles());
            EXPECT_EQ(cut_edges.count(), expected_edges.count());
            for (int i = 0; i < block.node_count(); ++i)
                ASSERT_TRUE(block.nodes()[i].coincident(expected.nodes()[i], 1e-9));
            // The outline is closed: every node is left as often as it is reached.
            ASSERT_FALSE(edges.empty());
            std::vector<int> balance(static_cast<std::size_t>(block.node_count()));
            for (const gsTriEdge& edge : edges)
            {
                ASSERT_LT(std::abs(plane.distance(block.nodes()[edge[0]])), 1e-6);
                ++balance[static_cast<std::size_t>(edge[0])];
                --balance[static_cast<std::size_t>(edge[1])];
            }
            EXPECT_EQ(balance, std::vector<int>(balance.size()));
        }
}

TEST(grTriCutWorkplane, uw_plane_keeps_the_side_of_the_y_axis)
{
    giTriBlock block = meshes::grid(2, 2);
    std::vector<gsTriEdge> edges;
    const giWorkplane3 workplane(giPoint3(0, 0.5, 0), giVector3(1, 0, 0), giVector3(0, 1, 0));
    grTriCut::cut_with_workplane_uw_plane(block, workplane, 1e-6, &edges, nullptr);
    EXPECT_DOUBLE_EQ(meshes::area(block), 3);
    EXPECT_DOUBLE_EQ(block.box().low().y(), 0.5);
    double length = 0;
    for (const gsTriEdge& edge : edges)
    {
        length += block.nodes()[edge[0]].distance(block.nodes()[edge[1]]);
        EXPECT_GT(block.nodes()[edge[1]].x(), block.nodes()[edge[0]].x()); // counter-clockwise about the part kept
    }
    EXPECT_DOUBLE_EQ(length, 2);
}

TEST(grTriCutWorkplane, single_triangles_are_found_and_cut)
{
    giTriBlock block = meshes::grid(2, 1);
    block.nodes().set(6, giPoint3(0.5, 0, 0));
    block.triangles().emplace_back(6, 0, 2); // without area, and one vertex lies on the line
    std::vector<giPoint2> work;
    grTriCut::to_work(block.nodes(), giWorkplane3(), work);
    intgrZonecoTable zones;
    const giVector2 origin(0.5, 0), along(0, 1);
    grTriCut::zone_nodes(work, origin, along, 1e-6, zones);
    std::vector<int> potential;
    grTriCut::find_potential_cuts(block.triangles(), zones, potential);
    ASSERT_EQ(potential, (std::vector<int>{0, 1, 4}));
    gsTriEdgegrInterNodecoTable shared;
    std::vector<giTriangle> positive, negative;
    for (const int i : potential)
        grTriCut::cut_triangle(giTriangle(block.triangles()[static_cast<std::size_t>(i)]), origin, along, 1e-6, work,
                               block.nodes(), shared, positive, negative);
    EXPECT_EQ(positive.size() + negative.size(), 8u);
    EXPECT_EQ(shared.count(), 3);
    EXPECT_EQ(work.size(), static_cast<std::size_t>(block.node_count()));
    block.triangles() = positive; // left of the direction: x below 0.5
    EXPECT_DOUBLE_EQ(meshes::area(block), 0.5);
}

TEST(grTriCutWorkplane, segment_meets_the_line_within_its_ends)
{
    double t = -1;
    giPoint2 point;
    const giVector2 origin(0, 0), along(1, 0);
    EXPECT_EQ(grTriCut::intersect_edge_t_p({2, -1}, {2, 3}, origin, along, t, point), 1);
    EXPECT_DOUBLE_EQ(t, 0.25);
    EXPECT_EQ(point, giPoint2(2, 0));
    EXPECT_EQ(grTriCut::intersect_edge_t_p({2, 0}, {2, 3}, origin, along, t, point), 1);
    EXPECT_EQ(t, 0);
    EXPECT_EQ(grTriCut::intersect_edge_t_p({2, 1}, {2, 3}, origin, along, t, point), 0);
    EXPECT_EQ(grTriCut::intersect_edge_t_p({2, 1}, {3, 1}, origin, along, t, point), 0);
}
