#pragma once

#include "dgGraphicalAttribute.h"

/// What the attributes that carry one number have in common.
class DG_EXPORT dgNumberAttribute : public dgGraphicalAttribute
{
public:
    double value() const { return the_value; }

    /// Replaces the number in place.
    void value(double value);

    UT_DECLARE_TYPE(dgNumberAttribute, dgGraphicalElement);

protected:
    dgNumberAttribute(int type, double value) : dgGraphicalAttribute(type), the_value(value) {}
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    double the_value;
};
