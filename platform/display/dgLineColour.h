#pragma once

#include "dgColourAttribute.h"

/// Colour of lines. White by default.
class DG_EXPORT dgLineColour : public dgColourAttribute
{
public:
    explicit dgLineColour(const gsColour& colour) : dgColourAttribute(dgTYPE_LINE_COLOUR, colour) {}

    dgLineColour* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
