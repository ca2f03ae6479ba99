#pragma once

#include "dgColourAttribute.h"

/// Colour of the back faces of surfaces.
class DG_EXPORT dgBackSurfaceColour : public dgColourAttribute
{
public:
    explicit dgBackSurfaceColour(const gsColour& colour) : dgColourAttribute(dgTYPE_BACK_SURFACE_COLOUR, colour) {}

    dgBackSurfaceColour* copy() const override;

    UT_DECLARE_TYPE(dgBackSurfaceColour, dgGraphicalElement);
};
