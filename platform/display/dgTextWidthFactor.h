#pragma once

#include "dgNumberAttribute.h"

/// What widths along the baseline are multiplied by. 1 by default.
class DG_EXPORT dgTextWidthFactor : public dgNumberAttribute
{
public:
    explicit dgTextWidthFactor(double factor) : dgNumberAttribute(dgTYPE_TEXT_WIDTH_FACTOR, factor) {}

    dgTextWidthFactor* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
