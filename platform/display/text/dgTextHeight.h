#pragma once

#include "dgNumberAttribute.h"

/// Size of text: the font's em in model units, which is the usual distance of lines set solid. 1 by default.
class DG_EXPORT dgTextHeight : public dgNumberAttribute
{
public:
    explicit dgTextHeight(double height) : dgNumberAttribute(dgTYPE_TEXT_HEIGHT, height) {}

    dgTextHeight* copy() const override;

    UT_DECLARE_TYPE(dgTextHeight, dgGraphicalElement);
};
