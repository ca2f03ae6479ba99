#pragma once

#include "grExport.h"

#include <iosfwd>

/// Which rule has classified a block.
enum grBlockDiagClass : int
{
    grDIAG_OVERVIEW_UPPER = 0,
    grDIAG_OVERVIEW_LOWER = 1,
    grDIAG_OVERVIEW_NEITHER = 2, ///< enough pixels and no side dominant
    grDIAG_POINT_ZOOM_UPPER = 3,
    grDIAG_POINT_ZOOM_LOWER = 4,
    grDIAG_POINT_ZOOM_NEITHER = 5, ///< or no pixels
    grDIAG_STUBBY_UPPER = 6,       ///< block zoom of a stubby block
    grDIAG_STUBBY_LOWER = 7,
    grDIAG_STUBBY_NEITHER = 8,
    grDIAG_THIN_UPPER = 9, ///< block zoom of a thin block
    grDIAG_THIN_LOWER = 10,
    grDIAG_NOT_VERTICAL = 11, ///< undecided by the block zoom, and nothing in the block is vertical
    grDIAG_NOT_CLASSIFIED = 12,
    grDIAG_SELF_HIDER = 13 ///< classified to one side, but the block hides parts of itself
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grBlockDiagClass diag);
