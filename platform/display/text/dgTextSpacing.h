#pragma once

#include "dgNumberAttribute.h"

/// Room added behind each character, as a share of the text's height; may be negative. 0 by default.
class DG_EXPORT dgTextSpacing : public dgNumberAttribute
{
public:
    explicit dgTextSpacing(double share) : dgNumberAttribute(dgTYPE_TEXT_SPACING, share) {}

    dgTextSpacing* copy() const override;

    UT_DECLARE_TYPE(dgTextSpacing, dgGraphicalElement);
};
