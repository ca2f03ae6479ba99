#pragma once

#include "grExport.h"
#include "grStructureCutStatus.h"
#include "grStructurePasteStatus.h"
#include "grStructureSlice.h"

class dgStructure;

using dgStructurecoDList = coDList<dgStructure*>;

/// Cuts the runs of elements between pairs of labels out of structures and puts them back.
///
/// A slice holds a counted reference on the structure that it was cut from: whoever lends a structure keeps a reference
/// of its own.
class GR_EXPORT grStructureCutPaste
{
public:
    grStructureCutPaste() = delete;

    /// Cuts every run from a start label to the next end label, both included, out of structure and appends them to
    /// slices as new grStructureSlice, owned by the caller. With recursive not 0, the structures that are called by the
    /// elements left are cut in the same way, in order, each once.
    ///
    /// Stops at the first failure, and then destroys all slices of the list, also those it held before, and empties
    /// it: what was cut does not come back. The time is proportional to the number of elements plus that of slices.
    static grStructureCutStatus cut(dgStructure* structure, int start_label, int end_label, int recursive,
                                    grStructureSlicecoDListPtr& slices);

    /// The first such run of one structure as a new slice owned by the caller, or null, with the reason in status. The
    /// structure keeps its elements and its cursor.
    static grStructureSlice* find_first_slice(dgStructure* structure, int start_label, int end_label,
                                              grStructureCutStatus& status);

    /// Appends the called structure of each structure call in order; a call of none is left out.
    static void find_called_structures(const dgStructure* structure, dgStructurecoDList& structures);

    /// Inserts a slice's elements behind its home element, or first when it has none. An element that the structure
    /// holds several times is met at its first place. The slice keeps its elements: a second paste inserts them again.
    /// Leaves the structure's cursor on the last element inserted; a search for the next slice's home starts there, so
    /// that pasting many slices in one go takes one pass.
    static grStructurePasteStatus paste(grStructureSlice* slice);

    /// Pastes slices from the last to the first, so that the home of each is there before it is needed. Stops at the
    /// first failure.
    static grStructurePasteStatus paste(const grStructureSlicecoDListPtr& slices);
};
