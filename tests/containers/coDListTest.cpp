#include "coDList.h"

#include <gtest/gtest.h>

namespace
{
using Numbers = coDList<int>;
}

TEST(coDList, inserts_behind_the_cursor_and_moves_onto_it)
{
    Numbers list;
    list.insert_after_cursor(2);
    list.insert_after_cursor(4);
    list.index(0);
    list.insert_after_cursor(3);
    list.add_first(1);
    list.add_last(5);
    EXPECT_EQ(list, Numbers({1, 2, 3, 4, 5}));
    EXPECT_EQ(list.current(), 3) << "adding first must leave the cursor on its element";
    list.cursor(-1);
    list.insert_after_cursor(0);
    EXPECT_EQ(list.first(), 0);
    EXPECT_EQ(list.cursor(), 0);
}

TEST(coDList, cursor_stays_on_its_element_through_removals)
{
    Numbers list{1, 2, 3, 2, 5};
    list.index(3);
    EXPECT_TRUE(list.remove(2));
    EXPECT_EQ(list, Numbers({1, 3, 2, 5})) << "only the first equal one goes";
    EXPECT_EQ(list.current(), 2);
    EXPECT_EQ(list.cursor(), 2);
    EXPECT_TRUE(list.remove(5));
    EXPECT_FALSE(list.remove(5));
    EXPECT_EQ(list.current(), 2);

    list.remove_at_cursor();
    EXPECT_EQ(list.current(), 3) << "falls back to the element before";
    list.remove_at_cursor();
    list.remove_at_cursor();
    EXPECT_EQ(list.cursor(), -1);
    list.remove_at_cursor();
    EXPECT_TRUE(list.empty());
}

TEST(coDList, truncates_swaps_finds_and_copies)
{
    Numbers list{10, 11, 12, 13};
    list.swap(0, 3);
    EXPECT_EQ(list, Numbers({13, 11, 12, 10}));
    EXPECT_EQ(list.find(12), 2);
    EXPECT_EQ(list.find(99), -1);

    const Numbers copy(list);
    list.index(3);
    list.truncate(2);
    EXPECT_EQ(list, Numbers({13, 11}));
    EXPECT_EQ(list.cursor(), 1);
    list.truncate(5);
    EXPECT_EQ(list.count(), 2) << "truncating never grows";
    EXPECT_EQ(copy.count(), 4);
}

TEST(coDList, walk_survives_removal_through_it)
{
    Numbers list{1, 2, 4, 6, 7, 8};
    int sum = 0;
    for (auto it = list.it(); it; ++it)
    {
        sum += it();
        if (it() % 2 == 0)
            it.remove();
    }
    EXPECT_EQ(sum, 28) << "every element is met once";
    EXPECT_EQ(list, Numbers({1, 7}));
}

TEST(coDList, walk_goes_backwards_and_removes_there)
{
    Numbers list{1, 2, 3, 4};
    Numbers met;
    for (auto it = list.last_it(); it; --it)
    {
        met.add_last(it());
        if (it() >= 3)
            it.remove();
    }
    EXPECT_EQ(met, Numbers({4, 3, 2, 1}));
    EXPECT_EQ(list, Numbers({1, 2}));
    list.clear();
    EXPECT_FALSE(list.it());
    EXPECT_FALSE(list.last_it());
}

TEST(coDList, walk_ends_when_others_empty_the_list)
{
    Numbers list{1, 2, 3};
    auto it = list.it();
    ++it;
    list.clear();
    EXPECT_FALSE(it);
    EXPECT_FALSE(++it);
}
