#pragma once

#include "dgGraphicalAttribute.h"
#include "gsColour.h"

/// What the attributes that carry one colour have in common.
class DG_EXPORT dgColourAttribute : public dgGraphicalAttribute
{
public:
    const gsColour& colour() const { return the_colour; }

    /// Replaces the colour in place.
    void colour(const gsColour& colour);

    /// The attribute behind an element of types 0, 12, 22, 29 and 31; null for every other element.

    UT_DECLARE_TYPE(dgColourAttribute, dgGraphicalElement);

protected:
    dgColourAttribute(int type, const gsColour& colour) : dgGraphicalAttribute(type), the_colour(colour) {}
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    gsColour the_colour;
};
