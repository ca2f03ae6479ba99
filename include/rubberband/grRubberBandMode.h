#pragma once

#include "grExport.h"

#include <iosfwd>

/// How items are drawn over a scene and taken off again.
enum grRubberBandMode : int
{
    grRUBBER_BAND_VIA_XOR = 0,           ///< drawn in the main planes; drawing the same again removes it
    grRUBBER_BAND_IN_OVERLAY_PLANES = 1, ///< drawn in a window of their own, which is erased
    grRUBBER_BAND_IN_MAIN_PLANES = 2     ///< drawn over the scene, which is drawn again without them
};

/// Writes the enumerator's name.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grRubberBandMode value);
