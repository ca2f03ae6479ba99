#include "grViewListUtils.h"

#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{
using Numbers = std::vector<int>;

// Views on three renderers A, B and C.
class grViewListUtilsTest : public testing::Test
{
protected:
    grViewListUtilsTest()
    {
        scene.add_window();
        scene.add_window();
    }

    void add_views(const char* renderers)
    {
        for (const char* r = renderers; *r; ++r)
            scene.add_view(*r - 'A');
    }
    dgViewcoDList list(const Numbers& numbers)
    {
        dgViewcoDList views;
        for (int number : numbers)
            views.add_last(scene.view(number));
        return views;
    }
    Numbers numbers(const dgViewcoDList& views)
    {
        Numbers result;
        for (const dgView* view : views)
            for (int i = 0; i < scene.n_views(); ++i)
                if (scene.view(i) == view)
                    result.push_back(i);
        return result;
    }

    tsScene scene;
};
}

TEST_F(grViewListUtilsTest, groups_views_of_one_renderer_by_swapping)
{
    const struct
    {
        const char* renderers;
        Numbers expected;
    } cases[] = {
        {"", {}},
        {"A", {0}},
        {"ABAB", {0, 2, 1, 3}},
        // A stable grouping would answer 0, 4, 1, 3, 2.
        {"ABCBA", {0, 4, 2, 3, 1}},
        {"ABBACA", {0, 3, 5, 1, 2, 4}},
    };
    for (const auto& c : cases)
    {
        tsScene fresh;
        fresh.add_window();
        fresh.add_window();
        dgViewcoDList views;
        std::vector<dgView*> all;
        for (const char* r = c.renderers; *r; ++r)
            views.add_last(all.emplace_back(fresh.add_view(*r - 'A')));
        grViewListUtils::sort_views_by_renderer(views);
        Numbers result;
        for (const dgView* view : views)
            result.push_back(static_cast<int>(std::find(all.begin(), all.end(), view) - all.begin()));
        EXPECT_EQ(result, c.expected) << c.renderers;
    }
}

TEST_F(grViewListUtilsTest, takes_the_display_librarys_order_and_drops_unknown_views)
{
    add_views("AAAA");
    dgViewcoDList views = list({3, 0, 2, 0});
    grViewListUtils::sort_views_into_dgs_order(views);
    EXPECT_EQ(numbers(views), (Numbers{0, 2, 3}));

    // Destroyed views stand for unknown ones: only their addresses are used.
    views = list({2, 1, 3});
    scene.delete_view(1);
    grViewListUtils::sort_views_into_dgs_order(views);
    EXPECT_EQ(numbers(views), (Numbers{2, 3}));

    views = list({0, 2});
    dgViewcoDList single = list({3});
    scene.delete_view(0);
    scene.delete_view(2);
    scene.delete_view(3);
    grViewListUtils::sort_views_into_dgs_order(views);
    EXPECT_EQ(views.count(), 0);
    grViewListUtils::sort_views_into_dgs_order(single);
    EXPECT_EQ(single.count(), 1);
}

TEST_F(grViewListUtilsTest, finds_and_appends_the_missing_views_of_the_renderers)
{
    add_views("ABABABC");
    dgViewcoDList views = list({2, 1});
    EXPECT_EQ(grViewListUtils::missing_renderer_views(views), 1);
    // Last group first, in the display library's order inside a group.
    EXPECT_EQ(grViewListUtils::add_renderer_views(views), 1);
    EXPECT_EQ(numbers(views), (Numbers{2, 1, 3, 5, 0, 4}));

    EXPECT_EQ(grViewListUtils::missing_renderer_views(views), 0);
    EXPECT_EQ(grViewListUtils::add_renderer_views(views), 0);
    EXPECT_EQ(views.count(), 6);
    EXPECT_EQ(grViewListUtils::missing_renderer_views(dgViewcoDList()), 0);
}

TEST_F(grViewListUtilsTest, asks_any_renderer_for_double_buffering)
{
    add_views("AB");
    scene.window(0).capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    EXPECT_EQ(grViewListUtils::double_buffered_renderer(list({0})), 0);
    EXPECT_EQ(grViewListUtils::double_buffered_renderer(list({0, 1})), 1);
    dgView without_renderer;
    EXPECT_EQ(grViewListUtils::double_buffered_renderer({&without_renderer}), 0);
}

TEST_F(grViewListUtilsTest, puts_children_before_their_view_and_no_grandchildren)
{
    add_views("AAAAA");
    grView parent(scene.view(0));
    grView a(scene.view(1), &parent), b(scene.view(2), &parent), grandchild(scene.view(3), &a);
    dgViewcoDList views = list({4});
    grViewListUtils::find_child_views(scene.view(0), views);
    EXPECT_EQ(numbers(views), (Numbers{2, 1, 0, 4}));

    views.clear();
    grViewListUtils::find_child_views(scene.view(4), views);
    EXPECT_EQ(numbers(views), (Numbers{4}));
}

TEST_F(grViewListUtilsTest, puts_paper_children_first_or_directly_behind_the_paper)
{
    const tsSetting<int> guard(grViewListUtils::insert_paper_children_first(),
                               &grViewListUtils::insert_paper_children_first);
    add_views("AAAAAA");
    grViewPaperParent paper(scene.view(0));
    grView a(scene.view(1), &paper), b(scene.view(2), &paper);
    grViewPaperChild c(scene.view(3), &paper), d(scene.view(4), &paper);

    dgViewcoDList views = list({5});
    grViewListUtils::find_child_views(scene.view(0), views);
    EXPECT_EQ(numbers(views), (Numbers{4, 3, 2, 1, 0, 5}));

    grViewListUtils::insert_paper_children_first(0);
    views = list({5});
    grViewListUtils::find_child_views(scene.view(0), views);
    EXPECT_EQ(numbers(views), (Numbers{2, 1, 0, 4, 3, 5}));
}
