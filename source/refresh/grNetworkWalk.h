#pragma once

#include "dgEnums.h"
#include "dgGraphicalElement.h"
#include "dgRenderer.h"
#include "dgStructure.h"

#include <unordered_set>
#include <vector>

/// Walks a network in drawing order and calls visit for each element that is no call, until it answers 0. A renderer,
/// which may be null, gets a level of context for each structure. Structures lie on a vector, not on the call stack, so
/// that networks may be of any depth; one that is being walked is not entered again.
template <class Visit>
void gr_walk_network(const dgStructure& root, dgRenderer* renderer, Visit visit)
{
    struct Frame
    {
        const dgStructure* structure;
        int position;
    };
    std::vector<Frame> frames;
    std::unordered_set<const dgStructure*> open;
    const auto enter = [&](const dgStructure& structure)
    {
        if (!open.insert(&structure).second)
            return;
        frames.push_back({&structure, 0});
        if (renderer)
            renderer->push_structure();
    };
    const auto leave = [&]
    {
        open.erase(frames.back().structure);
        frames.pop_back();
        if (renderer)
            renderer->pop_structure();
    };
    enter(root);
    while (!frames.empty())
    {
        Frame& frame = frames.back();
        if (frame.position == frame.structure->nelements())
        {
            leave();
            continue;
        }
        const dgGraphicalElement& element = *frame.structure->element(frame.position++);
        if (element.type() == dgTYPE_STRUCTURE_CALL)
        {
            if (const dgStructure* called = element.called_structure())
                enter(*called);
        }
        else if (!visit(element))
        {
            while (!frames.empty())
                leave();
        }
    }
}
