#include "dgBackSurfaceColour.h"

UT_DEFINE_TYPE(dgBackSurfaceColour, dgColourAttribute);

dgBackSurfaceColour* dgBackSurfaceColour::copy() const
{
    return new dgBackSurfaceColour(*this);
}
