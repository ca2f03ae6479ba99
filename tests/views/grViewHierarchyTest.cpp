#include "grView.h"

#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <sstream>
#include <vector>

namespace
{
std::string address(const void* pointer)
{
    std::ostringstream os;
    os << pointer;
    return os.str();
}
}

TEST(grView, is_found_from_its_display_view_while_both_live)
{
    tsScene scene;
    dgView* first = scene.add_view();
    dgView* second = scene.add_view();
    grView a(first);
    {
        grView b(second);
        EXPECT_EQ(grView::contains(first), &a);
        EXPECT_EQ(grView::contains(second), &b);
    }
    EXPECT_EQ(grView::contains(second), nullptr);
    EXPECT_EQ(grView::contains(nullptr), nullptr);

    scene.delete_view(0);
    EXPECT_EQ(grView::contains(first), nullptr);
    EXPECT_EQ(a.view(), nullptr);
    EXPECT_EQ(a.n_call_lists(), 0);
}

TEST(grView, lists_children_in_the_order_in_which_they_were_attached)
{
    tsScene scene;
    for (int i = 0; i < 4; ++i)
        scene.add_view();
    grView parent(scene.view(0));
    grView a(scene.view(1), &parent);
    auto b = std::make_unique<grView>(scene.view(2), &parent);
    grView c(scene.view(3), &parent);
    b.reset();
    ASSERT_EQ(parent.nchild_views(), 2);
    EXPECT_EQ(parent.child(0), &a);
    EXPECT_EQ(parent.child(1), &c);
}

TEST(grView, deleting_a_parent_orphans_its_children)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    auto parent = std::make_unique<grView>(scene.view(0));
    grView child(scene.view(1), parent.get());
    parent.reset();
    EXPECT_EQ(child.parent(), nullptr);
    EXPECT_EQ(child.locked_child(), 1);
    EXPECT_EQ(grView::contains(scene.view(1)), &child);
}

TEST(grView, a_deleted_orphan_leaves_its_former_parent)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grView parent(scene.view(0));
    auto child = std::make_unique<grView>(scene.view(1), &parent);
    child->orphan();
    child.reset();
    EXPECT_EQ(parent.nchild_views(), 0);
}

