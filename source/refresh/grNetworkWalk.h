#pragma once

#include "dgNetworkPlace.h"
#include "dgNetworkWalk.h"
#include "dgRenderer.h"

#include <cstddef>
#include <utility>

/// Meets the elements of a structure from one on and notes its number as the last of a place.
class grPlaceCursor
{
public:
    using Item = dgGraphicalElement*;

    grPlaceCursor(const dgStructure& structure, dgNetworkPlace& place, int start)
        : the_structure(structure), the_place(place), the_next(start)
    {}
    Item next()
    {
        if (the_next >= the_structure.nelements())
            return nullptr;
        the_place.back() = the_next;
        return the_structure.element(the_next++);
    }
    static const dgGraphicalElement* element(Item item) { return item; }

private:
    const dgStructure& the_structure;
    dgNetworkPlace& the_place;
    int the_next;
};

/// Walks a network in drawing order and calls visit for each element that is no call, until it answers 0. A renderer,
/// which may be null, gets a level of context for each structure.
///
/// The walk starts at a place, with the attributes before it in force, an empty one for the beginning, and leaves there
/// where it has ended: behind the last element visited. Between two such walks the network must not change.
template <class Visit>
void gr_walk_network(const dgStructure& root, dgRenderer* renderer, dgNetworkPlace& place, Visit visit)
{
    class Visitor : public dgNetworkVisitor<grPlaceCursor>
    {
    public:
        Visitor(dgRenderer* renderer, const dgNetworkPlace& start, Visit& visit)
            : the_renderer(renderer), the_start(start), the_visit(visit)
        {}
        bool enter(const dgStructure&)
        {
            if (the_renderer)
                the_renderer->push_structure();
            place.push_back(0);
            return true;
        }
        grPlaceCursor cursor(const dgStructure& structure)
        {
            const std::size_t depth = place.size();
            if (depth > the_start.size())
                return {structure, place, 0};
            const int start = the_start[depth - 1];
            for (int i = 0; i < start && the_renderer; ++i)
                if (structure.element(i)->kind() == dgELEMENT_ATTRIBUTE)
                    the_renderer->execute(*structure.element(i));
            if (depth == the_start.size())
                the_start.clear();
            return {structure, place, start};
        }
        bool visit(dgGraphicalElement* element)
        {
            if (the_visit(*element))
                return true;
            stop = place;
            ++stop.back();
            return false;
        }
        void leave(const dgStructure&)
        {
            place.pop_back();
            if (the_renderer)
                the_renderer->pop_structure();
        }
        dgNetworkPlace place, stop;

    private:
        dgRenderer* the_renderer;
        dgNetworkPlace the_start; // as far as the walk has not reached it yet
        Visit& the_visit;
    };
    Visitor visitor(renderer, place, visit);
    dg_walk_network(root, visitor);
    place = std::move(visitor.stop);
}

/// The same for the whole network.
template <class Visit>
void gr_walk_network(const dgStructure& root, dgRenderer* renderer, Visit visit)
{
    dgNetworkPlace place;
    gr_walk_network(root, renderer, place, visit);
}
