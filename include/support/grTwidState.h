#pragma once

#include "grExport.h"

#include <iosfwd>

/// Where a twiddle, or what takes part in one, is in its life.
enum grTwidState : int
{
    grTWID_NOT_STARTED = 0,
    grTWID_TWIDDLING = 1,
    grTWID_ENDED = 2 ///< a tool may still act on idle events, as a spinning trackball does
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grTwidState state);
