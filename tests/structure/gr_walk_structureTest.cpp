#include "gr_walk_structure.h"

#include "grFindElements.h"

#include "tsNetwork.h"

#include <gtest/gtest.h>

namespace
{
struct Event
{
    int post;
    dgStructure* structure; // null where the callback is not told
    dgGraphicalElement* element;
    bool operator==(const Event&) const = default;
};

using Events = std::vector<Event>;

Events the_events; // for callbacks without user data

void note(dgStructure* structure, dgGraphicalElement* element, void* events)
{
    static_cast<Events*>(events)->push_back({0, structure, element});
}

void note_post(dgStructure* structure, dgGraphicalElement* element, void* events)
{
    static_cast<Events*>(events)->push_back({1, structure, element});
}

// By plain recursion.
void expect(dgStructure* structure, grRecursive recursive, std::vector<dgStructure*>& open, Events& events)
{
    open.push_back(structure);
    for (int i = 0; i < structure->nelements(); ++i)
    {
        dgGraphicalElement* element = structure->element(i);
        events.push_back({0, structure, element});
        if (element->type() != dgTYPE_STRUCTURE_CALL)
            continue;
        dgStructure* called = element->called_structure();
        if (recursive == grRECURSIVE_YES && called && std::find(open.begin(), open.end(), called) == open.end())
            expect(called, recursive, open, events);
        events.push_back({1, structure, element});
    }
    open.pop_back();
}

template <class Condition>
Events select(const Events& events, Condition condition)
{
    Events selected;
    std::copy_if(events.begin(), events.end(), std::back_inserter(selected), condition);
    return selected;
}
}

TEST(gr_walk_structure, calls_before_every_element_and_after_every_call)
{
    for (unsigned seed = 0; seed < 200; ++seed)
        for (const grRecursive recursive : {grRECURSIVE_YES, grRECURSIVE_NO, static_cast<grRecursive>(5)})
        {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", recursive " << static_cast<int>(recursive));
            const int circles = seed % 2;
            tsNetwork network(seed, circles ? 5 : 8, circles);
            Events both;
            std::vector<dgStructure*> open;
            expect(&network.root(), recursive, open, both);
            const Events pre = select(both, [](const Event& event) { return !event.post; });

            Events met;
            gr_walk_structure(&network.root(), &met, note, note_post, recursive);
            ASSERT_EQ(met, both);
            met.clear();
            gr_walk_structure(&network.root(), &met, note, recursive);
            ASSERT_EQ(met, pre);
            the_events.clear();
            gr_walk_structure(
                &network.root(),
                [](dgStructure* structure, dgGraphicalElement* element) { note(structure, element, &the_events); },
                [](dgStructure* structure, dgGraphicalElement* element) { note_post(structure, element, &the_events); },
                recursive);
            ASSERT_EQ(the_events, both);
            the_events.clear();
            gr_walk_structure(
                &network.root(), [](dgGraphicalElement* element) { note(nullptr, element, &the_events); }, recursive);
            ASSERT_EQ(the_events.size(), pre.size());
            for (std::size_t i = 0; i < pre.size(); ++i)
                ASSERT_EQ(the_events[i].element, pre[i].element);

            dgBaseList list{&network.root()}; // what is there stays
            const Events labels = select(pre, [](const Event& event) { return event.element->type() == dgTYPE_LABEL; });
            const int count = static_cast<int>(labels.size());
            ASSERT_EQ(grFindElements(&network.root()).find_elements(dgTYPE_LABEL, list, recursive), count);
            ASSERT_EQ(list.count(), count + 1);
            for (int i = 0; i < count; ++i)
                ASSERT_EQ(list[i + 1], labels[static_cast<std::size_t>(i)].element);
        }
}

TEST(gr_walk_structure, lets_callbacks_delete_what_they_are_called_for)
{
    const dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgLabel(1));
    root->add(new dgStructureCall(tsChain(2).get()));
    root->add(new dgLabel(2));
    Events met;
    gr_walk_structure(
        root.get(), &met,
        [](dgStructure* structure, dgGraphicalElement* element, void* events)
        {
            note(nullptr, nullptr, events);
            const int is_call = element->type() == dgTYPE_STRUCTURE_CALL;
            structure->delete_range(structure->cursor(), structure->cursor());
            if (is_call)
            {
                EXPECT_EQ(element->type(), dgTYPE_STRUCTURE_CALL); // alive until its call is over
            }
        },
        note_post, grRECURSIVE_YES);
    EXPECT_EQ(root->nelements(), 0);
    // Three elements of the root, two and one of the chain, and the ends of two calls.
    EXPECT_EQ(met.size(), 8u);
}

TEST(gr_walk_structure, leaves_cursors_on_the_last_elements)
{
    const dgRef<dgStructure> root = tsChain(2);
    root->set_cursor(0);
    Events met;
    gr_walk_structure(root.get(), &met, note, grRECURSIVE_YES);
    EXPECT_EQ(root->cursor(), 1);
}

TEST(gr_walk_structure, takes_100000_levels)
{
    constexpr int levels = 100000;
    const dgRef<dgStructure> root = tsChain(levels);
    Events met;
    gr_walk_structure(root.get(), &met, note, note_post, grRECURSIVE_YES);
    EXPECT_EQ(met.size(), 3u * levels - 2);
}

TEST(gr_walk_structure, enters_a_structure_again_once_it_is_through_at_any_depth)
{
    for (int levels = 1; levels < 40; ++levels)
    {
        const dgRef<dgStructure> root = tsChain(levels), part = tsChain(1), caller(new dgClientStructure);
        dgStructure* last = root.get();
        while (last->nelements() > 1)
            last = last->element(1)->called_structure();
        caller->add(new dgStructureCall(part.get()));
        last->add(new dgStructureCall(part.get()));
        last->add(new dgStructureCall(caller.get()));
        Events met;
        gr_walk_structure(root.get(), &met, note, grRECURSIVE_YES);
        EXPECT_EQ(std::count(met.begin(), met.end(), Event{0, part.get(), part->element(0)}), 2) << levels;
    }
}

TEST(grFindElements, references_its_structure_while_it_exists)
{
    const dgRef<dgStructure> root = tsChain(1);
    {
        const grFindElements finder(root.get());
        EXPECT_EQ(root->reference_count(), 2);
    }
    EXPECT_EQ(root->reference_count(), 1);
}
