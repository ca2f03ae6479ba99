#include "coDList.h"

#include <gtest/gtest.h>

#include <list>
#include <random>

namespace
{
// The same by a list of nodes: the cursor is a node, or the end where it stands before the first.
struct Model
{
    std::list<int> items;
    std::list<int>::iterator cursor = items.end();

    auto at(int i) { return std::next(items.begin(), i); }
    void erase(std::list<int>::iterator node)
    {
        if (node == cursor)
            cursor = node == items.begin() ? items.end() : std::prev(node);
        items.erase(node);
    }
    int position() { return cursor == items.end() ? -1 : static_cast<int>(std::distance(items.begin(), cursor)); }
};
}

TEST(coDList, does_what_a_list_of_nodes_does)
{
    std::mt19937 random(11);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    coDList<int> list;
    Model model;
    EXPECT_FALSE(list.it());
    EXPECT_FALSE(list.last_it());
    for (int step = 0; step < 5000; ++step)
    {
        const int operation = below(12), value = below(9), count = static_cast<int>(model.items.size());
        const int i = count ? below(count) : 0, j = count ? below(count) : 0;
        const auto first_equal = std::find(model.items.begin(), model.items.end(), value);
        if (operation == 0 && count)
            list.index(i), model.cursor = model.at(i);
        else if (operation == 1)
            list.cursor(-1), model.cursor = model.items.end();
        else if (operation < 5)
        {
            list.insert_after_cursor(value);
            model.cursor = model.items.insert(
                model.cursor == model.items.end() ? model.items.begin() : std::next(model.cursor), value);
        }
        else if (operation == 5)
            list.add_first(value), model.items.push_front(value);
        else if (operation == 6)
            list.add_last(value), model.items.push_back(value);
        else if (operation == 7)
        {
            EXPECT_EQ(list.find(value), first_equal == model.items.end()
                                            ? -1
                                            : static_cast<int>(std::distance(model.items.begin(), first_equal)));
            EXPECT_EQ(list.remove(value), first_equal != model.items.end());
            if (first_equal != model.items.end())
                model.erase(first_equal);
        }
        else if (operation == 8)
        {
            list.remove_at_cursor();
            if (model.cursor != model.items.end())
                model.erase(model.cursor);
        }
        else if (operation == 9 && count)
            list.swap(i, j), std::iter_swap(model.at(i), model.at(j));
        else if (operation == 10 && step % 5 == 0)
        {
            const int n = count ? i : 3; // more than there are: nothing
            if (model.position() >= n)
                model.cursor = n ? model.at(n - 1) : model.items.end();
            list.truncate(n);
            while (static_cast<int>(model.items.size()) > n)
                model.items.pop_back();
        }
        else if (operation == 11)
        {
            // Every element is met once, in the direction of the walk, while some are taken out.
            const int backwards = value % 2;
            auto it = backwards ? list.last_it() : list.it();
            for (int left = count, at = backwards ? count - 1 : 0; left > 0; --left, backwards ? --it : ++it)
            {
                ASSERT_TRUE(it);
                ASSERT_EQ(it(), *model.at(at));
                const bool out = it() % 4 == 1;
                if (out)
                    it.remove(), model.erase(model.at(at));
                at += backwards ? -1 : !out;
            }
            EXPECT_FALSE(it);
        }
        ASSERT_EQ(std::list<int>(list.begin(), list.end()), model.items) << "after operation " << operation;
        ASSERT_EQ(list.cursor(), model.position()) << "after operation " << operation;
        ASSERT_EQ(list.cursor() < 0 || list.current() == *model.cursor, true);
    }
    const coDList<int> copy(list);
    auto it = list.it();
    list.clear();
    EXPECT_FALSE(it) << "a walk ends when others empty the list";
    EXPECT_EQ(copy.count(), static_cast<int>(model.items.size()));
}
