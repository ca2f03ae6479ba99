#pragma once

#include "grExport.h"

#include <iosfwd>

/// How a view is linked to its parent.
enum grViewLinkType : int
{
    grVIEW_LINK_ONE_WAY = 0,
    grVIEW_LINK_TWO_WAY = 1
};

/// Writes the enumerator's name, and nothing for any other value.
GR_EXPORT std::ostream& operator<<(std::ostream& os, grViewLinkType type);
