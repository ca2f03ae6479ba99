#pragma once

#include "grExport.h"

#include <iosfwd>

/// What is on the screen of an item.
enum grRubberBandItemState : int
{
    grDRAWN_RUBBER_BAND_ITEM = 0,
    grUNDRAWN_RUBBER_BAND_ITEM = 1,
    grTEMP_UNDRAWN_RUBBER_BAND_ITEM = 2 ///< taken off for a redraw of the scene, to be put back
};

/// Writes the enumerator's name and ends the line.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grRubberBandItemState value);
