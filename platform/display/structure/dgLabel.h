#pragma once

#include "dgGraphicalElement.h"

/// Marks a place in a structure by an integer identifier. Nothing is drawn.
class DG_EXPORT dgLabel : public dgGraphicalElement
{
public:
    explicit dgLabel(int identifier) : dgGraphicalElement(dgELEMENT_OTHER, dgTYPE_LABEL), the_identifier(identifier) {}

    int label() const override { return the_identifier; }
    dgLabel* copy() const override;
    void draw(dgRenderer*) const override {}

    UT_DECLARE_TYPE(dgLabel, dgGraphicalElement);

private:
    int the_identifier;
};
