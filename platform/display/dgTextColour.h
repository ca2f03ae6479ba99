#pragma once

#include "dgColourAttribute.h"

/// Colour of text. White by default.
class DG_EXPORT dgTextColour : public dgColourAttribute
{
public:
    explicit dgTextColour(const gsColour& colour) : dgColourAttribute(dgTYPE_TEXT_COLOUR, colour) {}

    dgTextColour* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
