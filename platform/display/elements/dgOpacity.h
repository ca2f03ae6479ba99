#pragma once

#include "dgNumberAttribute.h"

/// How much of what lies behind them surfaces cover: 1, the default, all of it, 0 nothing, which draws none. What is
/// see-through is drawn last and blended, the farthest primitive first. Lines, points and texts are always solid.
class DG_EXPORT dgOpacity : public dgNumberAttribute
{
public:
    /// From 0 to 1.
    explicit dgOpacity(double share) : dgNumberAttribute(dgTYPE_OPACITY, share) {}

    dgOpacity* copy() const override;

    UT_DECLARE_TYPE(dgOpacity, dgGraphicalElement);
};
