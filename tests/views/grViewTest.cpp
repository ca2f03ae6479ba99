#include "grView.h"

#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "gsHeap.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

namespace
{
giXform3 random_placement(std::mt19937& random)
{
    std::uniform_real_distribution<double> real(-3, 3);
    const giVector3 axis(real(random), real(random), real(random) + 4),
        offset(real(random), real(random), real(random));
    return giXform3::rotation(giAngle(real(random)), axis) * giXform3::translation(offset);
}

double difference(const giXform3& a, const giXform3& b)
{
    double largest = 0;
    for (int i = 0; i < 16; ++i)
        largest = std::max(largest, std::abs(a.data()[i] - b.data()[i]));
    return largest;
}
}

// Six companions in a random tree, moved, locked, unlocked and orphaned at random. The model states each rule once: who
// is moved takes its offset along (unless its parent moved it), and its locked children, orphans too, by theirs.
TEST(grView, cameras_follow_as_in_a_model_of_placements_and_offsets)
{
    constexpr int n = 6;
    for (unsigned seed = 0; seed < 20; ++seed)
    {
        std::mt19937 random(seed);
        tsScene scene;
        struct Model
        {
            std::unique_ptr<grView> view;
            int parent = -1, locked = 0, orphan = 0;
            giXform3 world, offset;
        };
        std::vector<Model> models(n);
        const auto orientation = [&](int i) -> const giXform3& { return scene.view(i)->camera().orientation(); };
        for (int i = 0; i < n; ++i)
        {
            Model& model = models[static_cast<std::size_t>(i)];
            scene.add_view()->camera().orientation(model.world = random_placement(random));
            model.parent = static_cast<int>(random() % static_cast<unsigned>(i + 1)) - 1;
            grView* parent = model.parent < 0 ? nullptr : models[static_cast<std::size_t>(model.parent)].view.get();
            model.view = std::make_unique<grView>(scene.view(i), parent);
            model.locked = parent != nullptr;
            model.offset = parent ? model.world * orientation(model.parent).inverse() : giXform3();
        }
        const auto move = [&](const auto& self, int i, const giXform3& to) -> void
        {
            models[static_cast<std::size_t>(i)].world = to;
            for (int j = 0; j < n; ++j)
                if (const Model& child = models[static_cast<std::size_t>(j)]; child.parent == i && child.locked)
                    self(self, j, child.offset * to);
        };
        for (int step = 0; step < 40; ++step)
        {
            const int i = static_cast<int>(random() % n), what = static_cast<int>(random() % 8);
            Model& model = models[static_cast<std::size_t>(i)];
            const int takes_offset = model.parent >= 0 && !model.orphan && (what == 0 || (what > 1 && model.locked));
            std::vector<giXform3> offsets;
            for (const Model& m : models)
                offsets.push_back(m.view->child_offset());
            if (what == 0)
            {
                model.view->lock_child(1);
                model.locked = 1; // also of a root, where it means nothing
            }
            else if (what == 1)
            {
                model.view->lock_child(0);
                model.locked = 0;
                if (step % 4 == 0)
                {
                    model.view->orphan();
                    model.orphan = 1;
                }
            }
            else
            {
                move(move, i, random_placement(random));
                scene.view(i)->camera().orientation(model.world);
                scene.view(i)->camera().world2view_altered();
            }
            if (takes_offset)
                model.offset = model.world * models[static_cast<std::size_t>(model.parent)].world.inverse();
            for (int j = 0; j < n; ++j)
            {
                const Model& m = models[static_cast<std::size_t>(j)];
                ASSERT_LT(difference(orientation(j), m.world), 1e-9) << "seed " << seed << ", step " << step;
                ASSERT_LT(difference(m.view->child_offset(), m.offset), 1e-9) << "seed " << seed << ", step " << step;
                if (!(takes_offset && j == i))
                {
                    ASSERT_EQ(m.view->child_offset(), offsets[static_cast<std::size_t>(j)]) << "to the bit";
                }
                ASSERT_EQ(m.view->called_from_parent(), 0);
                ASSERT_EQ(m.view->locked_child(), m.locked);
            }
        }
    }
}

TEST(grView, scale_and_fit_reach_every_child_without_callbacks)
{
    struct Counter : coReceiver
    {
        void changed() { ++calls; }
        int calls = 0;
    } counter;
    tsScene scene;
    for (int i = 0; i < 3; ++i)
        scene.add_view()->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Counter::changed>(&counter));
    grView parent(scene.view(0)), child(scene.view(1), &parent);
    const grView grandchild(scene.view(2), &child);
    child.lock_child(0);
    parent.same_scale(0.125);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(scene.view(i)->camera().scale(), 0.125, 1e-12) << i;
    // The child looks at the box along a diagonal and needs a larger window than the other two.
    scene.view(1)->camera().orientation(giXform3::rotation(giAngle(std::atan(1.0)), gi_Z_AXIS));
    const double smallest =
        parent.view_bounding_box(giBox3(giPoint3(-1, -1, -1), giPoint3(1, 1, 1)), dgBOUNDING_VIEW_BOX);
    EXPECT_NEAR(smallest, scene.view(1)->camera().scale(), 1e-12);
    for (int i : {0, 2})
        EXPECT_NEAR(scene.view(i)->camera().scale(), smallest * std::sqrt(2.0), 1e-9);
    EXPECT_EQ(counter.calls, 0);
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
            views[i] = std::make_unique<grView>(scene.add_view(), i ? views[i - 1].get() : nullptr);
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
                ASSERT_EQ(views[i]->parent(), i > 0 && attached(i) && attached(i - 1) ? views[i - 1].get() : nullptr);
                ASSERT_EQ(views[i]->nchild_views(), i < 2 && attached(i) && attached(i + 1));
                ASSERT_EQ(grView::contains(views[i]->view()), attached(i) ? views[i].get() : nullptr);
                ASSERT_EQ(views[i]->n_call_lists() != 0, attached(i));
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(grView, casts_by_class)
{
    tsScene scene;
    grView plain(scene.add_view());
    grViewPaperChild child(scene.add_view(), nullptr);
    EXPECT_EQ(grViewPaperChild::ut_dynamic_cast(&plain), nullptr);
    EXPECT_EQ(grViewPaperParent::ut_dynamic_cast(&child), nullptr);
    EXPECT_EQ(grViewPaper::ut_dynamic_cast(static_cast<grView*>(&child)), &child);
    EXPECT_EQ(child.ut_is_kind_of(dgBase::ut_static_type()) + child.ut_is_kind_of(coReceiver::ut_static_type()), 2);
    const int living = gsHeap::object_count();
    std::make_unique<grView>(scene.add_view()).reset();
    EXPECT_EQ(gsHeap::object_count(), living + 1) << "the display view";
}
