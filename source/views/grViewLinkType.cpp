#include "grViewLinkType.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grViewLinkType type)
{
    switch (type)
    {
    case grVIEW_LINK_ONE_WAY: return os << "grVIEW_LINK_ONE_WAY";
    case grVIEW_LINK_TWO_WAY: return os << "grVIEW_LINK_TWO_WAY";
    }
    // Deliberate: unlike other enumerations, nothing is written for an unknown value.
    return os;
}
