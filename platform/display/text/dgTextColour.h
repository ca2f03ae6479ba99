#pragma once

#include "dgColourAttribute.h"

/// Colour of text. White by default.
class DG_EXPORT dgTextColour : public dgColourAttribute
{
public:
    explicit dgTextColour(const gsColour& colour) : dgColourAttribute(dgTYPE_TEXT_COLOUR, colour) {}

    dgTextColour* copy() const override;

    UT_DECLARE_TYPE(dgTextColour, dgGraphicalElement);
};
