#include "grTrackballCentreType.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grTrackballCentreType type)
{
    switch (type)
    {
    case dgLEAVS_TRACKBALL_CENTRE_VIEW: return os << "dgLEAVS_TRACKBALL_CENTRE_VIEW";
    case dgLEAVS_TRACKBALL_CENTRE_VIEWPORT: return os << "dgLEAVS_TRACKBALL_CENTRE_VIEWPORT";
    case dgLEAVS_TRACKBALL_CENTRE_WORKPLANE: return os << "dgLEAVS_TRACKBALL_CENTRE_WORKPLANE";
    }
    return os << "Unknown value for grTrackballCentreType";
}
