#pragma once

#include "grExport.h"

#include <iosfwd>

/// Outcome of a paste. There is no 1.
enum grStructurePasteStatus : int
{
    grSTRUCTURE_PASTE_OK = 0,
    grSTRUCTURE_PASTE_NO_HOME = 2 ///< the element before the slice is no longer in the structure
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grStructurePasteStatus status);
