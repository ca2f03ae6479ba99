#pragma once

#include "dgNumberAttribute.h"

/// How surfaces are filled: 0 edges of the triangles alone, 1 filled. Filled by default.
class DG_EXPORT dgInteriorStyle : public dgNumberAttribute
{
public:
    explicit dgInteriorStyle(int style) : dgNumberAttribute(dgTYPE_INTERIOR_STYLE, style) {}

    dgInteriorStyle* copy() const override;

    UT_DECLARE_TYPE(dgInteriorStyle, dgGraphicalElement);
};
