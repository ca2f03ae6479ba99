#include "grColourMode.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grColourMode mode)
{
    switch (mode)
    {
    case grTRUE_COLOUR: return os << "grTRUE_COLOUR";
    case grPSEUDO_COLOUR: return os << "grPSEUDO_COLOUR";
    }
    return os << "Unknown value for grColourMode";
}
