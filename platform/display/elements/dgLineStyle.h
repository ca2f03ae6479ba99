#pragma once

#include "dgNumberAttribute.h"

/// Line style: 0 solid, 1 dashed, 2 dotted, 3 dashed and dotted. Solid by default.
class DG_EXPORT dgLineStyle : public dgNumberAttribute
{
public:
    explicit dgLineStyle(int style) : dgNumberAttribute(dgTYPE_LINE_STYLE, style) {}

    dgLineStyle* copy() const override;

    UT_DECLARE_TYPE(dgLineStyle, dgGraphicalElement);
};
