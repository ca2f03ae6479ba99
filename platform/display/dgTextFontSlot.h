#pragma once

#include "dgNumberAttribute.h"

/// Number of the renderer's text-font slot that text is drawn with. 0 by default.
class DG_EXPORT dgTextFontSlot : public dgNumberAttribute
{
public:
    explicit dgTextFontSlot(int slot) : dgNumberAttribute(dgTYPE_TEXT_FONT_SLOT, slot) {}

    dgTextFontSlot* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
