#pragma once

#include "dgLooks.h"
#include "dgNetworkWalk.h"
#include "giBox3.h"

#include <vector>

/// Walks what looks, which may be null, show of a network, and calls visit(element, transform) for each element that is
/// neither call nor transform, until it answers false.
template <class Visit>
void dg_walk_shown(const dgStructure& root, const dgLooks* looks, Visit visit)
{
    class Visitor : public dgPlacingVisitor
    {
    public:
        // Tells the visitor which call was met last.
        class Cursor : public dgElementCursor
        {
        public:
            Cursor(const dgStructure& structure, Visitor& visitor) : dgElementCursor(structure), the_visitor(&visitor)
            {}
            Item next() { return the_visitor->the_met = dgElementCursor::next(); }

        private:
            Visitor* the_visitor;
        };

        Visitor(const dgLooks* looks, Visit& visit) : the_visit(visit)
        {
            if (looks)
                the_next = looks->root();
        }
        bool enter(const dgStructure& structure)
        {
            if (the_met && !dgLooks::enter(the_places.back(), *the_met, the_next))
                return false;
            the_places.push_back(the_next);
            return dgPlacingVisitor::enter(structure);
        }
        Cursor cursor(const dgStructure& structure) { return Cursor(structure, *this); }
        bool visit(const dgGraphicalElement* element)
        {
            dgLooks::Place place;
            return pass(*element) ||
                   (element->kind() != dgELEMENT_ATTRIBUTE && !dgLooks::enter(the_places.back(), *element, place)) ||
                   the_visit(*element, transform());
        }
        void leave(const dgStructure& structure)
        {
            the_places.pop_back();
            dgPlacingVisitor::leave(structure);
        }

    private:
        friend class Cursor;
        Visit& the_visit;
        dgGraphicalElement* the_met = nullptr;
        dgLooks::Place the_next;
        std::vector<dgLooks::Place> the_places; // of the structures under way
    };
    dg_walk_network(root, Visitor(looks, visit));
}
