#include "dgMarkerColour.h"

UT_DEFINE_TYPE(dgMarkerColour, dgColourAttribute);

dgMarkerColour* dgMarkerColour::copy() const
{
    return new dgMarkerColour(*this);
}
