#pragma once

#include "dgStructure.h"

/// Walks a structure's elements without its cursor. Starts on the first element; the structure must not change.
class dgStructureIterator
{
public:
    explicit dgStructureIterator(const dgStructure& structure) : the_structure(structure) {}

    /// The current element, null behind the end.
    dgGraphicalElement* operator()() const
    {
        return the_position < the_structure.nelements() ? the_structure.element(the_position) : nullptr;
    }

    /// Moves on; false at the end.
    bool operator++() { return ++the_position < the_structure.nelements(); }

private:
    const dgStructure& the_structure;
    int the_position = 0;
};
