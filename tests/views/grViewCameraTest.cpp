#include "grView.h"

#include "giBox3.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace
{
constexpr double tolerance = 1e-12;

giXform3 turned(double radians, const giVector3& offset)
{
    return giXform3::rotation(giAngle(radians), giVector3(1, 2, 3)) * giXform3::translation(offset);
}

const giXform3& transform(grView& view)
{
    return view.view()->camera().orientation();
}

void move(grView& view, const giXform3& world_to_view)
{
    view.view()->camera().orientation(world_to_view);
    view.view()->camera().world2view_altered();
}

void expect_near(const giXform3& a, const giXform3& b)
{
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(a.data()[i], b.data()[i], tolerance) << "element " << i;
}

// Three generations on one window, the child placed differently from its parent before it is attached.
class grViewCamera : public testing::Test
{
protected:
    grViewCamera()
    {
        for (int i = 0; i < 4; ++i)
            scene.add_view();
        scene.view(1)->camera().orientation(turned(0.3, giVector3(4, 5, 6)));
        parent = std::make_unique<grView>(scene.view(0));
        child = std::make_unique<grView>(scene.view(1), parent.get());
        grandchild = std::make_unique<grView>(scene.view(2), child.get());
    }

    tsScene scene;
    std::unique_ptr<grView> parent, child, grandchild;
};
}

TEST_F(grViewCamera, locked_children_follow_the_parent_with_their_offset)
{
    const giXform3 offset = turned(0.3, giVector3(4, 5, 6));
    expect_near(child->child_offset(), offset);
    EXPECT_EQ(child->locked_child(), 1);
    EXPECT_EQ(parent->locked_child(), 0);

    const giXform3 moved = turned(-1.1, giVector3(-7, 0, 2));
    move(*parent, moved);
    expect_near(transform(*child), offset * moved);
    expect_near(transform(*grandchild), grandchild->child_offset() * transform(*child));
}

TEST_F(grViewCamera, moves_of_the_parent_leave_offsets_exactly_as_they_were)
{
    const giXform3 child_offset = child->child_offset(), grandchild_offset = grandchild->child_offset();
    for (int i = 1; i <= 1000; ++i)
        move(*parent, turned(0.01 * i, giVector3(i, 1, -i)));
    EXPECT_EQ(child->child_offset(), child_offset);
    EXPECT_EQ(grandchild->child_offset(), grandchild_offset);
    EXPECT_EQ(parent->called_from_parent(), 0);
}

TEST_F(grViewCamera, a_move_of_a_locked_child_moves_its_offset)
{
    move(*parent, turned(0.5, giVector3(1, 1, 1)));
    const giXform3 moved = turned(2, giVector3(0, 0, 9));
    move(*child, moved);
    expect_near(child->child_offset() * transform(*parent), moved);

    // The new placement is what the parent's next move carries along.
    move(*parent, giXform3());
    expect_near(transform(*child), child->child_offset());
}

TEST_F(grViewCamera, the_flag_is_up_while_the_children_are_pushed)
{
    struct Watcher : coReceiver
    {
        explicit Watcher(grView* view) : pusher(view) {}
        void changed() { flag = pusher->called_from_parent(); }
        grView* pusher;
        int flag = -1;
    };
    Watcher of_parent(parent.get()), of_grandchild(grandchild.get());
    scene.view(2)->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Watcher::changed>(&of_parent));
    scene.view(2)->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Watcher::changed>(&of_grandchild));
    move(*parent, turned(0.1, giVector3()));
    EXPECT_EQ(of_parent.flag, 1);
    EXPECT_EQ(of_grandchild.flag, 0);
}

TEST_F(grViewCamera, children_that_are_destroyed_by_a_callback_hold_up_none_of_the_others)
{
    struct Destroyer : coReceiver
    {
        void changed() { victim.reset(); }
        std::unique_ptr<grView> victim;
    };
    for (const int destroyed_by : {0, 1})
    {
        // Of three children the first, or the second, destroys the first one.
        scene.view(0)->camera().orientation(giXform3());
        for (int i = 1; i < 4; ++i)
            scene.view(i)->camera().orientation(giXform3());
        grandchild.reset();
        child.reset();
        Destroyer destroyer;
        destroyer.victim = std::make_unique<grView>(scene.view(1), parent.get());
        const grView second(scene.view(2), parent.get()), third(scene.view(3), parent.get());
        scene.view(1 + destroyed_by)
            ->call_list()
            .add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Destroyer::changed>(&destroyer));

        const giXform3 moved = turned(0.4, giVector3(1, 2, 3));
        move(*parent, moved);
        EXPECT_EQ(parent->nchild_views(), 2);
        expect_near(scene.view(2)->camera().orientation(), moved);
        expect_near(scene.view(3)->camera().orientation(), moved);
    }
}

TEST_F(grViewCamera, an_unlocked_child_stays_and_keeps_its_offset)
{
    const giXform3 offset = child->child_offset();
    child->lock_child(0);
    const giXform3 moved = turned(1, giVector3(1, 2, 3));
    move(*child, moved);
    move(*parent, turned(2, giVector3(3, 2, 1)));
    EXPECT_EQ(transform(*child), moved);
    EXPECT_EQ(child->child_offset(), offset);

    child->lock_child(1);
    expect_near(child->child_offset() * transform(*parent), moved);
}

TEST_F(grViewCamera, locking_a_root_view_does_nothing)
{
    parent->lock_child(1);
    move(*parent, turned(1, giVector3(1, 2, 3)));
    EXPECT_EQ(parent->child_offset(), giXform3());
}

TEST_F(grViewCamera, an_orphan_keeps_following_with_its_last_offset)
{
    const giXform3 offset = child->child_offset();
    child->orphan();
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_EQ(parent->nchild_views(), 1);

    move(*child, giXform3());
    EXPECT_EQ(child->child_offset(), offset);
    const giXform3 moved = turned(0.7, giVector3(1, 0, 0));
    move(*parent, moved);
    expect_near(transform(*child), offset * moved);
}

TEST_F(grViewCamera, scale_and_fit_reach_every_child_without_callbacks)
{
    struct Counter : coReceiver
    {
        void changed() { ++calls; }
        int calls = 0;
    } counter;
    for (int i = 0; i < 3; ++i)
        scene.view(i)->call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Counter::changed>(&counter));
    child->lock_child(0);

    parent->same_scale(0.125);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(scene.view(i)->camera().scale(), 0.125, tolerance) << i;

    // The child looks at the box along a diagonal and needs a larger window than the other two.
    const giXform3 along_x = giXform3::rotation(giAngle(0.7853981633974483), gi_Z_AXIS);
    scene.view(1)->camera().orientation(along_x);
    scene.view(0)->camera().orientation(giXform3());
    scene.view(2)->camera().orientation(giXform3());
    const double smallest =
        parent->view_bounding_box(giBox3(giPoint3(-1, -1, -1), giPoint3(1, 1, 1)), dgBOUNDING_VIEW_BOX);
    EXPECT_NEAR(smallest, scene.view(1)->camera().scale(), tolerance);
    EXPECT_NEAR(scene.view(0)->camera().scale(), smallest * std::sqrt(2.0), 1e-9);
    EXPECT_EQ(counter.calls, 0);
}
