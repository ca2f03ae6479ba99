#pragma once

#include "dgNumberAttribute.h"

/// How surfaces are filled: 0 edges of the triangles alone, 1 filled. Filled by default.
class DG_EXPORT dgInteriorStyle : public dgNumberAttribute
{
public:
    explicit dgInteriorStyle(int style) : dgNumberAttribute(dgTYPE_INTERIOR_STYLE, style) {}

    dgInteriorStyle* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
