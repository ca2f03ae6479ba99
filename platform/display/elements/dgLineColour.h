#pragma once

#include "dgColourAttribute.h"

/// Colour of lines. White by default.
class DG_EXPORT dgLineColour : public dgColourAttribute
{
public:
    explicit dgLineColour(const gsColour& colour) : dgColourAttribute(dgTYPE_LINE_COLOUR, colour) {}

    dgLineColour* copy() const override;

    UT_DECLARE_TYPE(dgLineColour, dgGraphicalElement);
};
