#pragma once

#include "dgGraphicalAttribute.h"
#include "gsColour.h"

/// What the attributes that carry one colour have in common: the elements of types 0 (lines), 12 (text), 22 (markers),
/// 29 (surfaces) and 31 (their back faces).
class DG_EXPORT dgColourAttribute : public dgGraphicalAttribute
{
public:
    const gsColour& colour() const { return the_colour; }

    /// Replaces the colour in place.
    void colour(const gsColour& colour);

    UT_DECLARE_TYPE(dgColourAttribute, dgGraphicalElement);

protected:
    dgColourAttribute(int type, const gsColour& colour) : dgGraphicalAttribute(type), the_colour(colour) {}
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    gsColour the_colour;
};
