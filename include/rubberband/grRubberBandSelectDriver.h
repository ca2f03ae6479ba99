#pragma once

#include "grExport.h"

#include <iosfwd>

/// Whether drawing an item selects the renderer's rubber-band driver, or the caller has done so.
enum grRubberBandSelectDriver : int
{
    grRUBBER_BAND_SELECT_DRIVER = 0,
    grRUBBER_BAND_DO_NOT_SELECT_DRIVER = 1
};

/// Writes the enumerator's name and ends the line.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grRubberBandSelectDriver value);
