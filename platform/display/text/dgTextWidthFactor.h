#pragma once

#include "dgNumberAttribute.h"

/// What widths along the baseline are multiplied by. 1 by default.
class DG_EXPORT dgTextWidthFactor : public dgNumberAttribute
{
public:
    explicit dgTextWidthFactor(double factor) : dgNumberAttribute(dgTYPE_TEXT_WIDTH_FACTOR, factor) {}

    dgTextWidthFactor* copy() const override;

    UT_DECLARE_TYPE(dgTextWidthFactor, dgGraphicalElement);
};
