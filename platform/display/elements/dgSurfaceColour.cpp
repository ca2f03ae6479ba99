#include "dgSurfaceColour.h"

UT_DEFINE_TYPE(dgSurfaceColour, dgColourAttribute);

dgSurfaceColour* dgSurfaceColour::copy() const
{
    return new dgSurfaceColour(*this);
}
