#pragma once

#include "dgColourAttribute.h"

/// Colour of the front faces of surfaces, whose normals point towards the eye. Back faces have it too unless a
/// dgBackSurfaceColour is in force.
class DG_EXPORT dgSurfaceColour : public dgColourAttribute
{
public:
    explicit dgSurfaceColour(const gsColour& colour) : dgColourAttribute(dgTYPE_SURFACE_COLOUR, colour) {}

    dgSurfaceColour* copy() const override;

    UT_DECLARE_TYPE(dgSurfaceColour, dgGraphicalElement);
};
