#include "coDynArr.h"
#include "coPageArr.h"
#include "coSList.h"

#include <gtest/gtest.h>

#include <vector>

TEST(coDynArr, grows_to_the_highest_index_written)
{
    coDynArr<int> array(2, 3);
    EXPECT_EQ(array.count(), 0) << "initial room is not elements";
    array.set(4, 40);
    array.set(1, 10);
    EXPECT_EQ(array.count(), 5);
    EXPECT_EQ(array[4] + array[1], 50);
    EXPECT_EQ(array[0], 0);
    array.truncate(2);
    array.truncate(10);
    EXPECT_EQ(array.count(), 2);
    array.append(7);
    EXPECT_EQ(array[2], 7);
}

TEST(coPageArr, never_moves_earlier_elements)
{
    coPageArr<int> pages(4);
    std::vector<const int*> addresses;
    for (int i = 0; i < 100; ++i)
        addresses.push_back(&pages.append(i));
    for (int i = 0; i < 100; ++i)
    {
        ASSERT_EQ(&pages[i], addresses[static_cast<std::size_t>(i)]);
        ASSERT_EQ(pages[i], i);
    }
    pages.clear();
    EXPECT_EQ(pages.count(), 0);
    EXPECT_EQ(&pages.append(5), addresses[0]) << "the pages are used again";
}

TEST(coSList, appends_in_order)
{
    coSList<double> list;
    list.append(1.5);
    list.append(2.5);
    double sum = 0;
    for (double value : list)
        sum = sum * 10 + value;
    EXPECT_EQ(sum, 17.5);
    EXPECT_EQ(list.index(1), 2.5);
}
