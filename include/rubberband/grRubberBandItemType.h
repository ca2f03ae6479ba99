#pragma once

#include "grExport.h"

#include <iosfwd>

/// The kinds of item.
enum grRubberBandItemType : int
{
    grRUBBER_BAND_CALLBACK_ITEM = 0,
    grRUBBER_BAND_STRUCTURE_ITEM = 1,
    grRUBBER_BAND_GRAPHICAL_ELEMENT_ITEM = 2
};

/// Writes the enumerator's name and ends the line.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grRubberBandItemType value);
