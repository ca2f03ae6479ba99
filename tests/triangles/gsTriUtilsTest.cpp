#include "gsTriUtils.h"

#include "giAngleDegrees.h"
#include "giPlane.h"
#include "gsTriEdge.h"

#include <gtest/gtest.h>

#include <limits>

TEST(gsTriUtils, edges_compare_without_direction_and_keep_it)
{
    const gsTriEdge edge(7, 3);
    EXPECT_EQ(edge, gsTriEdge(3, 7));
    EXPECT_EQ(std::hash<gsTriEdge>()(edge), std::hash<gsTriEdge>()(gsTriEdge(3, 7)));
    EXPECT_EQ(edge[0], 7);
    EXPECT_EQ(edge.other_index(7), 3);
    EXPECT_TRUE(edge.member(3));
    EXPECT_FALSE(edge.member(4));
}

TEST(gsTriUtils, edge_k_is_opposite_vertex_k)
{
    const giTriangle triangle(4, 5, 6);
    EXPECT_EQ(gsTriUtils::edge_number(triangle, gsTriEdge(5, 6)), 0);
    EXPECT_EQ(gsTriUtils::edge_number(triangle, gsTriEdge(4, 6)), 1);
    EXPECT_EQ(gsTriUtils::edge_number(triangle, gsTriEdge(4, 5)), 2);
    EXPECT_EQ(gsTriUtils::edge_number(triangle, gsTriEdge(4, 7)), -1);
    giTriangle turned;
    gsTriUtils::renumber(turned, triangle, 2);
    EXPECT_EQ(turned, giTriangle(6, 4, 5));
}

TEST(gsTriUtils, unused_nodes_are_removed_in_order)
{
    std::vector<giTriangle> triangles{{5, 1, 3}, {3, 1, 0}, {2, 2, 2}};
    giBoxArrPoint3 nodes;
    for (int i = 0; i < 6; ++i)
        nodes.append(giPoint3(i, 0, 0));
    intcoSet doomed;
    doomed.add(2);
    gsTriUtils::remove(doomed, triangles);
    intintcoTable map;
    gsTriUtils::remove_unused_nodes(triangles, nodes, map);
    EXPECT_EQ(triangles, (std::vector<giTriangle>{{3, 1, 2}, {2, 1, 0}}));
    ASSERT_EQ(nodes.count(), 4);
    EXPECT_EQ(nodes[3], giPoint3(5, 0, 0));
    EXPECT_EQ(nodes.box().high().x(), 5);
    EXPECT_EQ(map.count(), 4);
    EXPECT_EQ(*map.find(5), 3);
    EXPECT_FALSE(map.contains(4));
}

TEST(gsTriUtils, segment_meets_a_plane)
{
    const giPlane plane(giPoint3(0, 0, 1), giVector3(0, 0, 1));
    constexpr double tolerance = 1.0 / (1 << 17);
    const struct
    {
        const char* name;
        giPoint3 p, q;
        int status;
        double t;
    } cases[] = {
        {"across", {0, 0, 0}, {0, 4, 4}, 1, 0.25},
        {"from the plane", {0, 0, 1}, {0, 0, 2}, 1, 0},
        {"too short", {0, 0, 0}, {0, 0, 0.9}, 0, 0},
        {"short by less than the tolerance", {0, 0, 0}, {0, 0, 1 - 1e-6}, 1, 1 / (1 - 1e-6)},
        {"begun by the tolerance behind it", {0, 0, 1 + tolerance}, {0, 0, 2 + tolerance}, 1, -tolerance},
        {"ended by the tolerance before it", {0, 0, -tolerance}, {0, 0, 1 - tolerance}, 1, 1 + tolerance},
        {"parallel", {0, 0, 0}, {5, 0, 0}, 0, 0},
        {"parallel within the angle", {0, 0, 1 - 1e-4}, {1e4, 0, 1 + 1e-4}, 0, 0},
        {"no length", {0, 0, 1}, {0, 0, 1}, 0, 0},
        {"endless", {0, 0, 0}, {0, 0, std::numeric_limits<double>::infinity()}, 0, 0},
    };
    for (const auto& c : cases)
    {
        int status = -1;
        double t = 0;
        giPoint3 point;
        gsTriUtils::intersect(c.p, c.q, plane, tolerance, giAngleDegrees(1e-5), status, t, point);
        EXPECT_EQ(status, c.status) << c.name;
        EXPECT_DOUBLE_EQ(t, c.t) << c.name;
        EXPECT_NEAR(point.z(), c.status, 1e-12) << c.name;
    }
}
