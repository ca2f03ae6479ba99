#pragma once

#include "dgNumberAttribute.h"

/// Whether surfaces are lit (1, the default) or drawn in their plain colour (0).
class DG_EXPORT dgLighting : public dgNumberAttribute
{
public:
    explicit dgLighting(int on) : dgNumberAttribute(dgTYPE_LIGHTING, on) {}

    dgLighting* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
