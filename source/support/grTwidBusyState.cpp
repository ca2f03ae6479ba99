#include "grTwidBusyState.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grTwidBusyState state)
{
    switch (state)
    {
    case grTWID_NOT_BUSY: return os << "grTWID_NOT_BUSY";
    case grTWID_BUSY: return os << "grTWID_BUSY";
    }
    return os << "Unknown value for grTwidBusyState";
}
