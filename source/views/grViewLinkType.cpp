#include "grViewLinkType.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grViewLinkType type)
{
    switch (type)
    {
    case grVIEW_LINK_ONE_WAY: return os << "grVIEW_LINK_ONE_WAY";
    case grVIEW_LINK_TWO_WAY: return os << "grVIEW_LINK_TWO_WAY";
    }
    // Deliberate: nothing is written for an unknown value, unlike by other enumerations: the line of a dump then ends
    // with its label, which its readers take as "not set".
    return os;
}
