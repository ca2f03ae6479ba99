#include "gr_walk_structure.h"

#include "grOpenStructures.h"

#include "dgGraphicalElement.h"
#include "dgRef.h"
#include "dgStructure.h"

#include <utility>
#include <vector>

namespace
{
// What is under way below the current structure. A callback may delete the call, and with it what it calls.
struct Caller
{
    dgStructure* structure;
    dgRef<dgGraphicalElement> call;
    dgRef<dgStructure> called;
};

template <class Pre, class Post>
void walk(dgStructure* root, grRecursive recursive, Pre pre, Post post)
{
    if (root->nelements() == 0)
        return;
    std::vector<Caller> callers;
    grOpenStructures open;
    dgStructure* structure = root;
    open.open(root);
    root->set_cursor(0);
    for (;;)
    {
        dgGraphicalElement* element = structure->read();
        if (element && element->type() == dgTYPE_STRUCTURE_CALL)
        {
            dgRef<dgGraphicalElement> call(element);
            pre(structure, element);
            dgStructure* called = recursive == grRECURSIVE_YES ? element->called_structure() : nullptr;
            if (called && called->nelements() > 0 && !open.contains(called))
            {
                callers.push_back({structure, std::move(call), called});
                open.open(called);
                called->set_cursor(0);
                structure = called;
                continue;
            }
            post(structure, element);
        }
        else if (element)
        {
            pre(structure, element);
        }
        while (!structure->next())
        {
            if (callers.empty())
                return;
            const Caller caller = std::move(callers.back());
            callers.pop_back();
            open.close(structure);
            structure = caller.structure;
            post(structure, caller.call.get());
        }
    }
}
}

void gr_walk_structure(dgStructure* structure, void (*pre)(dgStructure*, dgGraphicalElement*),
                       void (*post)(dgStructure*, dgGraphicalElement*), grRecursive recursive)
{
    walk(structure, recursive, pre, post);
}

void gr_walk_structure(dgStructure* structure, void (*function)(dgGraphicalElement*), grRecursive recursive)
{
    walk(
        structure, recursive, [function](dgStructure*, dgGraphicalElement* element) { function(element); },
        [](dgStructure*, dgGraphicalElement*) {});
}

void gr_walk_structure(dgStructure* structure, void* user_data, void (*pre)(dgStructure*, dgGraphicalElement*, void*),
                       void (*post)(dgStructure*, dgGraphicalElement*, void*), grRecursive recursive)
{
    walk(
        structure, recursive,
        [=](dgStructure* holder, dgGraphicalElement* element) { pre(holder, element, user_data); },
        [=](dgStructure* holder, dgGraphicalElement* element) { post(holder, element, user_data); });
}

void gr_walk_structure(dgStructure* structure, void* user_data,
                       void (*function)(dgStructure*, dgGraphicalElement*, void*), grRecursive recursive)
{
    walk(
        structure, recursive,
        [=](dgStructure* holder, dgGraphicalElement* element) { function(holder, element, user_data); },
        [](dgStructure*, dgGraphicalElement*) {});
}
