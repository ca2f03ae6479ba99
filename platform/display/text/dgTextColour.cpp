#include "dgTextColour.h"

UT_DEFINE_TYPE(dgTextColour, dgColourAttribute);

dgTextColour* dgTextColour::copy() const
{
    return new dgTextColour(*this);
}
