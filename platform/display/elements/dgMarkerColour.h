#pragma once

#include "dgColourAttribute.h"

/// Colour of points. White by default.
class DG_EXPORT dgMarkerColour : public dgColourAttribute
{
public:
    explicit dgMarkerColour(const gsColour& colour) : dgColourAttribute(dgTYPE_MARKER_COLOUR, colour) {}

    dgMarkerColour* copy() const override;

    UT_DECLARE_TYPE(dgMarkerColour, dgGraphicalElement);
};
