#pragma once

#include "dgNumberAttribute.h"

/// Line width in pixels. 1 by default.
class DG_EXPORT dgLineWidth : public dgNumberAttribute
{
public:
    explicit dgLineWidth(double pixels) : dgNumberAttribute(dgTYPE_LINE_WIDTH, pixels) {}

    dgLineWidth* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
