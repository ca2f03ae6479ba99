#pragma once

#include "grExport.h"

#include <iosfwd>

/// What an idle call asks of its caller; every value but 0 asks to be called again.
enum grIdleAction : int
{
    grIDLE_DONE = 0,
    grIDLE_AGAIN = 1
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grIdleAction action);
