#pragma once

#include "dgColourAttribute.h"

/// Colour of the back faces of surfaces.
class DG_EXPORT dgBackSurfaceColour : public dgColourAttribute
{
public:
    explicit dgBackSurfaceColour(const gsColour& colour) : dgColourAttribute(dgTYPE_BACK_SURFACE_COLOUR, colour) {}

    dgBackSurfaceColour* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
