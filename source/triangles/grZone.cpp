#include "grZone.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grZone zone)
{
    switch (zone)
    {
    case grUNDETERMINED_ZONE: return os << "grUNDETERMINED_ZONE";
    case grON_ZONE: return os << "grON_ZONE";
    case grPOSITIVE_ZONE: return os << "grPOSITIVE_ZONE";
    case grNEGATIVE_ZONE: return os << "grNEGATIVE_ZONE";
    case grSPANNING_ZONE: return os << "grSPANNING_ZONE";
    }
    return os << "Unknown value for grZone";
}
