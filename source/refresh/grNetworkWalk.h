#pragma once

#include "dgGraphicalPrimitive.h"
#include "dgLooks.h"
#include "dgNetworkPlace.h"
#include "dgNetworkWalk.h"
#include "dgRenderer.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Meets the elements of a structure from one on, notes its number as the last of a place, and which was met last.
class grPlaceCursor
{
public:
    using Item = dgGraphicalElement*;

    grPlaceCursor(const dgStructure& structure, dgNetworkPlace& place, const dgGraphicalElement*& met, int start)
        : the_structure(structure), the_place(place), the_met(met), the_next(start)
    {}
    Item next()
    {
        if (the_next >= the_structure.nelements())
            return nullptr;
        the_place.back() = the_next;
        dgGraphicalElement* const element = the_structure.element(the_next++);
        the_met = element;
        return element;
    }
    static const dgGraphicalElement* element(Item item) { return item; }

private:
    const dgStructure& the_structure;
    dgNetworkPlace& the_place;
    const dgGraphicalElement*& the_met;
    int the_next;
};

/// Walks a network in drawing order and calls visit for each element that is no call, until it answers 0, but for those
/// that looks, which may be null, hide. A renderer, which may be null, gets a level of context for each structure, and
/// looks put in force.
///
/// The walk starts at a place, with the attributes before it in force, an empty one for the beginning, and leaves there
/// where it has ended: behind the last element visited. Between two such walks the network must not change.
template <class Visit>
void gr_walk_network(const dgStructure& root, const dgLooks* looks, dgRenderer* renderer, dgNetworkPlace& place,
                     Visit visit)
{
    class Visitor : public dgNetworkVisitor<grPlaceCursor>
    {
    public:
        Visitor(const dgLooks* looks, dgRenderer* renderer, const dgNetworkPlace& start, Visit& visit)
            : the_renderer(renderer), the_start(start), the_visit(visit)
        {
            if (looks)
                the_next_look = looks->root();
        }
        bool enter(const dgStructure&)
        {
            if (the_met && !dgLooks::enter(the_looks.back(), *the_met, the_next_look))
                return false;
            the_looks.push_back(the_next_look);
            if (the_renderer)
            {
                the_renderer->push_structure();
                dgLooks::put_in_force(the_next_look, *the_renderer);
            }
            place.push_back(0);
            return true;
        }
        grPlaceCursor cursor(const dgStructure& structure)
        {
            const std::size_t depth = place.size();
            if (depth > the_start.size())
                return {structure, place, the_met, 0};
            const int start = the_start[depth - 1];
            for (int i = 0; i < start && the_renderer; ++i)
                if (structure.element(i)->kind() == dgELEMENT_ATTRIBUTE)
                    the_renderer->execute(*structure.element(i));
            if (depth == the_start.size())
                the_start.clear();
            return {structure, place, the_met, start};
        }
        bool visit(dgGraphicalElement* element)
        {
            dgLooks::Place look;
            if (element->kind() != dgELEMENT_ATTRIBUTE && !dgLooks::enter(the_looks.back(), *element, look))
                return true;
            bool go_on = visit(*element, look);
            if (dgLooks::Place over; element->kind() == dgELEMENT_PRIMITIVE)
                if (const auto* triangles =
                        dgLooks::triangles(look, static_cast<const dgGraphicalPrimitive&>(*element), over))
                    go_on &= visit(*triangles, over);
            if (go_on)
                return true;
            stop = place;
            ++stop.back();
            return false;
        }
        bool visit(const dgGraphicalElement& element, const dgLooks::Place& look)
        {
            const bool own_look = the_renderer && dgLooks::has_look(look);
            if (own_look)
            {
                the_renderer->push_structure();
                dgLooks::put_in_force(look, *the_renderer);
            }
            const bool go_on = the_visit(element);
            if (own_look)
                the_renderer->pop_structure();
            return go_on;
        }
        void leave(const dgStructure&)
        {
            the_looks.pop_back();
            place.pop_back();
            if (the_renderer)
                the_renderer->pop_structure();
        }
        dgNetworkPlace place, stop;

    private:
        dgRenderer* the_renderer;
        dgNetworkPlace the_start; // as far as the walk has not reached it yet
        const dgGraphicalElement* the_met = nullptr;
        dgLooks::Place the_next_look;
        std::vector<dgLooks::Place> the_looks; // of the structures under way
        Visit& the_visit;
    };
    Visitor visitor(looks, renderer, place, visit);
    dg_walk_network(root, visitor);
    place = std::move(visitor.stop);
}

/// The same for the whole network.
template <class Visit>
void gr_walk_network(const dgStructure& root, const dgLooks* looks, dgRenderer* renderer, Visit visit)
{
    dgNetworkPlace place;
    gr_walk_network(root, looks, renderer, place, visit);
}
