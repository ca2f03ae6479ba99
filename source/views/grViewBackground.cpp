#include "grViewBackground.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grViewBackground background)
{
    switch (background)
    {
    case grVIEW_BACKGROUND_OPAQUE: return os << "grVIEW_BACKGROUND_OPAQUE";
    case grVIEW_BACKGROUND_TRANSPARENT: return os << "grVIEW_BACKGROUND_TRANSPARENT";
    }
    // Deliberate: nothing is written for an unknown value, unlike by other enumerations: the line of a dump then ends
    // with its label, which its readers take as "not set".
    return os;
}
