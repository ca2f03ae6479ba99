#include "grViewBackground.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grViewBackground background)
{
    switch (background)
    {
    case grVIEW_BACKGROUND_OPAQUE: return os << "grVIEW_BACKGROUND_OPAQUE";
    case grVIEW_BACKGROUND_TRANSPARENT: return os << "grVIEW_BACKGROUND_TRANSPARENT";
    }
    // Deliberate: unlike other enumerations, nothing is written for an unknown value.
    return os;
}
