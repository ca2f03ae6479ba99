#pragma once

#include "dgNumberAttribute.h"

/// Size of points in pixels. 1 by default.
class DG_EXPORT dgMarkerSize : public dgNumberAttribute
{
public:
    explicit dgMarkerSize(double pixels) : dgNumberAttribute(dgTYPE_MARKER_SIZE, pixels) {}

    dgMarkerSize* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
