#pragma once

#include "dgNumberAttribute.h"

/// Size of points in pixels. 1 by default.
class DG_EXPORT dgMarkerSize : public dgNumberAttribute
{
public:
    explicit dgMarkerSize(double pixels) : dgNumberAttribute(dgTYPE_MARKER_SIZE, pixels) {}

    double reach() const override { return 0.5 * value(); }
    bool changes_bounds() const override { return true; }
    dgMarkerSize* copy() const override;

    UT_DECLARE_TYPE(dgMarkerSize, dgGraphicalElement);
};
