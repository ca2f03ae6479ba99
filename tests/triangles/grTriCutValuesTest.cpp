#include "grBorkedTri.h"
#include "grInterNode.h"
#include "grNodeLink.h"
#include "grSpanEdge.h"
#include "grTriCutterPlane.h"
#include "grZone.h"

#include "giPlane.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(grTriCutValues, inter_node_without_a_number_is_invalid)
{
    grInterNode node;
    EXPECT_TRUE(node.invalid());
    EXPECT_EQ(node.t(), 0.0);
    node = grInterNode(0.25, 0);
    EXPECT_FALSE(node.invalid());
    node.set_invalid();
    EXPECT_EQ(node.index(), -1);
    EXPECT_EQ(node.t(), 0.25); // stays
}

TEST(grTriCutValues, span_edges_compare_their_ends_in_either_order)
{
    EXPECT_TRUE(grSpanEdge(3, 5) == grSpanEdge(5, 3, 8, 9));
    EXPECT_FALSE(grSpanEdge(3, 5) == grSpanEdge(3, 6));
    EXPECT_EQ(grSpanEdge(3, 5).new_left(), -1);
    EXPECT_EQ(grSpanEdge().left(), -1);
}

TEST(grTriCutValues, node_link_holds_two_nodes)
{
    grNodeLink link;
    EXPECT_TRUE(link.invalid());
    EXPECT_EQ(link.append_a_link(7), 1);
    EXPECT_FALSE(link.invalid());
    EXPECT_EQ(link.append_a_link(9), 1);
    EXPECT_EQ(link.append_a_link(11), 0);
    EXPECT_EQ(link.node_index(1), 9);
    EXPECT_EQ(link.other_node(7), 9);
    EXPECT_EQ(link.other_node(9), 7);
    EXPECT_EQ(link.other_node(1000), 7); // also for a node that is in neither slot
}

TEST(grTriCutValues, borked_tri_without_a_triangle_is_invalid)
{
    EXPECT_TRUE(grBorkedTri().invalid());
    EXPECT_FALSE(grBorkedTri(0, -1, -1).invalid());
    EXPECT_EQ(grBorkedTri(1, 2, 3).borked_index(), 3);
}

TEST(grTriCutValues, zones_print_their_names)
{
    std::ostringstream text;
    text << grSPANNING_ZONE << ' ' << static_cast<grZone>(7);
    EXPECT_EQ(text.str(), "grSPANNING_ZONE Unknown value for grZone");
}

TEST(grTriCutValues, cutters_know_their_type)
{
    grTriCutterPlane plane(giPlane(), 0.5);
    grTriCutter* cutter = &plane;
    EXPECT_EQ(cutter->tolerance(), 0.5);
    EXPECT_EQ(grTriCutterPlane::ut_dynamic_cast(cutter), &plane);
    EXPECT_TRUE(cutter->ut_is_kind_of(grTriCutter::ut_static_type()));
}
