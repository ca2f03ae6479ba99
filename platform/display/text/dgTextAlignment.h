#pragma once

#include "dgGraphicalAttribute.h"

/// The point along a line of text that stands at the text's position.
enum dgTextHorizontal
{
    dgTEXT_LEFT = 0,
    dgTEXT_CENTRE = 1,
    dgTEXT_RIGHT = 2
};

/// The level of the text that stands at its position.
enum dgTextVertical
{
    dgTEXT_BASELINE = 0, ///< of the first line
    dgTEXT_BOTTOM = 1,   ///< below the last line
    dgTEXT_MIDDLE = 2,
    dgTEXT_TOP = 3 ///< above the first line
};

/// How text lies about its position. Left and baseline by default.
class DG_EXPORT dgTextAlignment : public dgGraphicalAttribute
{
public:
    dgTextAlignment(dgTextHorizontal horizontal, dgTextVertical vertical)
        : dgGraphicalAttribute(dgTYPE_TEXT_ALIGNMENT), the_horizontal(horizontal), the_vertical(vertical)
    {}

    dgTextHorizontal horizontal() const { return the_horizontal; }
    dgTextVertical vertical() const { return the_vertical; }

    dgTextAlignment* copy() const override;

    UT_DECLARE_TYPE(dgTextAlignment, dgGraphicalElement);

protected:
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    dgTextHorizontal the_horizontal;
    dgTextVertical the_vertical;
};