// A parent, a child and a grandchild with their display views, destroyed in all 720 orders: no survivor may know a dead
// relative, nor a detached one.
TEST(grView, display_views_and_views_die_in_any_order)
{
    std::vector<int> order(6);
    std::iota(order.begin(), order.end(), 0);
    do
    {
        tsScene scene;
        std::unique_ptr<grView> views[3];
        for (int i = 0; i < 3; ++i)
        {
            scene.add_view();
            views[i] = i ? std::make_unique<grView>(scene.view(i), views[i - 1].get())
                         : std::make_unique<grView>(scene.view(i));
        }
        for (int victim : order)
        {
            if (victim < 3)
                scene.delete_view(victim);
            else
                views[victim - 3].reset();

            const auto attached = [&](int i) { return views[i] && views[i]->view(); };
            for (int i = 0; i < 3; ++i)
            {
                if (!views[i])
                    continue;
                const int has_parent = i > 0 && attached(i) && attached(i - 1);
                const int has_child = i < 2 && attached(i) && attached(i + 1);
                ASSERT_EQ(views[i]->parent(), has_parent ? views[i - 1].get() : nullptr);
                ASSERT_EQ(views[i]->nchild_views(), has_child);
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(grView, a_child_made_under_a_detached_parent_leaves_it_when_its_display_view_dies)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grView parent(scene.view(0));
    scene.delete_view(0);
    grView child(scene.view(1), &parent);
    EXPECT_EQ(parent.nchild_views(), 1);
    scene.delete_view(1);
    EXPECT_EQ(child.parent(), nullptr);
    EXPECT_EQ(parent.nchild_views(), 0);
}

TEST(grViewPaperParent, unlinks_paper_children_that_die_and_is_forgotten_when_it_dies)
{
    tsScene scene;
    for (int i = 0; i < 4; ++i)
        scene.add_view();
    auto paper = std::make_unique<grViewPaperParent>(scene.view(0));
    auto a = std::make_unique<grViewPaperChild>(scene.view(1), paper.get());
    grViewPaperChild b(scene.view(2), paper.get());
    grViewPaperChild c(scene.view(3), paper.get());
    EXPECT_EQ(paper->nchild_views(), 0);
    ASSERT_EQ(paper->npaper_child_views(), 3);

    a.reset();
    scene.delete_view(2);
    EXPECT_EQ(b.paper_parent(), nullptr);
    ASSERT_EQ(paper->npaper_child_views(), 1);
    EXPECT_EQ(paper->paper_child(0), &c);

    paper.reset();
    EXPECT_EQ(c.paper_parent(), nullptr);
}

TEST(grViewPaperParent, forgets_its_paper_children_when_its_display_view_dies)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grViewPaperParent paper(scene.view(0));
    grViewPaperChild child(scene.view(1), &paper);
    scene.delete_view(0);
    EXPECT_EQ(paper.npaper_child_views(), 0);
    EXPECT_EQ(child.paper_parent(), nullptr);
}

TEST(grView, casts_by_class)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grView plain(scene.view(0));
    grViewPaperChild child(scene.view(1), nullptr);
    EXPECT_EQ(grViewPaperChild::ut_dynamic_cast(&plain), nullptr);
    EXPECT_EQ(grViewPaperParent::ut_dynamic_cast(&child), nullptr);
    EXPECT_EQ(grViewPaper::ut_dynamic_cast(static_cast<grView*>(&child)), &child);
    EXPECT_EQ(grViewPaperChild::ut_dynamic_cast(static_cast<grView*>(nullptr)), nullptr);
    EXPECT_EQ(child.ut_is_kind_of(dgBase::ut_static_type()), 1);
    EXPECT_EQ(child.ut_is_kind_of(coReceiver::ut_static_type()), 1);
}

TEST(grView, dumps_its_fields)
{
    tsScene scene;
    scene.add_view();
    scene.add_view();
    grView parent(scene.view(0));
    grView child(scene.view(1), &parent);
    parent.hidden(1);
    parent.background(grVIEW_BACKGROUND_TRANSPARENT);
    parent.link_type(static_cast<grViewLinkType>(7)); // unknown values print nothing

    std::ostringstream os;
    os << parent << child;
    EXPECT_EQ(os.str(), "grView {\n"
                        "view rtti type is \"grView\"\n"
                        "nchild views is 1\n"
                        "Child 0 is " +
                            address(&child) +
                            "\n"
                            "Parent is " +
                            address(nullptr) +
                            "\n"
                            "Link type is \n"
                            "Locked is 0\n"
                            "Background is grVIEW_BACKGROUND_TRANSPARENT\n"
                            "Hidden is 1\n"
                            "}\n"
                            "grView {\n"
                            "view rtti type is \"grView\"\n"
                            "nchild views is 0\n"
                            "Parent is " +
                            address(&parent) +
                            "\n"
                            "Link type is grVIEW_LINK_ONE_WAY\n"
                            "Locked is 1\n"
                            "Background is grVIEW_BACKGROUND_OPAQUE\n"
                            "Hidden is 0\n"
                            "}\n");
}

TEST(grView, dumps_its_display_view_from_level_2_on)
{
    tsScene scene;
    scene.add_view();
    grView view(scene.view(0));
    std::ostringstream level_1, level_2, display_view;
    view.print(level_1, 1);
    view.print(level_2, 2);
    scene.view(0)->print(display_view, 0, 0);
    EXPECT_EQ(level_1.str().find(display_view.str()), std::string::npos);
    EXPECT_EQ(level_2.str().find(display_view.str()), level_2.str().size() - display_view.str().size() - 2);
}
