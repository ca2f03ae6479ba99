#pragma once

#include "grExport.h"

#include <iosfwd>

/// What a split is busy with.
enum grSplitterProgressSection : int
{
    grSPLITTER_OVERVIEW = 0,   ///< counted in zones
    grSPLITTER_POINT_ZOOM = 1, ///< in blocks that the overview leaves open
    grSPLITTER_BLOCK_ZOOM = 2, ///< in the same blocks
    grSPLITTER_CLASSIFY = 3    ///< in all blocks
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grSplitterProgressSection section);
