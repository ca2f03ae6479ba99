#pragma once

#include "dgBaseList.h"
#include "dgRef.h"
#include "grExport.h"
#include "grRecursive.h"

class dgStructure;

/// Finds all elements of one type in a structure.
class GR_EXPORT grFindElements
{
public:
    /// structure is referenced and must not be null.
    explicit grFindElements(dgStructure* structure);
    ~grFindElements();
    grFindElements(const grFindElements&) = delete;
    grFindElements& operator=(const grFindElements&) = delete;

    /// Appends every element of a type code to the list, in the order of gr_walk_structure, and answers their number.
    /// An element that is reached several times is appended each time. The list references nothing. Moves cursors as
    /// gr_walk_structure does.
    int find_elements(int type, dgBaseList& list, grRecursive recursive) const;

private:
    dgRef<dgStructure> the_structure;
};
