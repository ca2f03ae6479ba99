#include "coSet.h"
#include "coTable.h"

#include <gtest/gtest.h>

namespace
{
// Equal to its reverse, as the edges of a mesh are.
struct Edge
{
    int from, to;
    friend bool operator==(const Edge& a, const Edge& b)
    {
        return (a.from == b.from && a.to == b.to) || (a.from == b.to && a.to == b.from);
    }
};

struct EdgeHash
{
    std::size_t operator()(const Edge& edge) const
    {
        return static_cast<std::size_t>(edge.from) + static_cast<std::size_t>(edge.to);
    }
};
}

TEST(coTable, set_replaces_the_value_and_keeps_the_first_key)
{
    coTable<Edge, double, EdgeHash> cuts(4, 50);
    cuts.set({1, 2}, 0.25);
    cuts.set({2, 1}, 0.75);
    EXPECT_EQ(cuts.count(), 1);
    ASSERT_NE(cuts.find({2, 1}), nullptr);
    EXPECT_EQ(*cuts.find({2, 1}), 0.75);
    EXPECT_EQ(cuts.find_key({2, 1})->from, 1) << "the parameter counts along the key that came first";

    EXPECT_EQ(cuts.find({1, 1}), nullptr);
    EXPECT_TRUE(cuts.remove({2, 1}));
    EXPECT_FALSE(cuts.remove({1, 2}));
    EXPECT_TRUE(cuts.empty());
}

TEST(coTable, values_stay_in_place_while_others_are_added)
{
    coTable<int, int> table;
    table.set(1, 10);
    const int* value = table.find(1);
    for (int i = 2; i < 1000; ++i)
        table.set(i, i);
    EXPECT_EQ(table.find(1), value);
    EXPECT_EQ(table.count(), 999);
}

TEST(coSet, holds_equal_elements_once)
{
    coSet<Edge, EdgeHash> edges(4, 50);
    EXPECT_TRUE(edges.add({1, 2}));
    EXPECT_FALSE(edges.add({2, 1}));
    EXPECT_TRUE(edges.add({3, 0}));
    EXPECT_EQ(edges.count(), 2);
    EXPECT_TRUE(edges.remove({2, 1}));
    EXPECT_FALSE(edges.contains({1, 2}));
    EXPECT_TRUE(edges.contains({0, 3})) << "an equal hash is not an equal edge";
}
