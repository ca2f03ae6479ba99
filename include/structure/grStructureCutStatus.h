#pragma once

#include "grExport.h"

#include <iosfwd>

/// Outcome of a cut.
enum grStructureCutStatus : int
{
    grSTRUCTURE_CUT_OK = 0,       ///< also when there was nothing to cut
    grSTRUCTURE_CUT_UNCLOSED = 1, ///< a start label inside an open slice, or the structure ended before the end label
    grSTRUCTURE_CUT_NO_START = 2  ///< an end label outside a slice
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grStructureCutStatus status);
