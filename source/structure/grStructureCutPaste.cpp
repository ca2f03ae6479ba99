#include "grStructureCutPaste.h"

#include "dgClientStructure.h"
#include "dgGraphicalElement.h"
#include "gsStructureUtils.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace
{
struct Run
{
    int first = -1; // the start label; -1: there is none
    int last = -1;  // the end label
};

// The first run at or behind from, where no run is open.
grStructureCutStatus find_run(const dgStructure& structure, int from, int start_label, int end_label, Run& run)
{
    int first = -1;
    for (int i = from; i < structure.nelements(); ++i)
    {
        const dgGraphicalElement* element = structure.element(i);
        if (element->type() != dgTYPE_LABEL)
            continue;
        const int label = element->label();
        if (first < 0)
        {
            if (label == end_label)
                return grSTRUCTURE_CUT_NO_START;
            if (label == start_label)
                first = i;
        }
        else if (label == start_label)
        {
            return grSTRUCTURE_CUT_UNCLOSED;
        }
        else if (label == end_label)
        {
            run = {first, i};
            return grSTRUCTURE_CUT_OK;
        }
    }
    return first < 0 ? grSTRUCTURE_CUT_OK : grSTRUCTURE_CUT_UNCLOSED;
}

using ElementRefs = std::vector<dgRef<dgGraphicalElement>>;

ElementRefs elements_of(const dgStructure& structure, const Run& run)
{
    ElementRefs elements;
    elements.reserve(static_cast<std::size_t>(run.last - run.first + 1));
    for (int i = run.first; i <= run.last; ++i)
        elements.emplace_back(structure.element(i));
    return elements;
}

dgGraphicalElement* home_of(const dgStructure& structure, const Run& run)
{
    return run.first > 0 ? structure.element(run.first - 1) : nullptr;
}

grStructureSlice* make_slice(dgStructure& cake, dgGraphicalElement* home, const ElementRefs& elements)
{
    auto* structure = new dgClientStructure(static_cast<int>(elements.size()));
    auto* slice = new grStructureSlice(&cake, home, structure);
    for (const dgRef<dgGraphicalElement>& element : elements)
        structure->add(element.get());
    return slice;
}

// The position behind home's first place, where what follows it starts.
int position_behind(const dgGraphicalElement* home, int known_position, const dgStructure& structure)
{
    if (home->times_held_by(&structure) == 1)
        return known_position + 1;
    // Deliberate: an element that is there several times is met at its first place.
    return gsStructureUtils::element_index(home, &structure);
}

// Cuts one structure, not those that it calls.
grStructureCutStatus cut_structure(dgStructure& structure, int start_label, int end_label,
                                   grStructureSlicecoDListPtr& slices)
{
    int from = 0;
    for (;;)
    {
        Run run;
        const grStructureCutStatus status = find_run(structure, from, start_label, end_label, run);
        if (status != grSTRUCTURE_CUT_OK || run.first < 0)
            return status;
        dgGraphicalElement* home = home_of(structure, run);
        const int first = home ? position_behind(home, run.first - 1, structure) : 0;
        // Out of one structure before into the other: an element in two has to keep a list of them.
        const ElementRefs elements = elements_of(structure, run);
        structure.delete_range(first, first + run.last - run.first);
        slices.add_last(make_slice(structure, home, elements));
        from = first; // not behind the run: what lies before has been searched
    }
}

grStructureCutStatus cut_all(dgStructure* root, int start_label, int end_label, int recursive,
                             grStructureSlicecoDListPtr& slices)
{
    // A stack in place of recursion; a structure that was cut has no labels left, so once is enough.
    std::vector<dgStructure*> pending{root};
    std::unordered_set<const dgStructure*> met;
    while (!pending.empty())
    {
        dgStructure* structure = pending.back();
        pending.pop_back();
        if (!met.insert(structure).second)
            continue;
        const grStructureCutStatus status = cut_structure(*structure, start_label, end_label, slices);
        if (status != grSTRUCTURE_CUT_OK || !recursive)
            return status;
        dgStructurecoDList called;
        grStructureCutPaste::find_called_structures(structure, called);
        std::reverse(called.begin(), called.end());
        pending.insert(pending.end(), called.begin(), called.end());
    }
    return grSTRUCTURE_CUT_OK;
}

// The place where home is found first, or -1. Places near the cursor are looked at first. Home may be gone for long: it
// is no more than an address until it is found.
int first_place(const dgGraphicalElement* home, const dgStructure& cake)
{
    const int count = cake.nelements();
    int below = cake.cursor(), above = below + 1, found = -1;
    while (found < 0 && (below >= 0 || above < count))
    {
        if (below >= 0 && cake.element(below) == home)
            found = below;
        else if (above < count && cake.element(above) == home)
            found = above;
        --below;
        ++above;
    }
    return found < 0 ? -1 : position_behind(home, found, cake) - 1;
}
}

grStructureCutStatus grStructureCutPaste::cut(dgStructure* structure, int start_label, int end_label, int recursive,
                                              grStructureSlicecoDListPtr& slices)
{
    const grStructureCutStatus status = cut_all(structure, start_label, end_label, recursive, slices);
    if (status != grSTRUCTURE_CUT_OK)
    {
        // Deliberate: the list is emptied as a whole, so that callers who see a failure have no slices to free. What
        // was cut is lost, slices that were in the list before included.
        for (grStructureSlice* slice : slices)
            delete slice;
        slices.clear();
    }
    return status;
}

grStructureSlice* grStructureCutPaste::find_first_slice(dgStructure* structure, int start_label, int end_label,
                                                        grStructureCutStatus& status)
{
    Run run;
    status = find_run(*structure, 0, start_label, end_label, run);
    if (status != grSTRUCTURE_CUT_OK || run.first < 0)
        return nullptr;
    return make_slice(*structure, home_of(*structure, run), elements_of(*structure, run));
}

void grStructureCutPaste::find_called_structures(const dgStructure* structure, dgStructurecoDList& structures)
{
    for (int i = 0; i < structure->nelements(); ++i)
    {
        const dgGraphicalElement* element = structure->element(i);
        if (element->type() != dgTYPE_STRUCTURE_CALL)
            continue;
        if (dgStructure* called = element->called_structure())
            structures.add_last(called);
    }
}

grStructurePasteStatus grStructureCutPaste::paste(grStructureSlice* slice)
{
    dgStructure& cake = *slice->cake_structure();
    const dgStructure& elements = *slice->slice_structure();
    const int home = slice->home_element() ? first_place(slice->home_element(), cake) : -1;
    if (slice->home_element() && home < 0)
        return grSTRUCTURE_PASTE_NO_HOME;
    cake.set_cursor(home);
    for (int i = 0; i < elements.nelements(); ++i)
        cake.insert(elements.element(i));
    return grSTRUCTURE_PASTE_OK;
}

grStructurePasteStatus grStructureCutPaste::paste(const grStructureSlicecoDListPtr& slices)
{
    for (int i = slices.count() - 1; i >= 0; --i)
    {
        const grStructurePasteStatus status = paste(slices[i]);
        if (status != grSTRUCTURE_PASTE_OK)
            return status;
    }
    return grSTRUCTURE_PASTE_OK;
}
