#pragma once

#include "grConsiderFirstElement.h"
#include "grExport.h"
#include "gsStructureStack.h"

#include <memory>

class dgGraphicalElement;
class dgStructure;
class grOpenStructures;

/// Steps forwards and backwards through a structure and all that it calls, depth first, each call element before the
/// elements of the structure that it calls.
///
///     grStructureTraverser traverser(root);
///     while (traverser.next())
///         look_at(traverser.read());
///
/// A call of an empty structure, or of one that is being stepped through already, is passed over like any other
/// element; so a structure that calls itself comes to an end. Stepping moves the cursors of the structures: a structure
/// may be edited at its cursor between steps, but nothing else must move the cursors. The root and what it calls must
/// outlive the traverser, which references nothing.
class GR_EXPORT grStructureTraverser
{
public:
    /// Starts undefined: before the first element of root, which must not be null.
    explicit grStructureTraverser(dgStructure* root);
    virtual ~grStructureTraverser();
    grStructureTraverser(const grStructureTraverser&) = delete;
    grStructureTraverser& operator=(const grStructureTraverser&) = delete;

    /// To the next element; the first one from undefined. 0 behind the last element: the position is then that of the
    /// root's last element. When that is a call, a further step enters it once more.
    int next();

    /// To the element before, in the exact reverse order of next; from undefined to the very last one. 0 at the root's
    /// first element, with the position undefined afterwards.
    int previous();

    /// The next element of a type code at or behind the current one, entering calls; null when there is none up to the
    /// end of the root. A loop over all elements of a type passes grSKIP_FIRST_ELEMENT.
    dgGraphicalElement* find(int type) { return find(type, grCONSIDER_FIRST_ELEMENT); }
    dgGraphicalElement* find(int type, grConsiderFirstElement consider);

    /// The element at the cursor of the current structure; null when that is empty.
    dgGraphicalElement* read() const;

    /// The structure that holds the current element.
    dgStructure* current() const { return the_stack.current(); }

    /// The position of the current element in its structure, -1 when undefined.
    int position() const { return the_stack.position(); }

    /// 1 in the root, one more for each call entered.
    int depth() const { return the_stack.depth(); }

    /// 1 when the current structure has no elements.
    int empty() const;

    int undefined() const { return position() == -1; }

    /// Back to undefined at the root.
    void reset();

protected:
    /// To the last element of the current structure, if there is one, and on to its last leaf.
    void position_on_last_element();

    /// While structure's current element is a call that can be entered: to the last element of what it calls. Answers
    /// 1 when there was at least one such call.
    int position_on_last_of_structure_call(dgStructure* structure);

private:
    dgStructure* structure_to_enter(const dgGraphicalElement* element) const;
    void push(dgStructure* structure, int position);
    void pop();

    gsStructureStack the_stack;
    std::unique_ptr<grOpenStructures> the_open; // the structures on the stack
};
