#pragma once

#include "dgGraphicalElement.h"

/// An element that changes how the primitives after it are drawn, up to the end of its structure.
class DG_EXPORT dgGraphicalAttribute : public dgGraphicalElement
{
public:
    /// True for an attribute of the same type with the same value.
    int equal(const dgGraphicalAttribute& other) const;

    /// 0 to 4 for attributes that may be held back while a structure is written (0 line, 1 text, 2 marker, 3 surface,
    /// 4 shared); 5 and more for those that act at once.
    int category() const;

    /// Pixels by which what is drawn under it may reach beyond its box, such as half the width of a line; 0 for most.
    virtual double reach() const { return 0; }

    dgGraphicalAttribute* copy() const override = 0;
    void draw(dgRenderer* renderer) const override;

    UT_DECLARE_TYPE(dgGraphicalAttribute, dgGraphicalElement);

protected:
    explicit dgGraphicalAttribute(int type) : dgGraphicalElement(dgELEMENT_ATTRIBUTE, type) {}

    /// other is of the same type.
    virtual int equal_value(const dgGraphicalAttribute& other) const = 0;
};
