#pragma once

#include "grExport.h"

#include <iosfwd>

/// From where a block is seen.
enum grBlockVisClass : int
{
    grVIS_UPPER = 0,
    grVIS_LOWER = 1,
    grVIS_UNDECIDED = 2, ///< the zooms did not tell
    grVIS_BOTH = 3       ///< both sides are needed, or it could not be classified
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grBlockVisClass vis);
