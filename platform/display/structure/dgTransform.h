#pragma once

#include "dgGraphicalAttribute.h"
#include "giXform3.h"

/// Places what follows in its structure: the transform is applied to coordinates before those already in force.
class DG_EXPORT dgTransform : public dgGraphicalAttribute
{
public:
    explicit dgTransform(const giXform3& transform) : dgGraphicalAttribute(dgTYPE_TRANSFORM), the_transform(transform)
    {}

    const giXform3& transform() const { return the_transform; }
    void transform(const giXform3& transform);

    bool changes_bounds() const override { return true; }
    dgTransform* copy() const override;

    UT_DECLARE_TYPE(dgTransform, dgGraphicalElement);

protected:
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    giXform3 the_transform;
};
