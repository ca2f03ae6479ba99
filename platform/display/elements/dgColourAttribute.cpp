#include "dgColourAttribute.h"

UT_DEFINE_TYPE(dgColourAttribute, dgGraphicalAttribute);

void dgColourAttribute::colour(const gsColour& colour)
{
    the_colour = colour;
    changed();
}

int dgColourAttribute::equal_value(const dgGraphicalAttribute& other) const
{
    return the_colour == static_cast<const dgColourAttribute&>(other).the_colour;
}
