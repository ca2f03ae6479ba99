#pragma once

#include "grExport.h"

#include <iosfwd>

/// Which way an item is drawn.
enum grRubberBandIt : int
{
    grDRAW_RUBBER_BAND_ITEM = 0,
    grUNDRAW_RUBBER_BAND_ITEM = 1
};

/// Writes the enumerator's name and ends the line.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grRubberBandIt value);
