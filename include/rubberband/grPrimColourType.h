#pragma once

#include "grExport.h"

#include <iosfwd>

/// The primitives that a colour is for.
enum grPrimColourType : int
{
    grLINE_COLOUR = 0,
    grTEXT_COLOUR = 1,
    grMARKER_COLOUR = 2,
    grALL_PRIM_COLOUR = 3 ///< lines, text and markers
};

/// Writes the enumerator's name.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grPrimColourType value);
