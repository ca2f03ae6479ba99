#pragma once

#include "coDList.h"
#include "dgRef.h"
#include "grExport.h"

class dgGraphicalElement;
class dgStructure;

/// A run of elements that was cut out of a structure, and where it was. Keeps both structures alive.
class GR_EXPORT grStructureSlice
{
public:
    /// cake is the structure cut, slice holds the run; both are referenced. home is the element before the run, null
    /// when the run began the structure; it is not referenced.
    grStructureSlice(dgStructure* cake, dgGraphicalElement* home, dgStructure* slice);
    ~grStructureSlice();
    grStructureSlice(const grStructureSlice&) = delete;
    grStructureSlice& operator=(const grStructureSlice&) = delete;

    dgStructure* cake_structure() const { return the_cake.get(); }
    /// Only to be compared: it may have been destroyed since.
    dgGraphicalElement* home_element() const { return the_home; }
    dgStructure* slice_structure() const { return the_slice.get(); }

private:
    dgRef<dgStructure> the_cake;
    dgGraphicalElement* the_home;
    dgRef<dgStructure> the_slice;
};

/// The list owns nothing.
using grStructureSlicecoDListPtr = coDList<grStructureSlice*>;
