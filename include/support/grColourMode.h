#pragma once

#include "grExport.h"

#include <iosfwd>

/// How a window's pixels hold colours.
enum grColourMode : int
{
    grTRUE_COLOUR = 0,  ///< red, green and blue directly
    grPSEUDO_COLOUR = 1 ///< indices into a colour table
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grColourMode mode);
