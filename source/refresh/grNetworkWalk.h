#pragma once

#include "dgNetworkWalk.h"
#include "dgRenderer.h"

/// Walks a network in drawing order and calls visit for each element that is no call, until it answers 0. A renderer,
/// which may be null, gets a level of context for each structure.
template <class Visit>
void gr_walk_network(const dgStructure& root, dgRenderer* renderer, Visit visit)
{
    class Visitor : public dgNetworkVisitor<>
    {
    public:
        Visitor(dgRenderer* renderer, Visit& visit) : the_renderer(renderer), the_visit(visit) {}
        bool enter(const dgStructure&)
        {
            if (the_renderer)
                the_renderer->push_structure();
            return true;
        }
        bool visit(dgGraphicalElement* element) { return the_visit(*element); }
        void leave(const dgStructure&)
        {
            if (the_renderer)
                the_renderer->pop_structure();
        }

    private:
        dgRenderer* the_renderer;
        Visit& the_visit;
    };
    dg_walk_network(root, Visitor(renderer, visit));
}
