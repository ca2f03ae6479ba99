#pragma once

#include "dgNumberAttribute.h"

/// Whether surfaces are lit (1, the default) or drawn in their plain colour (0).
class DG_EXPORT dgLighting : public dgNumberAttribute
{
public:
    explicit dgLighting(int on) : dgNumberAttribute(dgTYPE_LIGHTING, on) {}

    dgLighting* copy() const override;

    UT_DECLARE_TYPE(dgLighting, dgGraphicalElement);
};
