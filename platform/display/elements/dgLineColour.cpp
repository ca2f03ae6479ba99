#include "dgLineColour.h"

UT_DEFINE_TYPE(dgLineColour, dgColourAttribute);

dgLineColour* dgLineColour::copy() const
{
    return new dgLineColour(*this);
}
