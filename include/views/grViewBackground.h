#pragma once

#include "grExport.h"

#include <iosfwd>

/// Whether a view is erased before it is drawn.
enum grViewBackground : int
{
    grVIEW_BACKGROUND_OPAQUE = 0,
    grVIEW_BACKGROUND_TRANSPARENT = 1 ///< never erased: what lies behind the view shows through
};

/// Writes the enumerator's name, and nothing for any other value.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grViewBackground background);
