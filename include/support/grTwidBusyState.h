#pragma once

#include "grExport.h"

#include <iosfwd>

/// Whether a tool keeps the user busy: one that goes on by itself after its end, such as a spinning trackball, does
/// not.
enum grTwidBusyState : int
{
    grTWID_NOT_BUSY = 0,
    grTWID_BUSY = 1
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grTwidBusyState state);
