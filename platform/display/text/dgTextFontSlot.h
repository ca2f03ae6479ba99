#pragma once

#include "dgNumberAttribute.h"

/// Number of the renderer's text-font slot that text is drawn with. 0 by default.
class DG_EXPORT dgTextFontSlot : public dgNumberAttribute
{
public:
    explicit dgTextFontSlot(int slot) : dgNumberAttribute(dgTYPE_TEXT_FONT_SLOT, slot) {}

    dgTextFontSlot* copy() const override;

    UT_DECLARE_TYPE(dgTextFontSlot, dgGraphicalElement);
};
