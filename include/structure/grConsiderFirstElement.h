#pragma once

/// Whether a search may answer the element where it starts.
enum grConsiderFirstElement : int
{
    grCONSIDER_FIRST_ELEMENT = 0, ///< 0 means yes
    grSKIP_FIRST_ELEMENT = 1
};
