#include "grTwidState.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grTwidState state)
{
    switch (state)
    {
    case grTWID_NOT_STARTED: return os << "grTWID_NOT_STARTED";
    case grTWID_TWIDDLING: return os << "grTWID_TWIDDLING";
    case grTWID_ENDED: return os << "grTWID_ENDED";
    }
    return os << "Unknown value for grTwidState";
}
