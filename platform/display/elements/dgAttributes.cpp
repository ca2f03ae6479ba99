#include "dgColourAttribute.h"
#include "dgNumberAttribute.h"

#include "dgBackSurfaceColour.h"
#include "dgInteriorStyle.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineStyle.h"
#include "dgLineWidth.h"
#include "dgMarkerColour.h"
#include "dgMarkerSize.h"
#include "dgSurfaceColour.h"
#include "dgTextColour.h"

UT_DEFINE_TYPE(dgColourAttribute, dgGraphicalAttribute);
UT_DEFINE_TYPE(dgNumberAttribute, dgGraphicalAttribute);

void dgColourAttribute::colour(const gsColour& colour)
{
    the_colour = colour;
    changed();
}

int dgColourAttribute::equal_value(const dgGraphicalAttribute& other) const
{
    return the_colour == static_cast<const dgColourAttribute&>(other).the_colour;
}

void dgNumberAttribute::value(double value)
{
    the_value = value;
    changed();
}

int dgNumberAttribute::equal_value(const dgGraphicalAttribute& other) const
{
    return the_value == static_cast<const dgNumberAttribute&>(other).the_value;
}

UT_DEFINE_TYPE(dgLineColour, dgColourAttribute);

dgLineColour* dgLineColour::copy() const
{
    return new dgLineColour(*this);
}

UT_DEFINE_TYPE(dgTextColour, dgColourAttribute);

dgTextColour* dgTextColour::copy() const
{
    return new dgTextColour(*this);
}

UT_DEFINE_TYPE(dgMarkerColour, dgColourAttribute);

dgMarkerColour* dgMarkerColour::copy() const
{
    return new dgMarkerColour(*this);
}

UT_DEFINE_TYPE(dgSurfaceColour, dgColourAttribute);

dgSurfaceColour* dgSurfaceColour::copy() const
{
    return new dgSurfaceColour(*this);
}

UT_DEFINE_TYPE(dgBackSurfaceColour, dgColourAttribute);

dgBackSurfaceColour* dgBackSurfaceColour::copy() const
{
    return new dgBackSurfaceColour(*this);
}

UT_DEFINE_TYPE(dgLineStyle, dgNumberAttribute);

dgLineStyle* dgLineStyle::copy() const
{
    return new dgLineStyle(*this);
}

UT_DEFINE_TYPE(dgLineWidth, dgNumberAttribute);

dgLineWidth* dgLineWidth::copy() const
{
    return new dgLineWidth(*this);
}

UT_DEFINE_TYPE(dgMarkerSize, dgNumberAttribute);

dgMarkerSize* dgMarkerSize::copy() const
{
    return new dgMarkerSize(*this);
}

UT_DEFINE_TYPE(dgInteriorStyle, dgNumberAttribute);

dgInteriorStyle* dgInteriorStyle::copy() const
{
    return new dgInteriorStyle(*this);
}

UT_DEFINE_TYPE(dgLighting, dgNumberAttribute);

dgLighting* dgLighting::copy() const
{
    return new dgLighting(*this);
}
