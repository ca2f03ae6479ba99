#pragma once

#include "dgNumberAttribute.h"

/// Line width in pixels. 1 by default.
class DG_EXPORT dgLineWidth : public dgNumberAttribute
{
public:
    explicit dgLineWidth(double pixels) : dgNumberAttribute(dgTYPE_LINE_WIDTH, pixels) {}

    double reach() const override { return 0.5 * value(); }
    bool changes_bounds() const override { return true; }
    dgLineWidth* copy() const override;

    UT_DECLARE_TYPE(dgLineWidth, dgGraphicalElement);
};
