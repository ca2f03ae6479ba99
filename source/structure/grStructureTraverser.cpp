#include "grStructureTraverser.h"

#include "grOpenStructures.h"

#include "dgGraphicalElement.h"
#include "dgStructure.h"

#include <algorithm>

grStructureTraverser::grStructureTraverser(dgStructure* root) : the_open(std::make_unique<grOpenStructures>())
{
    push(root, -1);
    root->set_cursor(0);
}

grStructureTraverser::~grStructureTraverser() = default;

int grStructureTraverser::next()
{
    dgStructure* structure = current();
    if (undefined())
    {
        if (empty())
            return 0;
        structure->set_cursor(0);
        the_stack.set_position(0);
        return 1;
    }
    if (dgStructure* called = structure_to_enter(structure->read()))
    {
        the_stack.set_position(structure->cursor());
        push(called, 0);
        called->set_cursor(0);
        return 1;
    }
    while (!structure->next())
    {
        if (depth() == 1)
            return 0;
        pop();
        structure = current();
    }
    the_stack.set_position(structure->cursor());
    return 1;
}

int grStructureTraverser::previous()
{
    dgStructure* structure = current();
    if (undefined())
    {
        if (empty())
            return 0;
        position_on_last_element();
        return 1;
    }
    if (position() == 0 && depth() > 1)
    {
        // A call may have been deleted from under the step, with all that was before it.
        do
            pop();
        while (!read() && depth() > 1);
        the_stack.set_position(current()->cursor());
        return !undefined();
    }
    if (position() == 0 || !structure->previous())
    {
        the_stack.set_position(-1);
        return 0;
    }
    the_stack.set_position(structure->cursor());
    position_on_last_of_structure_call(structure);
    return 1;
}

dgGraphicalElement* grStructureTraverser::find(int type, grConsiderFirstElement consider)
{
    dgStructure* structure = current();
    int at = 0;
    if (!undefined())
    {
        at = std::max(structure->cursor(), 0); // it is -1 when the first element was deleted
        if (consider != grCONSIDER_FIRST_ELEMENT)
        {
            if (dgStructure* called = structure_to_enter(structure->read()))
            {
                the_stack.set_position(at);
                push(called, 0);
                structure = called;
                at = 0;
            }
            else
            {
                at = structure->cursor() + 1;
            }
        }
    }
    for (;;)
    {
        const int count = structure->nelements();
        dgStructure* called = nullptr;
        for (; at < count && !called; ++at)
        {
            dgGraphicalElement* element = structure->element(at);
            const bool found = element->type() == type;
            if (!found)
                called = structure_to_enter(element);
            if (!found && !called)
                continue;
            structure->set_cursor(at);
            the_stack.set_position(at);
            if (found)
                return element;
        }
        if (called)
        {
            push(called, 0);
            structure = called;
            at = 0;
            continue;
        }
        if (depth() == 1)
        {
            // As behind the last step of next.
            structure->set_cursor(count - 1);
            the_stack.set_position(count - 1);
            return nullptr;
        }
        pop();
        structure = current();
        at = position() + 1;
    }
}

dgGraphicalElement* grStructureTraverser::read() const
{
    return current()->read();
}

int grStructureTraverser::empty() const
{
    return current()->nelements() == 0;
}

void grStructureTraverser::reset()
{
    while (depth() > 1)
        pop();
    dgStructure* root = current();
    pop();
    push(root, -1);
    root->set_cursor(0);
}

void grStructureTraverser::position_on_last_element()
{
    dgStructure* structure = current();
    if (empty())
        return;
    structure->set_cursor(structure->nelements() - 1);
    the_stack.set_position(structure->cursor());
    position_on_last_of_structure_call(structure);
}

int grStructureTraverser::position_on_last_of_structure_call(dgStructure* structure)
{
    int descended = 0;
    while (dgStructure* called = structure_to_enter(structure->read()))
    {
        the_stack.set_position(structure->cursor());
        push(called, called->nelements() - 1);
        called->set_cursor(called->nelements() - 1);
        structure = called;
        descended = 1;
    }
    return descended;
}

dgStructure* grStructureTraverser::structure_to_enter(const dgGraphicalElement* element) const
{
    if (!element || element->type() != dgTYPE_STRUCTURE_CALL)
        return nullptr;
    dgStructure* called = element->called_structure();
    return called && called->nelements() > 0 && !the_open->contains(called) ? called : nullptr;
}

void grStructureTraverser::push(dgStructure* structure, int position)
{
    the_stack.push(structure, position);
    the_open->open(structure);
}

void grStructureTraverser::pop()
{
    the_open->close(current());
    the_stack.pop();
}
