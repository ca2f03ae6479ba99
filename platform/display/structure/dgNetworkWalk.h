#pragma once

#include "dgGraphicalElement.h"
#include "dgRef.h"
#include "dgStructure.h"
#include "dgTransform.h"
#include "dgWorldTransform.h"
#include "giXform3.h"

#include <vector>

/// Meets the elements of a structure one by one, in order.
class dgElementCursor
{
public:
    using Item = dgGraphicalElement*;

    explicit dgElementCursor(const dgStructure& structure) : the_structure(structure) {}

    /// The next element, null behind the last one; the structure may change in between.
    Item next() { return the_position < the_structure.nelements() ? the_structure.element(the_position++) : nullptr; }
    static const dgGraphicalElement* element(Item item) { return item; }

private:
    const dgStructure& the_structure;
    int the_position = 0;
};

/// What a walk through a network calls. A visitor hides what it needs by functions of its own.
template <class TheCursor = dgElementCursor>
class dgNetworkVisitor
{
public:
    using Cursor = TheCursor;

    /// The number of the walk. Walks of one number that lie within each other enter no structure twice.
    unsigned long long walk() const { return dgStructure::new_walk(); }

    /// Asked before a structure is entered that is not under way; false leaves it out.
    bool enter(const dgStructure&) { return true; }

    /// Meets the items of a structure that was entered.
    TheCursor cursor(const dgStructure& structure) { return TheCursor(structure); }

    /// Called for every item that is no call; false ends the walk, and leaves all that is under way.
    bool visit(typename Cursor::Item) { return true; }

    /// Called behind the last element of each structure that was entered.
    void leave(const dgStructure&) {}
};

/// Walks a network in drawing order, through calls. Structures lie on a vector, not on the call stack, so that calls
/// may be of any depth; one that is under way is not entered again, so that circles end. What is under way is kept
/// until it is left, also when a visitor edits or drops it; a structure that nobody counts is its owner's to keep.
template <class Visitor>
void dg_walk_network(const dgStructure& root, Visitor&& visitor)
{
    using Cursor = typename std::remove_reference_t<Visitor>::Cursor;
    struct Frame
    {
        const dgStructure* structure;
        dgRef<dgStructure> held;
        unsigned long long walk_before;
        Cursor cursor;
    };
    std::vector<Frame> frames;
    const unsigned long long walk = visitor.walk();
    const auto enter = [&](const dgStructure& structure)
    {
        if (structure.walk() == walk || !visitor.enter(structure))
            return;
        frames.push_back({&structure, dg_hold(structure), structure.open_walk(walk), visitor.cursor(structure)});
    };
    const auto leave = [&]
    {
        const Frame frame = std::move(frames.back());
        frames.pop_back();
        visitor.leave(*frame.structure);
        frame.structure->close_walk(frame.walk_before);
    };
    enter(root);
    while (!frames.empty())
    {
        const auto item = frames.back().cursor.next();
        if (!item)
        {
            leave();
            continue;
        }
        const dgGraphicalElement* element = Cursor::element(item);
        if (element && element->type() == dgTYPE_STRUCTURE_CALL)
        {
            if (const dgStructure* called = element->called_structure())
                enter(*called);
        }
        else if (!visitor.visit(item))
        {
            while (!frames.empty())
                leave();
        }
    }
}

/// Lets an element of a structure change the transform in force for those after it: true if it is a transform of either
/// kind, and false for any other element, which leaves in_force alone.
inline bool dg_pass_transform(const dgGraphicalElement& element, giXform3& in_force)
{
    if (element.type() == dgTYPE_TRANSFORM)
        in_force = static_cast<const dgTransform&>(element).transform() * in_force;
    else if (element.type() == dgTYPE_WORLD_TRANSFORM)
        in_force = static_cast<const dgWorldTransform&>(element).transform();
    else
        return false;
    return true;
}

/// A visitor that knows the transform in force. Visitors made from it call pass first in visit.
class dgPlacingVisitor : public dgNetworkVisitor<>
{
public:
    bool enter(const dgStructure&)
    {
        the_transforms.push_back(transform());
        return true;
    }
    void leave(const dgStructure&) { the_transforms.pop_back(); }

    /// From the coordinates of the elements met next to those of the root.
    const giXform3& transform() const { return the_transforms.back(); }

    /// As dg_pass_transform.
    bool pass(const dgGraphicalElement& element) { return dg_pass_transform(element, the_transforms.back()); }

private:
    std::vector<giXform3> the_transforms{giXform3()};
};

/// Walks a network and calls visit(element, transform) for each element that is neither call nor transform, until it
/// answers false.
template <class Visit>
void dg_walk_placed(const dgStructure& root, Visit visit)
{
    class Visitor : public dgPlacingVisitor
    {
    public:
        explicit Visitor(Visit& visit) : the_visit(visit) {}
        bool visit(dgGraphicalElement* element) { return pass(*element) || the_visit(*element, transform()); }

    private:
        Visit& the_visit;
    };
    dg_walk_network(root, Visitor(visit));
}
