#pragma once

#include "dgNumberAttribute.h"

/// Size of text: the font's em in model units, which is the usual distance of lines set solid. 1 by default.
class DG_EXPORT dgTextHeight : public dgNumberAttribute
{
public:
    explicit dgTextHeight(double height) : dgNumberAttribute(dgTYPE_TEXT_HEIGHT, height) {}

    dgTextHeight* copy() const override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
