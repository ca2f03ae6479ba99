#pragma once

#include "dgColourAttribute.h"

/// Colour of the front faces of surfaces, whose normals point towards the eye. Back faces have it too unless a
/// dgBackSurfaceColour is in force.
class DG_EXPORT dgSurfaceColour : public dgColourAttribute
{
public:
    explicit dgSurfaceColour(const gsColour& colour) : dgColourAttribute(dgTYPE_SURFACE_COLOUR, colour) {}

    dgSurfaceColour* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
