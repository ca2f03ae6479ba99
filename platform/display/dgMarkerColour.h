#pragma once

#include "dgColourAttribute.h"

/// Colour of points. White by default.
class DG_EXPORT dgMarkerColour : public dgColourAttribute
{
public:
    explicit dgMarkerColour(const gsColour& colour) : dgColourAttribute(dgTYPE_MARKER_COLOUR, colour) {}

    dgMarkerColour* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
